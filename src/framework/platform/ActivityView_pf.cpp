#include "platform/ActivityView_pf.h"

#include <GLES/gl.h>

namespace noxfw {

void ActivityView_pf::PushModelView() {
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
}

void ActivityView_pf::PopModelView() {
  glMatrixMode(GL_MODELVIEW);
  glPopMatrix();
}

}  // namespace noxfw
