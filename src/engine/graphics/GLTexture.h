// One OpenGL texture object: its id, its GL format and the size of its last upload.
//
// Every texture bind in the engine goes through GLTexture. Bind() skips the GL call
// when the texture is already the one bound last (the static m_iBoundTexture), so a
// glBindTexture issued anywhere else would leave that cache wrong. Textures are always
// sampled nearest and clamped to the edge: sprites are drawn texel for texel.
//
// Life of a texture: no id, then an id with no image (Allocate), then an id with an
// image (Update), then no id again (Free); it can be reused. Textures may only be
// allocated or freed while the screen manager holds the GL context. The object owns
// its GL id; there is no count of video memory, callers decide what stays resident.
#pragma once
#include <cstdint>

#include "platform/GLTexture_pf.h"

namespace nox {

// How the engine stores pixels. Values are fixed; see GetBytesPerPixel and GetGLType.
namespace PixelFormat {
enum ePixelFormat {
  kRGBA8888 = 0,  // 4 bytes in a file, yet uploaded as 4_4_4_4
  kRGBA4444 = 1,
  kRGBA5551 = 2,
  kRGB565 = 3,
  kByte4 = 4,  // 4 to 8: one byte a pixel, uploaded as GL_UNSIGNED_BYTE
  kByte5 = 5,
  kByte6 = 6,
  kByte7 = 7,
  kByte8 = 8,
};
// Bytes a pixel takes in a ".tex" file: 4 for 0, 2 for 1 to 3, 1 for 4 to 8, else 0.
uint32_t GetBytesPerPixel(uint32_t format);
// The GL type of an upload. Anything outside 2..8 (0 and 1 included) is 4_4_4_4.
uint32_t GetGLType(uint32_t format);
}  // namespace PixelFormat

// The GL format of a texture.
namespace TextureFormat {
enum eTextureFormat {
  kAlpha = 0,
  kRGB = 1,
  kRGBA = 2,  // also every value not listed
  kLuminance = 3,
  kLuminanceAlpha = 4,
};
uint32_t GetGLFormat(uint32_t format);
}  // namespace TextureFormat

class GLTexture : public GLTexture_pf {
 public:
  explicit GLTexture(TextureFormat::eTextureFormat format = TextureFormat::kRGBA);
  ~GLTexture() { Free(); }

  // Sets the GL format for later uploads; touches nothing else.
  void Initialize(TextureFormat::eTextureFormat format);
  // Creates the GL object with nearest sampling and edge clamping; nothing if it exists.
  void Allocate();
  // Deletes the GL object and zeroes the size; nothing without an id.
  void Free();

  void Bind() const;
  // Always unbinds, whatever the cache says.
  static void UnBind();

  uint32_t GetTextureId() const { return m_TextureId; }
  uint32_t GetGLFormat() const { return m_GLFormat; }
  uint16_t GetWidth() const { return m_Width; }
  uint16_t GetHeight() const { return m_Height; }

  // Allocates if needed, records the size and uploads the whole image; null `pixels`
  // reserves an image of that size without contents.
  void Update(uint16_t width, uint16_t height, uint32_t pixelFormat, const void* pixels);
  // Replaces a part of the present image; allocates nothing and records no size.
  void UpdateSubRegion(uint16_t x, uint16_t y, uint16_t width, uint16_t height, uint32_t pixelFormat,
                       const void* pixels);

  // The id bound last through Bind, 0 after UnBind. The GL context's start and end
  // reset it, since a new context has nothing bound.
  static uint32_t GetBoundTexture() { return m_iBoundTexture; }
  static void ResetBoundTexture() { m_iBoundTexture = 0; }

 private:
  static uint32_t m_iBoundTexture;

  uint32_t m_TextureId = 0;  // 0 while no GL object exists
  uint32_t m_GLFormat;       // GL_ALPHA, GL_RGB, ...
  uint16_t m_Width = 0;      // pixels, of the last Update
  uint16_t m_Height = 0;
};

}  // namespace nox
