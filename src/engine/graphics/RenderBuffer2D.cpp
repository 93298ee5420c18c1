#include "graphics/RenderBuffer2D.h"

#include <GLES/gl.h>

#include "graphics/GLTexture.h"

namespace nox {

RenderBuffer2D::RenderBuffer2D() : m_Spare(), m_pWrite(m_Vertices), m_pTexture(nullptr) {}

void RenderBuffer2D::SetTexture(GLTexture* texture) {
  if (texture != m_pTexture) Flush();
  m_pTexture = texture;
}

Vertex2D* RenderBuffer2D::Reserve(int count) {
  if (count > kMaxVertices || count < 0) return nullptr;
  if (count > GetFreeVertexCount()) Flush();
  Vertex2D* start = m_pWrite;
  m_pWrite += count;
  return start;
}

void RenderBuffer2D::Flush() {
  if (m_pWrite == m_Vertices) return;
  if (m_pTexture) m_pTexture->Bind();
  // The arrays are read from this object's memory, never from a buffer object left
  // bound by someone else.
  glBindBuffer(GL_ARRAY_BUFFER, 0);
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  glEnableClientState(GL_COLOR_ARRAY);
  glEnable(GL_TEXTURE_2D);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  const GLsizei stride = sizeof(Vertex2D);
  glVertexPointer(3, GL_FIXED, stride, &m_Vertices[0].x);
  glTexCoordPointer(2, GL_FIXED, stride, &m_Vertices[0].u);
  glColorPointer(4, GL_UNSIGNED_BYTE, stride, &m_Vertices[0].r);
  glDrawArrays(GL_TRIANGLES, 0, GetVertexCount());
  glDisable(GL_BLEND);
  glDisable(GL_TEXTURE_2D);
  glDisableClientState(GL_COLOR_ARRAY);
  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
  glDisableClientState(GL_VERTEX_ARRAY);
  glColor4x(0x10000, 0x10000, 0x10000, 0x10000);
  m_pWrite = m_Vertices;
}

}  // namespace nox
