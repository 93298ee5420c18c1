#include "display/Framebuffer.h"

#include <GLES/gl.h>

#include <cstring>

namespace Hollin {
namespace Ostra {
namespace Framebuffer {
namespace {

EGLDisplay s_Display = EGL_NO_DISPLAY;
EGLSurface s_Surface = EGL_NO_SURFACE;
EGLContext s_Context = EGL_NO_CONTEXT;

}  // namespace

bool IsLive() {
  return s_Display != EGL_NO_DISPLAY;
}

void Attach(EGLDisplay display, EGLSurface surface, EGLContext context) {
  s_Display = display;
  s_Surface = surface;
  s_Context = context;
}

void Detach() {
  s_Display = EGL_NO_DISPLAY;
  s_Surface = EGL_NO_SURFACE;
  s_Context = EGL_NO_CONTEXT;
}

void FinishFrame() {
  if (IsLive() && eglGetCurrentContext() == s_Context) glFinish();
}

bool ReadPixels(U8* rgba) {
  if (!IsLive()) return false;
  // The game may have left its context current elsewhere or bound nothing at all.
  if (eglGetCurrentContext() != s_Context) eglMakeCurrent(s_Display, s_Surface, s_Surface, s_Context);
  glPixelStorei(GL_PACK_ALIGNMENT, 4);
  glReadPixels(0, 0, kWidth, kHeight, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
  // GL's rows run bottom up; flip in place so row 0 is the top of the screen.
  const int stride = kWidth * 4;
  U8 row[kWidth * 4];
  for (int y = 0; y < kHeight / 2; ++y) {
    U8* top = rgba + y * stride;
    U8* bottom = rgba + (kHeight - 1 - y) * stride;
    memcpy(row, top, stride);
    memcpy(top, bottom, stride);
    memcpy(bottom, row, stride);
  }
  return true;
}

}  // namespace Framebuffer
}  // namespace Ostra
}  // namespace Hollin
