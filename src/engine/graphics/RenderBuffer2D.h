// The sprite batch: textured, coloured triangles gathered in one flat store inside the
// object and handed to GL in one glDrawArrays per texture. Writers reserve room for
// their vertices (Reserve flushes first when the store would overflow) and set the
// texture before writing; a change of texture flushes what was gathered. No
// allocation, ever.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"
#include "core/Real.h"

namespace nox {

class GLTexture;

// One vertex as GL reads it: 24 bytes, position, texture coordinates, colour.
struct Vertex2D {
  Real x;  // virtual pixels
  Real y;
  Real z;  // depth, growing into the screen
  Real u;  // 0 to 1.0 across the texture
  Real v;
  uint8_t r;
  uint8_t g;
  uint8_t b;
  uint8_t a;
};
static_assert(sizeof(Vertex2D) == 24, "GL reads vertices with a stride of 24 bytes");

class RenderBuffer2D : public NoCopy {
 public:
  static constexpr int kStoreWords = 2048;                                                   // 32-bit words
  static constexpr int kMaxVertices = kStoreWords * 4 / static_cast<int>(sizeof(Vertex2D));  // 341

  RenderBuffer2D();

  // Flushes first if the texture changes. Null draws untextured.
  void SetTexture(GLTexture* texture);
  GLTexture* GetTexture() const { return m_pTexture; }
  // Draws what was gathered, if anything, and empties the store.
  void Flush();

  // Room for `count` vertices at the write position, which then moves past them.
  // Flushes first when they would not fit; null when `count` exceeds the store.
  Vertex2D* Reserve(int count);
  int GetVertexCount() const { return static_cast<int>(m_pWrite - m_Vertices); }
  int GetFreeVertexCount() const { return kMaxVertices - GetVertexCount(); }
  const Vertex2D* GetVertices() const { return m_Vertices; }

 private:
  Vertex2D m_Vertices[kMaxVertices];
  uint32_t m_Spare[kStoreWords - kMaxVertices * sizeof(Vertex2D) / 4];  // rest of the store
  Vertex2D* m_pWrite;                                                   // next free vertex
  GLTexture* m_pTexture;                                                // not owned
};

}  // namespace nox
