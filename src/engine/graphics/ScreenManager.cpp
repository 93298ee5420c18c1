#include "graphics/ScreenManager.h"

#include <GLES/gl.h>

#include <new>

#include "platform/OpenGLWrapper.h"

namespace nox {

ScreenManager* ScreenManager::sm_pInstance = nullptr;

void ScreenManager::Create() {
  if (sm_pInstance) return;
  sm_pInstance = new ScreenManager();
  sm_pInstance->Initialize();
}

void ScreenManager::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
  OpenGLWrapper::Destroy();
}

void ScreenManager::Initialize() {
  CreateDisplay();
  OpenGLWrapper::Create();
  SetSwapInterval(1);
  m_ScreenCount = 1;
  uint16_t width = 0;
  uint16_t height = 0;
  QueryDeviceSize(width, height);
  // The screen is built in place, as the one entry of the screen array.
  m_Screens[0].~Screen();
  new (&m_Screens[0]) Screen(0, width, height, width, height);
}

void ScreenManager::SetActiveScreen(uint32_t) {
  glViewport(0, 0, GetDeviceWidth(), GetDeviceHeight());
}

void ScreenManager::SwapBuffers(uint32_t) {
  PresentFrame();
}

bool ScreenManager::GlobalToScreen(const Vector2& point, Screen*& screen, Vector2& screenPoint) {
  screen = &m_Screens[0];
  screenPoint = point;
  return true;
}

}  // namespace nox
