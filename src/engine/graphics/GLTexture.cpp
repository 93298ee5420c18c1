#include "graphics/GLTexture.h"

namespace nox {

uint32_t GLTexture::m_iBoundTexture = 0;

GLTexture::GLTexture(TextureFormat::eTextureFormat format) : m_GLFormat(TextureFormat::GetGLFormat(format)) {}

void GLTexture::Initialize(TextureFormat::eTextureFormat format) {
  m_GLFormat = TextureFormat::GetGLFormat(format);
}

void GLTexture::Allocate() {
  if (m_TextureId != 0) return;
  m_TextureId = GenTexture();
  UnBind();
}

void GLTexture::Free() {
  if (m_TextureId == 0) return;
  m_Width = 0;
  m_Height = 0;
  DeleteTexture(m_TextureId);
  // GL unbinds a deleted texture; and since GL hands the freed id out again, a cache
  // still holding it would skip binding the next texture to get that id.
  if (m_iBoundTexture == m_TextureId) m_iBoundTexture = 0;
  m_TextureId = 0;
}

void GLTexture::Bind() const {
  if (m_TextureId == m_iBoundTexture) return;
  BindTexture(m_TextureId);
  m_iBoundTexture = m_TextureId;
}

void GLTexture::UnBind() {
  BindTexture(0);
  m_iBoundTexture = 0;
}

void GLTexture::Update(uint16_t width, uint16_t height, uint32_t pixelFormat, const void* pixels) {
  Allocate();
  m_Width = width;
  m_Height = height;
  Bind();
  TexImage(m_GLFormat, width, height, PixelFormat::GetGLType(pixelFormat), pixels);
  UnBind();
}

void GLTexture::UpdateSubRegion(uint16_t x, uint16_t y, uint16_t width, uint16_t height, uint32_t pixelFormat,
                                const void* pixels) {
  Bind();
  TexSubImage(x, y, width, height, m_GLFormat, PixelFormat::GetGLType(pixelFormat), pixels);
  UnBind();
}

}  // namespace nox
