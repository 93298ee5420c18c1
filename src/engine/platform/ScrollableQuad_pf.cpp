#include "platform/ScrollableQuad_pf.h"

#include <GLES/gl.h>

#include "graphics/GLBuffer.h"

namespace nox {

void ScrollableQuad_pf::SetMasterSampling() {
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
}

void ScrollableQuad_pf::DrawTiles(Real x, Real y, Real z, const GLBuffer& vertices, const GLBuffer& coords,
                                  const GLBuffer& indices, uint16_t indexCount) {
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  glEnable(GL_TEXTURE_2D);
  glColor4x(Real::kOneRaw, Real::kOneRaw, Real::kOneRaw, Real::kOneRaw);
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
  glLoadIdentity();
  glTranslatex(x.Raw(), y.Raw(), z.Raw());
  coords.Bind();
  glTexCoordPointer(2, GL_FIXED, 0, nullptr);
  vertices.Bind();
  glVertexPointer(2, GL_SHORT, 0, nullptr);
  indices.Bind();
  glDrawElements(GL_TRIANGLES, indexCount, GL_UNSIGNED_SHORT, nullptr);
  indices.UnBind();
  vertices.UnBind();
  glPopMatrix();
  glDisable(GL_TEXTURE_2D);
  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
  glDisableClientState(GL_VERTEX_ARRAY);
}

}  // namespace nox
