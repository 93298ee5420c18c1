#include "platform/Shape_pf.h"

#include <GLES/gl.h>

namespace nox {

void Shape_pf::DrawLineLoop(const Real* pairs, int count) {
  glEnableClientState(GL_VERTEX_ARRAY);
  glVertexPointer(2, GL_FIXED, 0, pairs);
  glDrawArrays(GL_LINE_LOOP, 0, count);
  glDisableClientState(GL_VERTEX_ARRAY);
}

}  // namespace nox
