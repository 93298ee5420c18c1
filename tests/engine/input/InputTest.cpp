// nox::Input over the platform's touch queue (events pushed through its public
// queue) and buttons given through the input's button source, with the headless
// screen and the virtual clock: the controller stacks, buttons held at start,
// touches spread over frames, double taps, resuming, and buttons turned with the
// screen.
#include <gtest/gtest.h>

#include <cstdint>

#include "core/GameHost.h"
#include "graphics/ScreenManager.h"
#include "input/Input.h"
#include "input/ScriptController.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"
#include "ostra/TouchEventQueue.h"

namespace {

namespace Host = Hollin::Ostra::Host;
using nox::Input;
using nox::Real;
using nox::Screen;
using nox::Vector2;

uint32_t g_Buttons = 0;
uint32_t ReadTestButtons() {
  return g_Buttons;
}

class CloseLog : public nox::EventListener<Input> {
 public:
  void OnEventOccurred(Input*, const nox::EventData* data) override {
    if (data->m_Type == Input::kCloseApp) ++closes;
  }
  int closes = 0;
};

class InputTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Host::HostConfig config;
    config.clock = Host::ClockMode::kVirtual;
    config.headless = true;
    config.quiet = true;
    Host::SetHostConfig(config);
    Hollin::Ostra::CTouchEventQueue().Clear();
    g_Buttons = 0;
    Input::SetButtonSource(ReadTestButtons);
    nox::GameHost::Create();
    nox::ScreenManager::Create();
    m_pScreen = nox::ScreenManager::Get();
    Input::Create(1);
    m_pInput = Input::s_pInput;
  }
  void TearDown() override {
    nox::ScreenManager::Destroy();
    Input::Destroy();
    nox::GameHost::Destroy();
    Input::SetButtonSource(nullptr);
    Hollin::Ostra::CTouchEventQueue().Clear();
  }

  static void Touch(bool down, int x, int y) {
    Hollin::Ostra::tTouchData t;
    t.touchState = down ? 100 : 0;
    t.x = static_cast<int16_t>(x);
    t.y = static_cast<int16_t>(y);
    t.timeMS = 0;
    Hollin::Ostra::CTouchEventQueue().Push(t);
  }
  // One frame of the title: time passes, the host and then the input update.
  void Frame(uint32_t ms = 17) {
    Hollin::Ostra::CKernelMPI().TaskSleep(ms);
    nox::GameHost::s_pGameHost->Update();
    m_pInput->Update();
  }
  const Screen::MultiTouchState* Finger() const { return m_pScreen->FindTouchState(0); }
  uint32_t Triggered() const { return m_pInput->GetController(0)->GetTriggeredButtons(0xFFFFFFFF); }

  Screen* m_pScreen = nullptr;
  Input* m_pInput = nullptr;
};

}  // namespace

TEST_F(InputTest, AButtonHeldThroughCreateIsHeldNotTriggered) {
  g_Buttons = 0x10;
  Input::Create(1);  // replaces the fixture's instance
  m_pInput = Input::s_pInput;
  Frame();
  EXPECT_EQ(Triggered(), 0u);
  EXPECT_EQ(m_pInput->GetController(0)->GetHeldButtons(0xFFFFFFFF), 0x10u);
  g_Buttons = 0x20;
  Frame();
  EXPECT_EQ(Triggered(), 0x20u);
  EXPECT_EQ(m_pInput->GetController(0)->GetReleasedButtons(0xFFFFFFFF), 0x10u);
}

TEST_F(InputTest, OnlyTheFrontControllerOfAStackIsUpdated) {
  nox::Controller* original = m_pInput->GetController(0);
  nox::ScriptController script(false);
  m_pInput->PushController(0, &script);
  m_pInput->PushController(0, &script);  // moved to the front, not stacked twice
  EXPECT_EQ(m_pInput->GetController(0), &script);
  g_Buttons = 0x10;
  Frame();
  EXPECT_EQ(original->GetCurrentButtons(), 0u);
  m_pInput->PopController(0);
  EXPECT_EQ(m_pInput->GetController(0), original);
  Frame();
  EXPECT_EQ(original->GetTriggeredButtons(0xFFFFFFFF), 0x10u);

  m_pInput->PushController(0, &script);
  m_pInput->RemoveController(0, &script);
  EXPECT_EQ(m_pInput->GetController(0), original);

  CloseLog log;
  m_pInput->AddEventListener(&log);
  m_pInput->CloseApp();
  EXPECT_EQ(log.closes, 1);
  m_pInput->RemoveEventListener(&log);
}

