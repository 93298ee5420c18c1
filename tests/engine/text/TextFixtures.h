// Hand-made fonts for the text tests: glyph tables built byte by byte, written into a
// title's texture directory, and a headless GL context for the tests that upload or
// draw.
#pragma once
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "../files/TestFiles.h"
#include "core/PathRegistry.h"
#include "graphics/Font.h"
#include "graphics/ScreenManager.h"

namespace texttest {

using testfiles::Bytes;

struct GlyphSpec {
  uint16_t code;
  uint16_t cellWidth;
  uint16_t advance;
  uint16_t spacing;
  int32_t left;  // raw Q16.16 texture coordinates
  int32_t right;
  int32_t top;
  int32_t bottom;
};

inline void Put16(Bytes& out, uint32_t v) {
  out.push_back(static_cast<unsigned char>(v & 0xFF));
  out.push_back(static_cast<unsigned char>((v >> 8) & 0xFF));
}

inline void Put32(Bytes& out, uint32_t v) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<unsigned char>((v >> (8 * i)) & 0xFF));
}

inline Bytes MakeFdata(uint16_t lineHeight, uint16_t width, uint16_t height,
                       const std::vector<GlyphSpec>& glyphs) {
  Bytes out;
  Put16(out, static_cast<uint32_t>(glyphs.size()));
  Put16(out, lineHeight);
  Put16(out, width);
  Put16(out, height);
  for (const GlyphSpec& g : glyphs) {
    Put32(out, static_cast<uint32_t>(g.left));
    Put32(out, static_cast<uint32_t>(g.right));
    Put32(out, static_cast<uint32_t>(g.top));
    Put32(out, static_cast<uint32_t>(g.bottom));
    Put16(out, g.code);
    Put16(out, g.cellWidth);
    Put16(out, g.advance);
    Put16(out, g.spacing);
  }
  return out;
}

// A font 10 pixels high on a 64 by 16 texture: the blank (advance 3), "A" (cell 5,
// advance 6, spacing 1) and "B" (cell 4, advance 5, spacing 2). "B" appears twice; the
// first record has advance 9 and must lose to the second.
inline std::vector<GlyphSpec> SmallGlyphs() {
  return {
      {' ', 3, 3, 0, 0, 0, 0, 0},
      {'B', 4, 9, 2, 0, 0, 0, 0},
      {'A', 5, 6, 1, 0x0000, 0x1400, 0x0000, 0xA000},  // pixels 0..5 of 64, 0..10 of 16
      {'B', 4, 5, 2, 0x1800, 0x2800, 0x0000, 0xA000},  // pixels 6..10
  };
}

inline Bytes SmallFdata() {
  return MakeFdata(10, 64, 16, SmallGlyphs());
}

// Every texel opaque, so a drawn cell covers its pixels fully.
inline Bytes SmallFtex() {
  return Bytes(64 * 16, 0xFF);
}

// A Font filled from bytes, without GL.
inline bool Adopt(nox::Font& font, const Bytes& fdata, unsigned long ftexSize) {
  unsigned char* block = new unsigned char[fdata.size() + 1];
  if (!fdata.empty()) memcpy(block, fdata.data(), fdata.size());
  return font.AdoptGlyphTable(block, fdata.size(), ftexSize, nullptr);
}

// A title directory with a log, the path registry and a headless GL context.
class TitleWithScreen {
 public:
  TitleWithScreen() : m_Log(m_Dir, Config()) {
    nox::PathRegistry::Create();
    nox::ScreenManager::Create();
  }
  ~TitleWithScreen() {
    nox::ScreenManager::Destroy();
    nox::PathRegistry::Destroy();
  }

  void PutFont(const std::string& base, const Bytes& fdata, const Bytes& ftex) {
    testfiles::WriteBytes(Textures() + "/" + base + ".fdata", fdata);
    testfiles::WriteBytes(Textures() + "/" + base + ".ftex", ftex);
  }
  std::string Textures() const { return m_Dir / "title/Textures"; }
  const testfiles::AutomationLog& Log() const { return m_Log; }

 private:
  Hollin::Ostra::Host::HostConfig Config() const {
    Hollin::Ostra::Host::HostConfig config;
    config.titlePath = m_Dir / "title";
    config.downloadsPath = m_Dir / "downloads";
    return config;
  }

  testfiles::TempDir m_Dir;
  testfiles::AutomationLog m_Log;
};

}  // namespace texttest
