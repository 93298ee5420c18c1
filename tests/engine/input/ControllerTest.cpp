// Controllers without a screen or a platform: the turn of directions and shoulders
// for each screen rotation, edges over frames, the enabled mask, button maps, the
// script controller, and the accelerometer's orientation with its hysteresis.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "input/Accelerometer.h"
#include "input/Controller.h"
#include "input/ScriptController.h"
#include "ostra/AccelerometerMPI.h"

namespace {

using nox::Controller;
using nox::ControllerState;
using nox::Real;

const uint32_t kUp = 0x1, kDown = 0x2, kRight = 0x4, kLeft = 0x8;
const uint32_t kA = 0x10, kB = 0x20, kLeftShoulder = 0x40, kRightShoulder = 0x80;
const uint32_t kHome = 0x100, kHint = 0x200, kPause = 0x400, kExtra = 0x800;

class OrientationLog : public nox::EventListener<nox::Accelerometer> {
 public:
  void OnEventOccurred(nox::Accelerometer*, const nox::EventData* data) override {
    if (data->m_Type == nox::Accelerometer::kOrientationChanged) {
      orientations.push_back(data->m_Param);
    } else {
      ++readings;
    }
  }
  std::vector<uint32_t> orientations;
  int readings = 0;
};

nox::AccelerometerState Tilt(Real x, Real y) {
  nox::AccelerometerState s;
  s.x = x;
  s.y = y;
  s.z = Real(1);
  return s;
}

}  // namespace

TEST(ButtonRotation, DirectionsKeepTheirMeaningOnScreenAndShouldersSwapOnlyUpsideDown) {
  // What right, left, up and down on the device give at each rotation.
  const uint32_t expected[4][4] = {
      {kRight, kLeft, kUp, kDown},
      {kUp, kDown, kLeft, kRight},
      {kDown, kUp, kRight, kLeft},
      {kLeft, kRight, kDown, kUp},
  };
  const uint32_t raw[4] = {kRight, kLeft, kUp, kDown};
  for (uint32_t rotation = 0; rotation < 4; ++rotation) {
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(Controller::MapButtons(raw[i], nox::ButtonMapNormal, rotation), expected[rotation][i])
          << "rotation " << rotation << " raw " << raw[i];
    }
    const bool swapped = rotation == 3;
    EXPECT_EQ(Controller::MapButtons(kRightShoulder, nox::ButtonMapNormal, rotation),
              swapped ? kLeftShoulder : kRightShoulder);
    EXPECT_EQ(Controller::MapButtons(kLeftShoulder, nox::ButtonMapNormal, rotation),
              swapped ? kRightShoulder : kLeftShoulder);
    // The rest never turns.
    const uint32_t fixed = kA | kB | kHome | kHint | kPause | kExtra;
    EXPECT_EQ(Controller::MapButtons(fixed, nox::ButtonMapNormal, rotation), fixed);
  }
}

TEST(ButtonMaps, SidewaysTurnsTheDirectionsAndHintGivesPauseAndNullGivesNothing) {
  EXPECT_EQ(Controller::MapButtons(kRight, nox::ButtonMapSideways, 0), kUp);
  EXPECT_EQ(Controller::MapButtons(kUp, nox::ButtonMapSideways, 0), kLeft);
  EXPECT_EQ(Controller::MapButtons(kHint, nox::ButtonMapSideways, 0), kPause);
  EXPECT_EQ(Controller::MapButtons(0xFFFFFFFFu, nox::ButtonMapNull, 0), 0u);
  // Bits no entry names are dropped.
  EXPECT_EQ(Controller::MapButtons(0x1000, nox::ButtonMapNormal, 0), 0u);
}

TEST(ControllerEdges, ATriggerLastsOneFrameThenTheButtonIsHeldUntilReleased) {
  Controller c;
  c.UpdateButtons(kA, false);
  EXPECT_EQ(c.GetTriggeredButtons(0xFFFFFFFF), kA);
  EXPECT_EQ(c.GetHeldButtons(0xFFFFFFFF), 0u);
  c.UpdateButtons(kA | kB, false);
  EXPECT_EQ(c.GetTriggeredButtons(0xFFFFFFFF), kB);
  EXPECT_EQ(c.GetHeldButtons(0xFFFFFFFF), kA);
  EXPECT_EQ(c.GetHeldButtons(kB), 0u);  // the mask of the read
  c.UpdateButtons(kB, false);
  EXPECT_EQ(c.GetReleasedButtons(0xFFFFFFFF), kA);
  EXPECT_EQ(c.GetTriggeredButtons(0xFFFFFFFF), 0u);

  c.SetButtonState((static_cast<unsigned long long>(kA) << 32) | kB);
  EXPECT_EQ(c.GetCurrentButtons(), kB);
  EXPECT_EQ(c.GetTriggeredButtons(0xFFFFFFFF), kB);
  EXPECT_EQ(c.GetReleasedButtons(0xFFFFFFFF), kA);
}

