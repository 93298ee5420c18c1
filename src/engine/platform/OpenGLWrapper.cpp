#include "platform/OpenGLWrapper.h"

#include "graphics/GLTexture.h"

namespace nox {

OpenGLWrapper* OpenGLWrapper::sm_pInstance = nullptr;

void OpenGLWrapper::Create() {
  delete sm_pInstance;
  sm_pInstance = new OpenGLWrapper();
  GLTexture::ResetBoundTexture();
}

void OpenGLWrapper::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
  GLTexture::ResetBoundTexture();
}

}  // namespace nox
