// The display and its OpenGL ES 1.1 set-up. OstraOpenGLConfig creates the EGL display,
// surface and context (an SDL2 window or a headless pbuffer, as the host chose).
#pragma once
#include <EGL/egl.h>
#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {

struct tDisplayScreenStats {
  U16 height;  // reported first, as the device does
  U16 width;
  U32 pixelFormat;
  U32 pitch;
  const char* description;
};

class CDisplayMPI {
 public:
  const tDisplayScreenStats* GetScreenStats(U32 display) const;
};

class OstraOpenGLConfig {
 public:
  OstraOpenGLConfig(U32 memSize1, U32 memSize2);
  ~OstraOpenGLConfig();
  EGLDisplay eglDisplay;
  EGLConfig eglConfig;
  EGLSurface eglSurface;
  EGLContext eglContext;
};

}  // namespace Ostra
}  // namespace Hollin
