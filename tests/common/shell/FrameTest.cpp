// The application frame under the virtual clock: what dt reaches the subsystems,
// the frame statistics window, the throttle, the host clock's wrap, and the rule that
// an open exit pop-up keeps charge of the scene across a suspension.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "GameApp.h"
#include "core/GameHost.h"
#include "core/Settings.h"
#include "graphics/Window.h"
#include "graphics/WindowManager.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"

namespace {

using Hollin::Ostra::CKernelMPI;
namespace Host = Hollin::Ostra::Host;

class ProbeWindow : public nox::Window {
 public:
  void Update(unsigned long ms) override {
    lastUpdateMS = ms;
    ++updates;
  }
  void Draw() override { ++draws; }
  unsigned long lastUpdateMS = 12345;
  int updates = 0;
  int draws = 0;
};

class FrameTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/frame-test-XXXXXX";
    m_Dir = mkdtemp(pattern);
    Host::HostConfig config;
    config.titlePath = m_Dir;
    config.saveRoot = m_Dir + "/players";
    config.downloadsPath = m_Dir + "/downloads";
    config.clock = Host::ClockMode::kVirtual;
    config.headless = true;
    config.quiet = true;
    Host::SetHostConfig(config);
    m_App.Enter();
    nox::WindowManager::Get()->OpenWindow(&m_Probe, false);
  }
  void TearDown() override {
    nox::WindowManager::Get()->CloseWindow(&m_Probe);
    m_App.Exit();
    std::string command = "rm -rf '" + m_Dir + "'";
    ASSERT_EQ(system(command.c_str()), 0);
  }
  void Advance(uint32_t ms) { CKernelMPI().TaskSleep(ms); }
  uint32_t HostNow() const { return nox::GameHost::s_pGameHost->GetCurrentMilliseconds(); }

  std::string m_Dir;
  game::GameApp m_App{nullptr};
  ProbeWindow m_Probe;
};

}  // namespace

TEST_F(FrameTest, AStallOverASecondAdvancesNothingButExactlyASecondPasses) {
  Advance(17);
  m_App.Update();
  EXPECT_EQ(m_Probe.lastUpdateMS, 17u);
  Advance(1001);
  m_App.Update();
  EXPECT_EQ(m_Probe.lastUpdateMS, 0u);
  Advance(1000);
  m_App.Update();
  EXPECT_EQ(m_Probe.lastUpdateMS, 1000u);
  EXPECT_EQ(m_Probe.updates, 3);
  EXPECT_EQ(m_Probe.draws, 3);
}

TEST_F(FrameTest, TheFirstStatisticsWindowReportsOnFrame21AndCountsTwentyOneFrames) {
  for (int frame = 1; frame <= 20; ++frame) {
    Advance(50);
    m_App.Update();
    EXPECT_EQ(m_App.GetTitle().GetLastFPS(), 0u) << "frame " << frame;
  }
  Advance(50);
  m_App.Update();
  // The first window holds 21 lengths of 50 ms: 20000 / 1050 cut to 19.
  EXPECT_EQ(m_App.GetTitle().GetLastFPS(), 19u);
  EXPECT_EQ(m_App.GetTitle().GetProfiler().m_AverageMS, 1050u / 20);
  for (int frame = 22; frame <= 41; ++frame) {
    Advance(50);
    m_App.Update();
  }
  EXPECT_EQ(m_App.GetTitle().GetLastFPS(), 20u);
}

TEST_F(FrameTest, ThrottleNeverSleepsTheFirstTimeThenSleepsTheRestOf16ms) {
  nox::Settings::s_pSettings->SetBoolValue("Throttle Framerate", true);
  Advance(3);
  uint32_t before = HostNow();
  m_App.GetTitle().Throttle();
  EXPECT_EQ(HostNow(), before);
  Advance(5);
  m_App.GetTitle().Throttle();
  EXPECT_EQ(HostNow(), before + 16);
  // A frame that took longer than 16 ms is not slowed down.
  Advance(20);
  before = HostNow();
  m_App.GetTitle().Throttle();
  EXPECT_EQ(HostNow(), before);
}

TEST_F(FrameTest, ThrottleIsOffByDefault) {
  m_App.GetTitle().Throttle();
  uint32_t before = HostNow();
  m_App.GetTitle().Throttle();
  EXPECT_EQ(HostNow(), before);
}

TEST_F(FrameTest, HostClockDeltasStayRightAcrossTheWrapAt2To32) {
  nox::GameHost* host = nox::GameHost::s_pGameHost;
  host->Update();
  Advance(0xFFFFFFF0u - HostNow());
  host->Update();
  EXPECT_EQ(host->GetFrameMS(), 0xFFFFFFF0u);
  Advance(0x30);
  host->Update();
  EXPECT_EQ(host->GetFrameMS(), 0x20u);
  EXPECT_EQ(host->GetDeltaMS(), 0x30u);
}

TEST_F(FrameTest, SuspendPausesTheTitleUnlessTheExitPopUpIsOpen) {
  game::GameTitle& title = m_App.GetTitle();
  m_App.Suspend();
  EXPECT_TRUE(title.IsSuspended());
  m_App.Resume();
  EXPECT_FALSE(title.IsSuspended());

  title.SetExitPopUpOpen(true);
  m_App.Suspend();
  EXPECT_FALSE(title.IsSuspended());
  // Opened before a suspension, the pop-up stays in charge after it too.
  title.SetExitPopUpOpen(false);
  m_App.Suspend();
  title.SetExitPopUpOpen(true);
  m_App.Resume();
  EXPECT_TRUE(title.IsSuspended());
}
