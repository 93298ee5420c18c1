#include "graphics/GLBuffer.h"

#include <GLES/gl.h>

namespace nox {

GLBuffer::GLBuffer(int32_t kind) : m_Kind(kind) {
  GLuint id = 0;
  glGenBuffers(1, &id);
  m_BufferId = id;
}

GLBuffer::~GLBuffer() {
  if (m_BufferId == 0) return;
  GLuint id = m_BufferId;
  glDeleteBuffers(1, &id);
}

uint32_t GLBuffer::GetGLTarget() const {
  return m_Kind == kElements ? GL_ELEMENT_ARRAY_BUFFER : GL_ARRAY_BUFFER;
}

void GLBuffer::Bind() const {
  glBindBuffer(GetGLTarget(), m_BufferId);
}

void GLBuffer::UnBind() const {
  glBindBuffer(GetGLTarget(), 0);
}

void GLBuffer::Update(uint32_t size, const void* data) {
  Bind();
  glBufferData(GetGLTarget(), size, data, GL_DYNAMIC_DRAW);
}

}  // namespace nox
