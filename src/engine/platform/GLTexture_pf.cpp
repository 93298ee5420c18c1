#include "platform/GLTexture_pf.h"

#include <GLES/gl.h>

#include "graphics/GLTexture.h"

namespace nox {

uint32_t PixelFormat::GetBytesPerPixel(uint32_t format) {
  if (format == kRGBA8888) return 4;
  if (format <= kRGB565) return 2;
  if (format <= kByte8) return 1;
  return 0;
}

uint32_t PixelFormat::GetGLType(uint32_t format) {
  switch (format) {
    case kRGBA5551:
      return GL_UNSIGNED_SHORT_5_5_5_1;
    case kRGB565:
      return GL_UNSIGNED_SHORT_5_6_5;
    case kByte4:
    case kByte5:
    case kByte6:
    case kByte7:
    case kByte8:
      return GL_UNSIGNED_BYTE;
    default:
      return GL_UNSIGNED_SHORT_4_4_4_4;
  }
}

uint32_t TextureFormat::GetGLFormat(uint32_t format) {
  switch (format) {
    case kAlpha:
      return GL_ALPHA;
    case kRGB:
      return GL_RGB;
    case kLuminance:
      return GL_LUMINANCE;
    case kLuminanceAlpha:
      return GL_LUMINANCE_ALPHA;
    default:
      return GL_RGBA;
  }
}

uint32_t GLTexture_pf::GenTexture() {
  GLuint id = 0;
  glGenTextures(1, &id);
  glBindTexture(GL_TEXTURE_2D, id);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
  return id;
}

void GLTexture_pf::DeleteTexture(uint32_t id) {
  GLuint name = id;
  glDeleteTextures(1, &name);
}

void GLTexture_pf::BindTexture(uint32_t id) {
  glBindTexture(GL_TEXTURE_2D, id);
}

void GLTexture_pf::TexImage(uint32_t glFormat, uint16_t width, uint16_t height, uint32_t glType,
                            const void* pixels) {
  // Rows of one- and two-byte texels are packed; the default alignment of 4 would
  // skew any image whose row is not a multiple of four bytes.
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexImage2D(GL_TEXTURE_2D, 0, glFormat, width, height, 0, glFormat, glType, pixels);
}

void GLTexture_pf::TexSubImage(uint16_t x, uint16_t y, uint16_t width, uint16_t height, uint32_t glFormat,
                               uint32_t glType, const void* pixels) {
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexSubImage2D(GL_TEXTURE_2D, 0, x, y, width, height, glFormat, glType, pixels);
}

}  // namespace nox
