#include "platform/ScreenManager_pf.h"

#include <EGL/egl.h>

#include "ostra/DisplayMPI.h"

namespace nox {

ScreenManager_pf::~ScreenManager_pf() {
  DestroyDisplay();
}

bool ScreenManager_pf::CreateDisplay() {
  if (!m_pConfig) m_pConfig = new Hollin::Ostra::OstraOpenGLConfig(2, 14);
  m_ScreenCount = 1;
  return m_pConfig->eglDisplay != EGL_NO_DISPLAY;
}

void ScreenManager_pf::DestroyDisplay() {
  delete m_pConfig;
  m_pConfig = nullptr;
}

void ScreenManager_pf::SetSwapInterval(int interval) {
  if (m_pConfig) eglSwapInterval(m_pConfig->eglDisplay, interval);
}

void ScreenManager_pf::PresentFrame() {
  if (m_pConfig) eglSwapBuffers(m_pConfig->eglDisplay, m_pConfig->eglSurface);
}

void ScreenManager_pf::QueryDeviceSize(uint16_t& width, uint16_t& height) const {
  Hollin::Ostra::CDisplayMPI display;
  const Hollin::Ostra::tDisplayScreenStats* stats = display.GetScreenStats(1);
  width = stats ? stats->width : 480;
  height = stats ? stats->height : 272;
}

}  // namespace nox
