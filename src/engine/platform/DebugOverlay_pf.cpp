#include "platform/DebugOverlay_pf.h"

#include <GLES/gl.h>

namespace nox {

void DebugOverlay_pf::BeginOverlay() {
  glDisable(GL_DEPTH_TEST);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glColor4x(Real::kOneRaw, Real::kOneRaw, Real::kOneRaw, Real::kOneRaw);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
}

void DebugOverlay_pf::SetColour(const Vector3& colour) {
  glColor4x(colour.x.Raw(), colour.y.Raw(), colour.z.Raw(), Real::kOneRaw);
}

namespace {

void DrawArray(GLenum mode, const Real* xyz, int vertices) {
  glEnableClientState(GL_VERTEX_ARRAY);
  glVertexPointer(3, GL_FIXED, 0, xyz);
  glDrawArrays(mode, 0, vertices);
  glDisableClientState(GL_VERTEX_ARRAY);
}

}  // namespace

void DebugOverlay_pf::DrawLines(const Real* xyz, int vertices) {
  DrawArray(GL_LINES, xyz, vertices);
}

void DebugOverlay_pf::DrawLineLoop(const Real* xyz, int vertices) {
  DrawArray(GL_LINE_LOOP, xyz, vertices);
}

void DebugOverlay_pf::PushMatrices(bool projection) {
  if (projection) {
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
  }
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
}

void DebugOverlay_pf::PopMatrices(bool projection) {
  if (projection) {
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
  }
  glMatrixMode(GL_MODELVIEW);
  glPopMatrix();
}

}  // namespace nox
