#include "platform/Fader_pf.h"

#include <GLES/gl.h>

namespace nox {

void Fader_pf::DrawQuad(const int16_t* vertices, const Vector3& colour, Real level) {
  glDisable(GL_DEPTH_TEST);
  glDisable(GL_TEXTURE_2D);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glEnableClientState(GL_VERTEX_ARRAY);
  glVertexPointer(3, GL_SHORT, 0, vertices);
  glColor4x(colour.x.Raw(), colour.y.Raw(), colour.z.Raw(), level.Raw());
  glDrawArrays(GL_TRIANGLES, 0, 6);
  glDisableClientState(GL_VERTEX_ARRAY);
}

}  // namespace nox
