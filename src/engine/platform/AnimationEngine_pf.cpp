#include "platform/AnimationEngine_pf.h"

#include <GLES/gl.h>

namespace nox {

void AnimationEngine_pf::BeginDraw(bool depthTest, bool alphaTest) {
  if (depthTest) {
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_DEPTH_TEST);
  } else {
    glDisable(GL_DEPTH_TEST);
  }
  if (alphaTest) {
    glEnable(GL_ALPHA_TEST);
    glAlphaFuncx(GL_GREATER, 655);  // a hundredth, as a raw Real
  } else {
    glDisable(GL_ALPHA_TEST);
  }
  glColor4x(0x10000, 0x10000, 0x10000, 0x10000);
  glDisable(GL_CULL_FACE);
}

void AnimationEngine_pf::EndDraw() {
  glDisable(GL_DEPTH_TEST);
  glDisable(GL_ALPHA_TEST);
}

}  // namespace nox
