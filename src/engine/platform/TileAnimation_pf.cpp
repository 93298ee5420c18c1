#include "platform/TileAnimation_pf.h"

#include <GLES/gl.h>

namespace nox {

void TileAnimation_pf::PushSpriteTransform(Real x, Real y, Real z, Real sx, Real sy, Real xRot, Real yRot,
                                           Real zRot, Real ax, Real ay, bool billboard) {
  const GLfixed one = 0x10000;
  glPushMatrix();
  glTranslatex(x.Raw(), y.Raw(), z.Raw());
  glScalex(sx.Raw(), sy.Raw(), one);
  if (billboard) {
    glRotatex(yRot.Raw(), 0, one, 0);
    glRotatex(xRot.Raw(), one, 0, 0);
  } else {
    glRotatex(zRot.Raw(), 0, 0, -one);
    glRotatex(xRot.Raw(), one, 0, 0);
    glRotatex(yRot.Raw(), 0, one, 0);
  }
  glTranslatex((-ax).Raw(), (-ay).Raw(), 0);
}

void TileAnimation_pf::PopSpriteTransform() {
  glPopMatrix();
}

void TileAnimation_pf::BeginTiles() {
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  glEnable(GL_TEXTURE_2D);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void TileAnimation_pf::SetTileColor(Real r, Real g, Real b, Real a) {
  glColor4x(r.Raw(), g.Raw(), b.Raw(), a.Raw());
}

void TileAnimation_pf::TranslateDepth(Real z) {
  glTranslatex(0, 0, z.Raw());
}

void TileAnimation_pf::DrawTileTriangles(const int16_t* positions, const Real* coords, int vertices) {
  glVertexPointer(2, GL_SHORT, 0, positions);
  glTexCoordPointer(2, GL_FIXED, 0, coords);
  glDrawArrays(GL_TRIANGLES, 0, vertices);
}

void TileAnimation_pf::EndTiles() {
  glVertexPointer(2, GL_SHORT, 0, nullptr);
  glTexCoordPointer(2, GL_FIXED, 0, nullptr);
  glDisableClientState(GL_VERTEX_ARRAY);
  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
  glDisable(GL_TEXTURE_2D);
  glDisable(GL_BLEND);
  glColor4x(0x10000, 0x10000, 0x10000, 0x10000);
}

}  // namespace nox
