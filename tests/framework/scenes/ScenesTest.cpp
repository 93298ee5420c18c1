// The framework's scene chain: the order of a scene change under the screen fade,
// the way back and its depth, rows that do not exist, and the cut-scene's script,
// skipping and single completion.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/GameHost.h"
#include "graphics/Window.h"
#include "menu/ScreenTransition.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"
#include "scenes/NisScene.h"
#include "scenes/SceneManager.h"

namespace {

namespace Host = Hollin::Ostra::Host;
using noxfw::ExitReason;
using noxfw::SceneData;
using noxfw::SceneManager;
using noxfw::ScreenTransition;

std::vector<std::string> g_Log;

int FadeLevelPercent() {
  ScreenTransition* t = ScreenTransition::sm_pInstance;
  return t ? (t->GetFader().GetLevel() * nox::Real(100)).ToInt() : -1;
}

void Note(const char* what, unsigned long id) {
  g_Log.push_back(std::string(what) + " " + std::to_string(id) + " fade " +
                  std::to_string(FadeLevelPercent()));
}

class ProbeView : public nox::Window {
 public:
  void Draw() override {}
};

class ProbeScene : public nox::Scene {
 public:
  explicit ProbeScene(unsigned long id) : m_Id(id) {}
  ~ProbeScene() override { Note("destroy", m_Id); }
  void Enter() override { Note("enter", m_Id); }
  void Play() override { Note("play", m_Id); }
  void Leave() override { Note("leave", m_Id); }
  unsigned long GetNumViews() const override { return 1; }
  nox::Window* GetView(unsigned long index) const override {
    return index == 0 ? const_cast<ProbeView*>(&m_View) : nullptr;
  }
  void Finish() {
    nox::EventData data;
    FireEvent(this, &data);
  }

 private:
  unsigned long m_Id;
  ProbeView m_View;
};

// Rows: 20 -> 21 on Complete; 21 goes nowhere of its own (its way back); 22 names
// 20 for Back and 21 for Complete.
const SceneData kRows[] = {
    {20, "First", {0, 1, 21, 0, 0, 0, 0, 0}},
    {21, "Second", {0, 0, 0, 0, 0, 0, 0, 0}},
    {22, "Third", {20, 1, 21, 0, 0, 0, 0, 0}},
};

class TestSceneManager : public SceneManager {
 public:
  TestSceneManager() { AddRows(kRows, 3); }
  bool CreateScene(unsigned long id) override {
    if (id < 20 || id > 22) return false;
    Note("create", id);
    SetScene(new ProbeScene(id));
    EnterScene();
    return true;
  }
};

class ScenesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    g_Log.clear();
    Host::HostConfig config;
    config.clock = Host::ClockMode::kVirtual;
    config.headless = true;
    config.quiet = true;
    Host::SetHostConfig(config);
    nox::GameHost::Create();
  }
  void TearDown() override {
    delete m_pManager;
    ScreenTransition::Destroy();
    nox::GameHost::Destroy();
    Host::SetHostConfig(Host::HostConfig());
  }
  void Start(unsigned long id) {
    m_pManager = new TestSceneManager();
    m_pManager->SetSceneData(m_pManager->GetSceneDataFromTable(id));
    ASSERT_TRUE(m_pManager->CreateCurrScene());
  }
  // One frame of `ms` on the virtual clock, as the title runs it.
  void Frame(uint32_t ms) {
    Hollin::Ostra::CKernelMPI().TaskSleep(ms);
    nox::GameHost::s_pGameHost->Update();
    if (ScreenTransition::sm_pInstance) ScreenTransition::sm_pInstance->Update(ms);
    m_pManager->Update(ms);
  }
  // Frames until no change runs; the number of frames.
  int Settle(uint32_t ms = 20) {
    int frames = 0;
    do {
      Frame(ms);
      ++frames;
    } while (m_pManager->IsChangingScene() && frames < 1000);
    return frames;
  }
  // A change by `reason` run to its end; the id reached.
  unsigned long Change(ExitReason::eExitReason reason) {
    m_pManager->DoneScene(reason);
    Settle();
    return m_pManager->GetSceneId();
  }

  TestSceneManager* m_pManager = nullptr;
};

TEST_F(ScenesTest, ASceneChangeFadesOutFullyThenLeavesDestroysCreatesAndFadesIn) {
  ScreenTransition::Create();
  Start(20);
  Settle();
  g_Log.clear();
  const uint32_t startMS = nox::GameHost::s_pGameHost->GetCurrentMilliseconds();
  static_cast<ProbeScene*>(m_pManager->GetScene())->Finish();
  EXPECT_TRUE(m_pManager->GetScene()->IsInputLocked());
  uint32_t leftMS = 0;
  while (m_pManager->IsChangingScene()) {
    Frame(20);
    if (!leftMS && !g_Log.empty()) leftMS = nox::GameHost::s_pGameHost->GetCurrentMilliseconds();
  }
  const std::vector<std::string> expected = {"leave 20 fade 100", "destroy 20 fade 100", "create 21 fade 100",
                                             "enter 21 fade 100", "play 21 fade 0"};
  EXPECT_EQ(g_Log, expected);
  EXPECT_GE(leftMS - startMS, 500u);
  EXPECT_EQ(m_pManager->GetSceneId(), 21u);
  EXPECT_FALSE(ScreenTransition::sm_pInstance->IsFadedOrTransitioning());
}

