#include "platform/VirtualGamepadOverlay_pf.h"

#include <GLES/gl.h>

namespace noxfw {

void VirtualGamepadOverlay_pf::DrawOutline(const nox::Real* pairs, int count, bool pressed) {
  glDisable(GL_TEXTURE_2D);
  glDisable(GL_DEPTH_TEST);
  glColor4x(0x10000, 0x10000, pressed ? 0 : 0x10000, pressed ? 0x10000 : 0x8000);
  glEnableClientState(GL_VERTEX_ARRAY);
  glVertexPointer(2, GL_FIXED, 0, pairs);
  glDrawArrays(GL_LINE_LOOP, 0, count);
  glDisableClientState(GL_VERTEX_ARRAY);
  glColor4x(0x10000, 0x10000, 0x10000, 0x10000);
  glEnable(GL_DEPTH_TEST);
}

}  // namespace noxfw
