#include "menu/ScreenTransition.h"

#include "core/Debug.h"

namespace noxfw {

NOX_RTTI_DEFINE(ScreenTransition, nox::Window);

ScreenTransition* ScreenTransition::sm_pInstance = nullptr;

void ScreenTransition::Create(const char* modelFile) {
  if (sm_pInstance) return;
  sm_pInstance = new ScreenTransition();
  sm_pInstance->Initialize(modelFile);
}

void ScreenTransition::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

ScreenTransition::ScreenTransition() {}

ScreenTransition::~ScreenTransition() {}

void ScreenTransition::FadeIn(unsigned short ms) {
  m_bFadeMode = true;
  m_DelayCount = 0;
  m_Fader.FadeIn(ms);
}

void ScreenTransition::FadeOut(unsigned short ms) {
  m_bFadeMode = true;
  m_DelayCount = 0;
  m_Fader.FadeOut(ms);
}

bool ScreenTransition::Initialize(const char* modelName) {
  // The fade needs nothing more; the model would only add the captured picture.
  if (!m_bModelLogged) {
    m_bModelLogged = true;
    nox::AutomationPrintf("ScreenTransition: no model (%s), fading only",
                          modelName && modelName[0] ? modelName : "none");
  }
  return false;
}

void ScreenTransition::Play(const char* animation, nox::Real speed) {
  // Without a model the animation is over before it began: the transition stays in
  // fade mode with the fader as it is.
  m_bFadeMode = true;
}

bool ScreenTransition::IsTransitionComplete() const {
  return m_bFadeMode ? m_Fader.IsFadeComplete() : true;
}

bool ScreenTransition::IsFadedOrTransitioning() const {
  if (!m_bFadeMode) return false;
  return !m_Fader.IsFadeComplete() || m_Fader.GetLevel() != nox::Real();
}

void ScreenTransition::Update(unsigned long ms) {
  if (IsTransitionComplete()) {
    // The fader still follows the screen's orientation.
    m_Fader.Update(ms);
    return;
  }
  if (m_DelayCount < m_Delay) {
    ++m_DelayCount;
    return;
  }
  m_Fader.Update(ms);
}

void ScreenTransition::Draw() {
  m_Fader.Draw();
}

void ScreenTransition::SetScreen(nox::Screen* screen) {
  nox::Window::SetScreen(screen);
  m_Fader.SetScreen(screen);
}

}  // namespace noxfw
