// OstraOpenGLConfig: an OpenGL ES 1.1 context on a 480x272 pbuffer. The EGL display is
// Mesa's surfaceless platform when it is there (no X server or GPU needed, and it uses a
// render node when one exists), otherwise EGL's default display. The game's own
// eglSwapBuffers on the pbuffer is a no-op that ends the frame; the host takes the
// picture from there (see Framebuffer.h). The two arguments are the device's memory
// sizes and mean nothing here.
#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <cstdio>
#include <string>

#include "display/Framebuffer.h"
#include "ostra/DebugOut.h"
#include "ostra/DisplayMPI.h"

namespace Hollin {
namespace Ostra {
namespace {

void Fail(const char* what) {
  std::string line = std::string("ostra: display: ") + what + " failed (EGL error 0x";
  char hex[16];
  snprintf(hex, sizeof hex, "%04x", eglGetError());
  line += hex;
  line += ")\n";
  PlatformDebugOutput(line.c_str());
}

EGLDisplay OpenDisplay() {
  auto getPlatformDisplay =
      reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
  const char* extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
  if (getPlatformDisplay && extensions &&
      std::string(extensions).find("EGL_MESA_platform_surfaceless") != std::string::npos) {
    EGLDisplay display = getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr)) return display;
  }
  EGLDisplay display = eglGetDisplay(EGL_DEFAULT_DISPLAY);
  if (display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr)) return display;
  return EGL_NO_DISPLAY;
}

}  // namespace

OstraOpenGLConfig::OstraOpenGLConfig(U32 memSize1, U32 memSize2)
    : eglDisplay(EGL_NO_DISPLAY), eglConfig(nullptr), eglSurface(EGL_NO_SURFACE), eglContext(EGL_NO_CONTEXT) {
  EGLDisplay display = OpenDisplay();
  if (display == EGL_NO_DISPLAY) {
    Fail("eglInitialize");
    return;
  }
  const EGLint configAttribs[] = {EGL_SURFACE_TYPE,
                                  EGL_PBUFFER_BIT,
                                  EGL_RENDERABLE_TYPE,
                                  EGL_OPENGL_ES_BIT,
                                  EGL_RED_SIZE,
                                  8,
                                  EGL_GREEN_SIZE,
                                  8,
                                  EGL_BLUE_SIZE,
                                  8,
                                  EGL_DEPTH_SIZE,
                                  16,
                                  EGL_NONE};
  EGLint count = 0;
  if (!eglChooseConfig(display, configAttribs, &eglConfig, 1, &count) || count < 1) {
    Fail("eglChooseConfig");
    eglTerminate(display);
    return;
  }
  const EGLint surfaceAttribs[] = {EGL_WIDTH, Framebuffer::kWidth, EGL_HEIGHT, Framebuffer::kHeight,
                                   EGL_NONE};
  eglSurface = eglCreatePbufferSurface(display, eglConfig, surfaceAttribs);
  eglBindAPI(EGL_OPENGL_ES_API);
  const EGLint contextAttribs[] = {EGL_CONTEXT_CLIENT_VERSION, 1, EGL_NONE};
  eglContext = eglCreateContext(display, eglConfig, EGL_NO_CONTEXT, contextAttribs);
  if (eglSurface == EGL_NO_SURFACE || eglContext == EGL_NO_CONTEXT ||
      !eglMakeCurrent(display, eglSurface, eglSurface, eglContext)) {
    Fail("creating the GL ES 1.1 surface and context");
    if (eglContext != EGL_NO_CONTEXT) eglDestroyContext(display, eglContext);
    if (eglSurface != EGL_NO_SURFACE) eglDestroySurface(display, eglSurface);
    eglContext = EGL_NO_CONTEXT;
    eglSurface = EGL_NO_SURFACE;
    eglTerminate(display);
    return;
  }
  eglDisplay = display;
  Framebuffer::Attach(eglDisplay, eglSurface, eglContext);
}

OstraOpenGLConfig::~OstraOpenGLConfig() {
  if (eglDisplay == EGL_NO_DISPLAY) return;
  Framebuffer::Detach();
  eglMakeCurrent(eglDisplay, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  eglDestroyContext(eglDisplay, eglContext);
  eglDestroySurface(eglDisplay, eglSurface);
  // The display stays initialised: terminating it unloads the driver, and a second
  // OstraOpenGLConfig in the same process simply reuses it.
  eglReleaseThread();
}

}  // namespace Ostra
}  // namespace Hollin
