// The input services as the game sees them: button transitions, the shared touch queue,
// and accelerometer messages to listeners.
#include <gtest/gtest.h>

#include "input/InputState.h"
#include "ostra/AccelerometerMPI.h"
#include "ostra/ButtonMPI.h"
#include "ostra/EventMPI.h"
#include "ostra/HostConfig.h"
#include "ostra/TouchEventQueue.h"

namespace {

using namespace Hollin::Ostra;

class RecordingListener : public IEventListener {
 public:
  explicit RecordingListener(tEventType group = kAllEvents) : IEventListener(group) {}
  tErrType Notify(const IEventMessage& msg) override {
    types.push_back(msg.GetEventType());
    if (msg.GetEventType() == kAccelerometerDataChanged) {
      last = static_cast<const CAccelerometerMessage&>(msg).GetAccelerometerData();
    }
    if (unregisterOnNotify) CAccelerometerMPI().UnregisterEventListener(this);
    return kNoErr;
  }
  std::vector<tEventType> types;
  tAccelerometerData last = {};
  bool unregisterOnNotify = false;
};

class InputServices : public ::testing::Test {
 protected:
  void SetUp() override {
    Host::HostConfig config;
    config.clock = Host::ClockMode::kVirtual;
    config.quiet = true;
    Host::SetHostConfig(config);
    InputState::Reset();
    CButtonMPI().GetButtonState2();  // the previous read is now "nothing down"
  }
};

TEST_F(InputServices, ButtonTransitionsAreRelativeToThePreviousRead) {
  CButtonMPI buttons;
  InputState::PressButtons(kButtonA | kButtonHome);
  tButtonData2 d = buttons.GetButtonState2();
  EXPECT_EQ(d.buttonState, kButtonA | kButtonHome);
  EXPECT_EQ(d.buttonTransition, kButtonA | kButtonHome);
  d = buttons.GetButtonState2();
  EXPECT_EQ(d.buttonTransition, 0u);
  // A press and release between two reads leaves no trace in either word.
  InputState::PressButtons(kButtonB);
  InputState::ReleaseButtons(kButtonB | kButtonHome);
  d = buttons.GetButtonState2();
  EXPECT_EQ(d.buttonState, kButtonA);
  EXPECT_EQ(d.buttonTransition, kButtonHome);
}

TEST_F(InputServices, EveryQueueObjectSeesTheOneQueueInOrderAndAFullQueueDropsTheOldest) {
  CTouchEventQueue reader;
  CTouchEventQueue writer;
  EXPECT_TRUE(reader.IsEmpty());
  tTouchData t;
  EXPECT_FALSE(reader.Front(t));
  reader.PopFront();  // popping an empty queue is harmless

  const int n = InputState::kTouchQueueCapacity + 10;
  for (int i = 0; i < n; ++i) InputState::PushTouch(InputState::kTouchPressed, static_cast<S16>(i), 0);
  writer.Push(tTouchData{0, 1, 2, 99});
  int expectedX = 11;  // the first 11 events went to make room
  int count = 0;
  for (; reader.Front(t); reader.PopFront(), ++count) {
    if (count + 1 < InputState::kTouchQueueCapacity) {
      EXPECT_EQ(t.x, expectedX++);
    }
  }
  EXPECT_EQ(count, InputState::kTouchQueueCapacity);
  EXPECT_EQ(t.timeMS, 99u);
  EXPECT_EQ(t.touchState, 0);
}

TEST_F(InputServices, TiltChangesAreSentOnceToMatchingListeners) {
  RecordingListener accelerometerOnly(kGroupAccelerometer);
  RecordingListener otherService(0x20000000u);
  RecordingListener everything;
  CAccelerometerMPI accelerometer;
  CEventMPI events;
  ASSERT_EQ(accelerometer.RegisterEventListener(&accelerometerOnly), kNoErr);
  ASSERT_EQ(events.RegisterEventListener(&otherService), kNoErr);
  ASSERT_EQ(events.RegisterEventListener(&everything), kNoErr);

  InputState::SetTilt(1, 0, 0);
  InputState::SetTilt(1, 0, 0);  // no change, no message
  InputState::SetTilt(0, -1, 0);
  EXPECT_EQ(accelerometerOnly.types.size(), 2u);
  EXPECT_EQ(everything.types.size(), 2u);
  EXPECT_TRUE(otherService.types.empty());
  EXPECT_EQ(accelerometerOnly.last.accelY, -1);
  tAccelerometerData now = accelerometer.GetAccelerometerData();
  EXPECT_EQ(now.accelX, 0);
  EXPECT_EQ(now.accelY, -1);

  accelerometer.UnregisterEventListener(&accelerometerOnly);
  events.UnregisterEventListener(&otherService);
  events.UnregisterEventListener(&everything);
  InputState::SetTilt(0, 0, 1);
  EXPECT_EQ(accelerometerOnly.types.size(), 2u);
  EXPECT_EQ(everything.types.size(), 2u);
}

TEST_F(InputServices, AListenerMayUnregisterItselfWhileBeingNotified) {
  RecordingListener once(kGroupAccelerometer);
  RecordingListener stays(kGroupAccelerometer);
  once.unregisterOnNotify = true;
  CAccelerometerMPI accelerometer;
  accelerometer.RegisterEventListener(&once);
  accelerometer.RegisterEventListener(&stays);
  InputState::SetTilt(0, 1, 0);
  InputState::SetTilt(0, 0, 1);
  EXPECT_EQ(once.types.size(), 1u);
  EXPECT_EQ(stays.types.size(), 2u);
  accelerometer.UnregisterEventListener(&stays);
  EXPECT_EQ(accelerometer.SetAccelerometerRate(0), kErr);
  EXPECT_EQ(accelerometer.SetAccelerometerRate(50), kNoErr);
  EXPECT_EQ(accelerometer.GetAccelerometerRate(), 50u);
}

}  // namespace