TEST_F(InputTest, APressAndAReleaseQueuedInOneFrameAreSeenInTwoFrames) {
  Touch(true, 100, 50);
  Touch(false, 100, 50);
  Frame();
  ASSERT_NE(Finger(), nullptr);
  EXPECT_TRUE(Finger()->triggered);
  EXPECT_TRUE(Finger()->down);
  EXPECT_EQ(Finger()->triggerPosition, Vector2(Real(100), Real(50)));
  Frame();
  ASSERT_NE(Finger(), nullptr);
  EXPECT_TRUE(Finger()->released);
  EXPECT_FALSE(Finger()->triggered);
  EXPECT_EQ(Finger()->releasePosition, Vector2(Real(100), Real(50)));
  Frame();
  EXPECT_EQ(Finger(), nullptr);
  EXPECT_EQ(m_pScreen->GetTouchStateCount(), 0);
}

TEST_F(InputTest, AFramesEventsRunUpToTheFirstChangeAndAStillFingerStaysDown) {
  Touch(true, 10, 10);
  Frame();
  Touch(true, 20, 10);
  Touch(true, 30, 12);
  Touch(false, 30, 12);
  Touch(true, 60, 60);
  Frame();
  // Both moves and the release in this frame; the new press waits for the next.
  EXPECT_EQ(Finger()->heldPosition, Vector2(Real(30), Real(12)));
  EXPECT_TRUE(Finger()->released);
  EXPECT_FALSE(Hollin::Ostra::CTouchEventQueue().IsEmpty());
  Frame();
  EXPECT_TRUE(Finger()->triggered);
  EXPECT_EQ(Finger()->triggerPosition, Vector2(Real(60), Real(60)));

  for (int i = 0; i < 5; ++i) Frame();
  ASSERT_NE(Finger(), nullptr);
  EXPECT_TRUE(Finger()->down);
  EXPECT_FALSE(Finger()->triggered);
  EXPECT_EQ(Finger()->lastPosition, Vector2(Real(60), Real(60)));
  EXPECT_FLOAT_EQ(m_pInput->GetTouchData().pressure.ToFloat(), 1.0f);
}

TEST_F(InputTest, ASecondReleaseWithinHalfASecondIsADoubleTapAndTheFirstIsNot) {
  Touch(true, 50, 50);
  Touch(false, 50, 50);
  Frame();
  Frame();
  EXPECT_TRUE(Finger()->released);
  EXPECT_FALSE(m_pScreen->WasTouchDoubleTap());
  Frame(200);
  Touch(true, 52, 50);
  Touch(false, 52, 50);
  Frame(200);
  EXPECT_FALSE(m_pScreen->WasTouchDoubleTap());  // the press
  Frame(17);
  EXPECT_TRUE(m_pScreen->WasTouchDoubleTap());  // 417 ms after the first release
  Frame();
  EXPECT_FALSE(m_pScreen->WasTouchDoubleTap());

  // A release 500 ms or more after the last one is a single tap again.
  Touch(true, 52, 50);
  Frame(483);
  Touch(false, 52, 50);
  Frame(17);
  EXPECT_TRUE(Finger()->released);
  EXPECT_FALSE(m_pScreen->WasTouchDoubleTap());
}

TEST_F(InputTest, ResumeThrowsQueuedTouchesAwayButAFingerThatWasDownIsReleased) {
  Touch(true, 40, 40);
  Frame();
  Input::Suspend();
  Touch(true, 41, 40);
  Touch(false, 41, 40);
  Touch(true, 300, 200);
  Input::Resume();
  EXPECT_TRUE(Hollin::Ostra::CTouchEventQueue().IsEmpty());
  EXPECT_TRUE(Finger()->released);
  Frame();
  EXPECT_EQ(Finger(), nullptr);
  Frame();
  EXPECT_EQ(m_pScreen->GetTouchStateCount(), 0);  // the stale press never arrives
}

TEST_F(InputTest, ButtonsAndTouchesTurnWithTheScreen) {
  m_pScreen->SetOrientation(Screen::kUpsideDown);
  g_Buttons = 0x80 | 0x4;  // right shoulder, right
  Frame();
  EXPECT_EQ(Triggered(), 0x40u | 0x8u);
  Touch(true, 0, 0);
  Frame();
  EXPECT_EQ(Finger()->triggerPosition, Vector2(Real(479), Real(271)));

  m_pScreen->SetOrientation(Screen::kSideways1);
  g_Buttons = 0;
  Frame();
  g_Buttons = 0x80 | 0x4;
  Frame();
  EXPECT_EQ(Triggered(), 0x80u | 0x1u);
}
