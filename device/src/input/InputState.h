// The host's side of the input services: what the window or the input script feeds in
// between frames, and what CButtonMPI, CTouchEventQueue and CAccelerometerMPI hand to
// the game. One state for the whole process, as on the device.
#pragma once
#include "ostra/AccelerometerMPI.h"
#include "ostra/TouchEventQueue.h"

namespace Hollin {
namespace Ostra {
namespace InputState {

const U16 kTouchPressed = 100;  // pressure of a touch that is down
const int kTouchQueueCapacity = 256;

// Buttons (bits of ButtonMPI.h) held down now.
void PressButtons(U32 bits);
void ReleaseButtons(U32 bits);
U32 GetButtons();

// Appends a touch event stamped with the kernel time. A full queue drops its oldest event.
void PushTouch(U16 state, S16 x, S16 y);

// Sets the tilt; a change is sent to the accelerometer's and CEventMPI's listeners as a
// kAccelerometerDataChanged message. The resting reading is (0, 0, 1).
void SetTilt(S32 x, S32 y, S32 z);

// Back to rest: no buttons, empty queue, level tilt. Listeners stay registered.
void Reset();

}  // namespace InputState
}  // namespace Ostra
}  // namespace Hollin