TEST(ControllerEdges, WithTheEnabledMaskAtZeroNothingIsSeenYetThePreviousWordMovesOn) {
  Controller c;
  c.UpdateButtons(kA, true);
  c.SetEnabledMask(0);
  c.UpdateButtons(kA | kB, true);
  EXPECT_EQ(c.GetCurrentButtons(), 0u);
  EXPECT_EQ(c.GetPreviousButtons(), kA);
  EXPECT_EQ(c.GetReleasedButtons(0xFFFFFFFF), kA);
  c.UpdateButtons(kA | kB, true);
  EXPECT_EQ(c.GetPreviousButtons(), 0u);
  EXPECT_EQ(c.GetReleasedButtons(0xFFFFFFFF), 0u);

  // A new map clears the words and lets every bit through again.
  c.SetButtonMap(nox::ButtonMapSideways);
  EXPECT_EQ(c.GetEnabledMask(), 0xFFFFFFFFu);
  EXPECT_EQ(c.GetPreviousButtons(), 0u);
  c.UpdateButtons(kRight, false);
  EXPECT_EQ(c.GetTriggeredButtons(0xFFFFFFFF), kUp);
}

TEST(ScriptControllers, PassThroughMergesRealAndScriptedButtonsAndRestoresTheRealState) {
  nox::ScriptController c(true);
  c.SetButtonPressed(kA, true);
  ControllerState state;
  state.m_Buttons = kB;
  c.Update(state);
  EXPECT_EQ(state.m_Buttons, kB);
  EXPECT_EQ(c.GetCurrentButtons(), kA | kB);
  // The scripted words are ORed in past the mask of the read.
  EXPECT_EQ(c.GetTriggeredButtons(kB), kA | kB);
  c.Update(state);
  EXPECT_EQ(c.GetHeldButtons(0), kA);
  c.SetButtonPressed(kA, false);
  c.Update(state);
  EXPECT_EQ(c.GetReleasedButtons(0), kA);
  EXPECT_EQ(c.GetHeldButtons(0xFFFFFFFF), kB);
}

TEST(ScriptControllers, WithoutPassThroughOnlyScriptedButtonsCountAndSetStateActsAtOnce) {
  nox::ScriptController c(false);
  ControllerState real;
  real.m_Buttons = kB | kHome;
  c.Update(real);
  EXPECT_EQ(c.GetCurrentButtons(), 0u);
  EXPECT_EQ(c.GetTriggeredButtons(0xFFFFFFFF), 0u);

  ControllerState scripted;
  scripted.m_Buttons = kHint;
  c.SetState(scripted);
  EXPECT_EQ(c.GetTriggeredButtons(0), kHint);
  c.Update(real);
  EXPECT_EQ(c.GetTriggeredButtons(0xFFFFFFFF), 0u);
  EXPECT_EQ(c.GetHeldButtons(0xFFFFFFFF), kHint);
}

TEST(AccelerometerOrientation, TurnsPastHalfAGAndHoldsBetweenAsHysteresis) {
  nox::Accelerometer accelerometer;
  OrientationLog log;
  accelerometer.AddEventListener(&log);
  const Real half = Real::FromRaw(0x8000);

  accelerometer.FireAccelerometerEvent(Tilt(Real(0), -half));  // exactly -0.5: nothing
  accelerometer.FireAccelerometerEvent(Tilt(-half, half));
  EXPECT_TRUE(log.orientations.empty());
  EXPECT_EQ(log.readings, 2);

  accelerometer.FireAccelerometerEvent(Tilt(Real(0), half + Real::FromRaw(1)));
  EXPECT_EQ(log.orientations, (std::vector<uint32_t>{3}));
  accelerometer.FireAccelerometerEvent(Tilt(Real(0), Real(0)));  // back to level: stays
  EXPECT_EQ(accelerometer.GetOrientation(), 3u);
  accelerometer.FireAccelerometerEvent(Tilt(Real(0), -half - Real::FromRaw(1)));
  EXPECT_EQ(accelerometer.GetOrientation(), 0u);

  // Several tests pass in one reading: one event each, in the fixed order.
  log.orientations.clear();
  accelerometer.UpdateAccelerometerState(Tilt(Real(1), Real(1)));
  EXPECT_EQ(log.orientations, (std::vector<uint32_t>{3, 2}));
  EXPECT_EQ(accelerometer.GetState().x, Real(1));
  accelerometer.RemoveEventListener(&log);
}

TEST(AccelerometerOrientation, PlatformSamplesArriveInWholeUnitsAndMilliseconds) {
  nox::Accelerometer accelerometer;
  Hollin::Ostra::tAccelerometerData data = {-1, 0, 1, 123456789};
  accelerometer.Notify(Hollin::Ostra::CAccelerometerMessage(data));
  EXPECT_EQ(accelerometer.GetOrientation(), 1u);
  EXPECT_EQ(accelerometer.GetState().x, Real(-1));
  EXPECT_EQ(accelerometer.GetState().z, Real(1));
  EXPECT_EQ(accelerometer.GetState().time, Real(123456 & 0xFFFF));  // whole ms, shifted as a Real is
  // Other messages are not for it.
  accelerometer.Notify(Hollin::Ostra::IEventMessage(Hollin::Ostra::kGroupAccelerometer | 2u));
  EXPECT_EQ(accelerometer.GetOrientation(), 1u);

  accelerometer.SetUpdateInterval(Real::FromRaw(0x4000));  // a quarter second
  EXPECT_EQ(accelerometer.GetUpdateInterval(), Real(1) / Real(4));
}
