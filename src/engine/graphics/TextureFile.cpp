#include "graphics/TextureFile.h"

#include <zlib.h>

#include <cstring>

#include "core/Debug.h"
#include "core/Loader.h"
#include "graphics/GLTexture.h"
#include "graphics/TileFileFormat.h"

namespace nox {

void TextureFile::Free() {
  delete[] m_pPixels;
  m_pPixels = nullptr;
  m_PixelBytes = 0;
  m_PixelFormat = 0;
  m_Width = 0;
  m_Height = 0;
}

const char* TextureFile::Parse(const uint8_t* data, unsigned long size) {
  Free();
  if (!data || size < sizeof(TextureFileHeader)) return "shorter than its header";
  TextureFileHeader header;
  memcpy(&header, data, sizeof(header));
  if (header.width > kMaxTextureSide || header.height > kMaxTextureSide) return "larger than a texture";
  const unsigned long unpacked =
      static_cast<unsigned long>(header.width) * header.height * TexBytesPerPixel(header.pixelFormat);
  const unsigned long available = size - sizeof(TextureFileHeader);
  const uint8_t* body = data + sizeof(TextureFileHeader);
  if (header.packedSize == 0) {
    if (unpacked > available) return "pixels run past the end";
  } else if (header.packedSize > available) {
    return "packed pixels run past the end";
  }

  uint8_t* pixels = nullptr;
  if (unpacked > 0) {
    pixels = new uint8_t[unpacked];
    if (header.packedSize == 0) {
      memcpy(pixels, body, unpacked);
    } else {
      uLongf got = unpacked;
      if (uncompress(pixels, &got, body, header.packedSize) != Z_OK || got != unpacked) {
        delete[] pixels;
        return "packed pixels do not unpack to the picture's size";
      }
    }
  }
  m_PixelFormat = header.pixelFormat;
  m_Width = header.width;
  m_Height = header.height;
  m_pPixels = pixels;
  m_PixelBytes = unpacked;
  return nullptr;
}

bool TextureFile::Load(const std::string& path) {
  Free();
  unsigned long size = 0;
  uint8_t* data = Loader::LoadFile(path, &size);
  if (!data) return false;
  const char* problem = Parse(data, size);
  Loader::UnloadFile(data);
  if (problem) {
    AutomationPrintf("Malformed file: %s: %s", path.c_str(), problem);
    return false;
  }
  return true;
}

void TextureFile::UpdateTexture(GLTexture& texture) const {
  // The texture's format as a TextureFormat value, to know what the GL will read.
  int textureFormat = TextureFormat::kRGBA;
  for (int f = TextureFormat::kAlpha; f <= TextureFormat::kLuminanceAlpha; ++f) {
    if (TextureFormat::GetGLFormat(static_cast<uint32_t>(f)) == texture.GetGLFormat()) textureFormat = f;
  }
  if (m_pPixels &&
      UploadBytes(m_Width, m_Height, textureFormat, static_cast<int>(m_PixelFormat)) > m_PixelBytes)
    return;
  texture.Update(static_cast<uint16_t>(m_Width), static_cast<uint16_t>(m_Height), m_PixelFormat, m_pPixels);
}

}  // namespace nox
