#include "graphics/ScreenManager.h"

#include <GLES/gl.h>

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
}

void ScreenManager::Initialize() {
  CreateDisplay();
  SetSwapInterval(1);
  QueryDeviceSize(m_DeviceWidth, m_DeviceHeight);
}

void ScreenManager::SetActiveScreen(uint32_t) {
  glViewport(0, 0, m_DeviceWidth, m_DeviceHeight);
}

void ScreenManager::SwapBuffers(uint32_t) {
  PresentFrame();
}

}  // namespace nox
