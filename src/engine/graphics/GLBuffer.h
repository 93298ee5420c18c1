// One GL buffer object holding vertex data or, for kind kElements, element indices.
// The object owns its GL id from construction to destruction; like textures, buffers
// exist only while the screen manager holds the GL context.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"

namespace nox {

class GLBuffer : public NoCopy {
 public:
  enum Kind { kVertices = 0, kElements = 2 };

  explicit GLBuffer(int32_t kind = kVertices);
  ~GLBuffer();

  // GL_ELEMENT_ARRAY_BUFFER for kind 2, GL_ARRAY_BUFFER for any other.
  uint32_t GetGLTarget() const;
  uint32_t GetBufferId() const { return m_BufferId; }
  void Bind() const;
  void UnBind() const;
  // Binds and replaces the whole store (GL_DYNAMIC_DRAW); the buffer stays bound.
  void Update(uint32_t size, const void* data);

 private:
  uint32_t m_BufferId = 0;
  int32_t m_Kind;
};

}  // namespace nox
