// One plain picture from a ".tex" file, held in memory until it is uploaded.
//
// The file is a TextureFileHeader (pixel format, width, height, packed size) and the
// pixels, stored plain or as one zlib stream. The unpacked size follows from the
// format: 4 bytes a pixel for format 0, 2 for formats 1 to 3, 1 for 4 to 8, none for
// anything else. A file that is short, too large or does not unpack to exactly that
// size is treated as a missing one: the object stays empty and one automation line
// names the file. The object owns its pixels.
#pragma once
#include <cstdint>
#include <string>

#include "core/NoCopy.h"

namespace nox {

class GLTexture;

class TextureFile : public NoCopy {
 public:
  TextureFile() = default;
  ~TextureFile() { Free(); }

  // Frees what was held, then loads `path`. False when the file is missing or malformed.
  bool Load(const std::string& path);
  // Uploads the pixels into `texture` with the file's width, height and pixel format.
  // Nothing is uploaded when the pixels held are fewer than the GL would read for the
  // texture's format.
  void UpdateTexture(GLTexture& texture) const;
  void Free();

  uint32_t GetPixelFormat() const { return m_PixelFormat; }
  uint32_t GetWidth() const { return m_Width; }
  uint32_t GetHeight() const { return m_Height; }
  const uint8_t* GetPixels() const { return m_pPixels; }
  unsigned long GetPixelBytes() const { return m_PixelBytes; }

  // Checks and unpacks a whole ".tex" image already in memory; what Load does after
  // reading the file. Null on success, else what is wrong.
  const char* Parse(const uint8_t* data, unsigned long size);

 private:
  uint32_t m_PixelFormat = 0;    // PixelFormat::ePixelFormat
  uint32_t m_Width = 0;          // pixels
  uint32_t m_Height = 0;         // pixels
  uint8_t* m_pPixels = nullptr;  // owned, new[]; null when the unpacked size is 0
  unsigned long m_PixelBytes = 0;
};

}  // namespace nox
