// The seam for GL start-up and shut-down: an empty singleton that the screen manager
// creates once the platform's GL configuration exists and destroys after it is gone.
// It keeps no state of its own; creating and destroying it resets the GL caches the
// engine keeps (the texture bind cache), since a new context has nothing bound.
#pragma once
#include "core/NoCopy.h"

namespace nox {

class OpenGLWrapper : public NoCopy {
 public:
  static void Create();
  static void Destroy();
  static OpenGLWrapper* Get() { return sm_pInstance; }

 private:
  OpenGLWrapper() = default;
  ~OpenGLWrapper() = default;
  static OpenGLWrapper* sm_pInstance;
};

}  // namespace nox
