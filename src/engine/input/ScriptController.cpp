#include "input/ScriptController.h"

namespace nox {

ScriptController::ScriptController(bool passThrough) : m_bPassThrough(passThrough) {}

void ScriptController::Clear() {
  Controller::Clear();
  m_ScriptCurrent = 0;
  m_ScriptPrevious = 0;
  m_ScriptTriggered = 0;
  m_ScriptReleased = 0;
  m_ScriptHeld = 0;
}

void ScriptController::SetState(const ControllerState& state) {
  m_ScriptState = state;
  UpdateScriptButtons();
}

void ScriptController::SetButtonPressed(uint32_t bits, bool down) {
  if (down) {
    m_ScriptState.m_Buttons |= bits;
  } else {
    m_ScriptState.m_Buttons &= ~bits;
  }
}

void ScriptController::Update(ControllerState& state) {
  // Without pass-through only the scripted group moves: the real buttons are not
  // looked at, and the scripted bits are not counted twice.
  if (m_bPassThrough) {
    const uint32_t real = state.m_Buttons;
    state.m_Buttons = real | m_ScriptState.m_Buttons;
    Controller::Update(state);
    state.m_Buttons = real;
  }
  UpdateScriptButtons();
}

void ScriptController::UpdateScriptButtons() {
  m_ScriptPrevious = m_ScriptCurrent;
  m_ScriptCurrent = MapButtons(m_ScriptState.m_Buttons & m_EnabledMask, m_Map, GetScreenRotation());
  m_ScriptHeld = m_ScriptPrevious & m_ScriptCurrent;
  m_ScriptTriggered = m_ScriptCurrent & ~m_ScriptPrevious;
  m_ScriptReleased = m_ScriptPrevious & ~m_ScriptCurrent;
}

}  // namespace nox