TEST_F(ScenesTest, AnyEventOfTheSceneEndsItWithComplete) {
  Start(22);
  Settle();
  static_cast<ProbeScene*>(m_pManager->GetScene())->Finish();
  Settle();
  EXPECT_EQ(m_pManager->GetSceneId(), 21u);
}

TEST_F(ScenesTest, AnEmptyColumnTakesTheWayBackAndTheWayBackIsOneStepDeep) {
  Start(22);
  EXPECT_EQ(Change(ExitReason::Complete), 21u);
  // 21 has no column of its own: back to where it came from.
  EXPECT_EQ(Change(ExitReason::Back), 22u);
  EXPECT_EQ(Change(ExitReason::Back), 20u);
  EXPECT_EQ(Change(ExitReason::Complete), 21u);
  // Only the last scene is remembered: 20, not 22.
  EXPECT_EQ(Change(ExitReason::MenuBack), 20u);
}

TEST_F(ScenesTest, TheRunningRowChangesOnlyWhenTheOldSceneIsDestroyed) {
  Start(20);
  m_pManager->DoneScene(ExitReason::Complete);
  EXPECT_EQ(m_pManager->GetSceneId(), 20u);
  while (m_pManager->GetScene()) Frame(20);
  EXPECT_EQ(m_pManager->GetSceneId(), 21u);
  EXPECT_EQ(m_pManager->GetSceneData().next[ExitReason::Terminate], 20u);
}

TEST_F(ScenesTest, ReachingMainRemembersTheReasonAndTerminateGoesThereAtOnce) {
  Start(20);
  Settle();
  EXPECT_EQ(m_pManager->GetNextScene(ExitReason::Quit).id, 1u);
  EXPECT_EQ(m_pManager->GetExitReason(), ExitReason::Quit);
  m_pManager->DoneScene(ExitReason::Terminate);
  EXPECT_EQ(m_pManager->GetExitReason(), ExitReason::Terminate);
  // Terminate only lets the scene leave: no fade, no change.
  EXPECT_FALSE(m_pManager->IsChangingScene());
  EXPECT_EQ(g_Log.back(), "leave 20 fade -1");
}

TEST_F(ScenesTest, AnIdWithoutARowLeavesTheScreenCoveredAndWaitingWithoutCrashing) {
  Start(20);
  SceneData row = m_pManager->GetSceneDataFromTable(99);
  EXPECT_EQ(row.id, 99u);
  EXPECT_EQ(row.name[0], '\0');
  row = m_pManager->GetSceneData();
  row.next[ExitReason::Complete] = 99;
  m_pManager->SetSceneData(row);
  m_pManager->DoneScene(ExitReason::Complete);
  for (int i = 0; i < 50; ++i) Frame(20);
  EXPECT_EQ(m_pManager->GetSceneId(), 99u);
  EXPECT_EQ(m_pManager->GetScene(), nullptr);
  EXPECT_TRUE(m_pManager->IsChangingScene());
}

// A cut-scene with no animation still runs its script: two seconds, then done.
class CountingListener : public nox::EventListener<nox::Scene> {
 public:
  void OnEventOccurred(nox::Scene*, const nox::EventData*) override { ++events; }
  int events = 0;
};

TEST_F(ScenesTest, ACutSceneCompletesOnceAfterItsPageTimeAndNotBefore) {
  noxfw::NisScene nis(nullptr, false);
  CountingListener listener;
  nis.AddEventListener(&listener);
  nis.Enter();
  nis.Play();
  // One frame for the wait to start, then 2000 ms of frames.
  nis.Update(0);
  for (int i = 0; i < 99; ++i) nis.Update(20);
  EXPECT_FALSE(nis.IsComplete());
  nis.Update(20);
  nis.Update(0);
  EXPECT_TRUE(nis.IsComplete());
  nis.Complete();
  nis.Skip();
  EXPECT_EQ(listener.events, 1);
}

TEST_F(ScenesTest, ACutSceneShowsItsViewAsTheOnlyView) {
  noxfw::NisScene nis;
  EXPECT_EQ(nis.GetNumViews(), 1u);
  EXPECT_NE(nis.GetView(0), nullptr);
  EXPECT_EQ(nis.GetView(1), nullptr);
  // Not skippable: input never skips it.
  EXPECT_FALSE(nis.HandleInput(*static_cast<noxfw::NisView*>(nis.GetView(0))));
  EXPECT_FALSE(nis.IsComplete());
}

}  // namespace
