#include "platform/RectAnimation_pf.h"

#include <GLES/gl.h>

namespace nox {

void RectAnimation_pf::DrawBox(const Real* vertices, int count, bool outline, const Real* rgba,
                               Real lineWidth) {
  glVertexPointer(3, GL_FIXED, 0, vertices);
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnable(GL_BLEND);
  glColor4x(rgba[0].Raw(), rgba[1].Raw(), rgba[2].Raw(), rgba[3].Raw());
  if (outline) {
    glLineWidthx(lineWidth.Raw());
    glDrawArrays(GL_LINE_STRIP, 0, count);
  } else {
    glDrawArrays(GL_TRIANGLES, 0, count);
  }
}

}  // namespace nox
