// Buttons, touch and tilt, brought in once a frame. Update polls the platform:
// the raw button word goes to the front controller of each slot, and queued touch
// events go to the screen as touch states (Screen::UpdateTouchState). The tilt
// arrives on its own through the accelerometer's events.
//
// Touch: the events of one frame are taken only up to the first change between down
// and up, and the rest waits for the next frame, so a press and a release queued
// together are seen in two frames. A release within kDoubleTapMS of the previous
// release is a double tap (tap count 2). While no events come, a finger that is down
// stays down and its edge flags move on each frame; a release is seen for one frame.
//
// One instance, s_pInput, created seventh at start (after the download manager) and
// destroyed after the screen manager. It owns each slot's stack and default
// controller; controllers pushed by others are borrowed.
#pragma once
#include <cstdint>
#include <list>
#include <vector>

#include "core/EventSource.h"
#include "input/Accelerometer.h"
#include "input/Controller.h"
#include "platform/Input_pf.h"

namespace nox {

class Input : public Input_pf, public EventSource<Input> {
 public:
  enum EventType { kCloseApp = 0 };
  static constexpr uint32_t kDoubleTapMS = 500;

  // Replaces any existing instance; `count` controller slots.
  static void Create(uint8_t count);
  static void Destroy();
  static Input* s_pInput;

  // Polls buttons and touches, then updates the front controller of every slot.
  void Update();
  void ProcessInput();
  void ProcessButtonQueue();
  void ProcessTouchQueue();

  // The front of the slot's stack. The slot is not checked.
  Controller* GetController(uint8_t slot) const { return m_Stacks[slot]->front(); }
  // Moves `controller` to the front, taking it out first if it is already stacked.
  void PushController(uint8_t slot, Controller* controller);
  void PopController(uint8_t slot);
  void RemoveController(uint8_t slot, Controller* controller);
  uint8_t GetControllerCount() const { return m_ControllerCount; }

  // Asks the listeners to end the application (event kCloseApp).
  void CloseApp();

  const ControllerState& GetState() const { return m_State; }
  Accelerometer& GetAccelerometer() { return m_Accelerometer; }

 private:
  explicit Input(uint8_t count);
  ~Input();

  uint8_t m_ControllerCount;
  ControllerState m_State;                        // this frame's raw input
  std::vector<Controller*> m_DefaultControllers;  // owned, one per slot
  std::vector<std::list<Controller*>*> m_Stacks;  // owned lists of borrowed controllers
  Accelerometer m_Accelerometer;
};

}  // namespace nox
