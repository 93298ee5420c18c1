#include "platform/Input_pf.h"

#include "core/GameHost.h"
#include "graphics/ScreenManager.h"
#include "input/Input.h"

namespace nox {

Input_pf* Input_pf::sm_pInstance = nullptr;
Input_pf::ButtonSource Input_pf::sm_ButtonSource = nullptr;

Input_pf::Input_pf() {
  // No release yet: the first release must not count as the second of a double tap.
  const uint32_t now = GameHost::s_pGameHost ? GameHost::s_pGameHost->GetFrameMS() : 0;
  m_LastReleaseMS = now - Input::kDoubleTapMS;
  sm_pInstance = this;
}

Input_pf::~Input_pf() {
  if (sm_pInstance == this) sm_pInstance = nullptr;
}

uint32_t Input_pf::ReadButtons() const {
  if (sm_ButtonSource) return sm_ButtonSource();
  return m_ButtonMPI.GetButtonState2().buttonState;
}

void Input_pf::Suspend() {}

void Input_pf::Resume() {
  if (sm_pInstance) sm_pInstance->DiscardTouches();
}

void Input_pf::DiscardTouches() {
  Screen* screen = ScreenManager::Get();
  Hollin::Ostra::tTouchData event;
  while (m_TouchQueue.Front(event)) {
    m_TouchQueue.PopFront();
    if (m_TouchData.down && event.touchState == 0) {
      m_TouchData.down = false;
      if (screen) screen->UpdateTouchState(m_TouchData);
    }
  }
}

}  // namespace nox
