// Device half of the screen manager: the array of one Screen, the platform's GL
// configuration (EGL display, surface and context, owned here), the screen count, and
// the few EGL calls made on them.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"
#include "graphics/Screen.h"

namespace Hollin {
namespace Ostra {
class OstraOpenGLConfig;
}
}  // namespace Hollin

namespace nox {

class ScreenManager_pf : public NoCopy {
 protected:
  ScreenManager_pf() = default;
  ~ScreenManager_pf();
  // Creates the GL configuration; false when the platform could not make one.
  bool CreateDisplay();
  void DestroyDisplay();
  void SetSwapInterval(int interval);
  void PresentFrame();
  // Device size in pixels, as the display reports it (480 by 272 when it cannot).
  void QueryDeviceSize(uint16_t& width, uint16_t& height) const;

  Screen m_Screens[1];
  Hollin::Ostra::OstraOpenGLConfig* m_pConfig = nullptr;  // owned
  uint32_t m_ScreenCount = 0;
};

}  // namespace nox
