#include "input/Input.h"

#include <algorithm>

#include "core/GameHost.h"
#include "core/WrapArith.h"
#include "graphics/ScreenManager.h"

namespace nox {

Input* Input::s_pInput = nullptr;

namespace {

// Normalized coordinate of a device pixel's centre: -1.0 to 1.0 across `size` pixels.
Real NormalizeX(int32_t x, uint32_t width) {
  const int32_t half = WrapShiftLeft(static_cast<int32_t>(width / 2), 16);
  return Real::FromRaw(WrapSub(WrapShiftLeft(x, 16) | 0x8000, half)) / Real::FromRaw(half);
}

// The same with y up.
Real NormalizeY(int32_t y, uint32_t height) {
  const int32_t half = WrapShiftLeft(static_cast<int32_t>(height / 2), 16);
  const int32_t raw = WrapSub(WrapShiftLeft(static_cast<int32_t>(height / 2) - y, 16), 0x8000);
  return Real::FromRaw(raw) / Real::FromRaw(half);
}

}  // namespace

void Input::Create(uint8_t count) {
  delete s_pInput;
  s_pInput = nullptr;
  s_pInput = new Input(count);
}

void Input::Destroy() {
  delete s_pInput;
  s_pInput = nullptr;
}

Input::Input(uint8_t count) : m_ControllerCount(count) {
  ProcessInput();
  m_DefaultControllers.reserve(count);
  m_Stacks.reserve(count);
  for (uint8_t i = 0; i < count; ++i) {
    Controller* controller = new Controller();
    m_DefaultControllers.push_back(controller);
    m_Stacks.push_back(new std::list<Controller*>(1, controller));
  }
  ProcessInput();
  // A button already down counts as held from before the start: two updates with the
  // same word leave it current without a trigger.
  for (Controller* controller : m_DefaultControllers) {
    controller->Update(m_State);
    controller->Update(m_State);
  }
}

Input::~Input() {
  for (std::list<Controller*>* stack : m_Stacks) delete stack;
  for (Controller* controller : m_DefaultControllers) delete controller;
}

void Input::Update() {
  ProcessInput();
  for (uint8_t i = 0; i < m_ControllerCount; ++i) GetController(i)->Update(m_State);
}

void Input::ProcessInput() {
  ProcessButtonQueue();
  ProcessTouchQueue();
}

void Input::ProcessButtonQueue() {
  m_State.m_Buttons = ReadButtons();
}

void Input::ProcessTouchQueue() {
  Screen* screen = ScreenManager::Get();
  if (!screen) return;

  if (IsTouchQueueEmpty()) {
    // No news from the glass: a finger that is down stays down and its edge flags
    // move on; a release has been seen for its frame and goes.
    const Screen::MultiTouchState* state = screen->FindTouchState(m_TouchData.id);
    if (!state) return;
    if (state->released) {
      screen->ResetTouchState();
    } else if (state->triggered || state->down) {
      screen->UpdateTouchState(m_TouchData);
    }
    return;
  }

  const uint32_t width = screen->GetDeviceWidth();
  const uint32_t height = screen->GetDeviceHeight();
  const uint32_t frameMS = GameHost::s_pGameHost ? GameHost::s_pGameHost->GetFrameMS() : 0;
  const bool wasDown = m_TouchData.down;
  Hollin::Ostra::tTouchData event;
  while (FrontTouch(event)) {
    m_TouchData.deviceX = event.x;
    m_TouchData.deviceY = event.y;
    m_TouchData.x = NormalizeX(event.x, width);
    m_TouchData.y = NormalizeY(event.y, height);
    m_TouchData.down = event.touchState != 0;
    m_TouchData.tapCount = 1;
    m_TouchData.pressure = Real(static_cast<int>(event.touchState)) / Real(100);
    if (!m_TouchData.down) {
      if (frameMS - m_LastReleaseMS < kDoubleTapMS) m_TouchData.tapCount = 2;
      m_LastReleaseMS = frameMS;
    }
    screen->UpdateTouchState(m_TouchData);
    PopTouch();
    // The first change between down and up ends the frame's events, so that a press
    // and a release never fall in one frame.
    if (m_TouchData.down != wasDown) break;
  }
}

void Input::PushController(uint8_t slot, Controller* controller) {
  std::list<Controller*>* stack = m_Stacks[slot];
  stack->remove(controller);
  stack->push_front(controller);
}

void Input::PopController(uint8_t slot) {
  std::list<Controller*>* stack = m_Stacks[slot];
  if (!stack->empty()) stack->pop_front();
}

void Input::RemoveController(uint8_t slot, Controller* controller) {
  m_Stacks[slot]->remove(controller);
}

void Input::CloseApp() {
  EventData data;
  data.m_Type = kCloseApp;
  FireEvent(this, &data);
}

}  // namespace nox
