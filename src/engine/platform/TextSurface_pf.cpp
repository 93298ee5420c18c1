#include "platform/TextSurface_pf.h"

#include <GLES/gl.h>

namespace nox {

void TextSurface_pf::BeginText(const short* positions, const Real* coords) {
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  glVertexPointer(2, GL_SHORT, 0, positions);
  glTexCoordPointer(2, GL_FIXED, 0, coords);
  glEnable(GL_TEXTURE_2D);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void TextSurface_pf::EndText() {
  glDisable(GL_TEXTURE_2D);
  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
  glDisableClientState(GL_VERTEX_ARRAY);
}

void TextSurface_pf::PushTranslation(Real x, Real y, Real z) {
  glPushMatrix();
  glTranslatex(x.Raw(), y.Raw(), z.Raw());
}

void TextSurface_pf::Translate(Real x, Real y) {
  glTranslatex(x.Raw(), y.Raw(), 0);
}

void TextSurface_pf::PopTranslation() {
  glPopMatrix();
}

void TextSurface_pf::SetColour(const Vector3& colour, Real alpha) {
  glColor4x(colour.x.Raw(), colour.y.Raw(), colour.z.Raw(), alpha.Raw());
}

void TextSurface_pf::DrawTriangles(unsigned long firstVertex, unsigned long vertices) {
  glDrawArrays(GL_TRIANGLES, static_cast<GLint>(firstVertex), static_cast<GLsizei>(vertices));
}

}  // namespace nox
