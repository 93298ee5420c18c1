#include "graphics/GlyphTable.h"

#include <cstring>

#include "core/Loader.h"

namespace nox {

namespace {

bool IsPowerOfTwo(uint16_t v) {
  return v != 0 && (v & (v - 1)) == 0;
}

bool IsCoordinate(Real r) {
  return r.Raw() >= 0 && r.Raw() <= Real::kOneRaw;
}

}  // namespace

GlyphTable::GlyphTable() {
  memset(m_ByByte, 0, sizeof(m_ByByte));
}

GlyphTable::~GlyphTable() {
  Reset();
}

void GlyphTable::Reset() {
  Loader::UnloadFile(m_pBlock);
  m_pBlock = nullptr;
  m_pHeader = nullptr;
  m_pGlyphs = nullptr;
  memset(m_ByByte, 0, sizeof(m_ByByte));
}

const char* GlyphTable::CheckRecord(const FontGlyph& glyph, bool first) {
  // The first record's left coordinate is the table word and is never read.
  if ((!first && !IsCoordinate(glyph.left)) || !IsCoordinate(glyph.right) || !IsCoordinate(glyph.top) ||
      !IsCoordinate(glyph.bottom))
    return "texture coordinate outside 0 to 1";
  if ((!first && glyph.left > glyph.right) || glyph.top > glyph.bottom) return "texture coordinates reversed";
  if (glyph.cellWidth > kFontMaxMetric || glyph.advance > kFontMaxMetric || glyph.spacing > kFontMaxMetric)
    return "cell, advance or spacing over 1024 pixels";
  return nullptr;
}

bool GlyphTable::Adopt(unsigned char* block, unsigned long size, const char** reason) {
  Reset();
  const char* problem = nullptr;
  const FontFileHeader* header = reinterpret_cast<const FontFileHeader*>(block);
  if (!block) {
    problem = "missing";
  } else if (size < kFontHeaderBytes) {
    problem = "shorter than its header";
  } else if (header->count == 0) {
    problem = "no glyphs";
  } else if (size != kFontHeaderBytes + kFontGlyphBytes * header->count) {
    problem = "size does not match the glyph count";
  } else if (!IsPowerOfTwo(header->textureWidth) || !IsPowerOfTwo(header->textureHeight) ||
             header->textureWidth > kFontMaxTextureSide || header->textureHeight > kFontMaxTextureSide) {
    problem = "texture size not a power of two up to 2048";
  } else if (header->lineHeight == 0 || header->lineHeight > header->textureHeight ||
             header->lineHeight > kFontMaxMetric) {
    problem = "line height outside the texture";
  }
  const FontGlyph* glyphs = reinterpret_cast<const FontGlyph*>(block + kFontHeaderBytes);
  for (uint16_t i = 0; !problem && i < header->count; ++i) problem = CheckRecord(glyphs[i], i == 0);
  if (problem) {
    Loader::UnloadFile(block);
    if (reason) *reason = problem;
    return false;
  }

  // The loader claims the word at offset 8 for the table; zero it so that what the
  // first record's left coordinate holds never depends on the file.
  memset(block + kFontHeaderBytes, 0, sizeof(Real));
  m_pBlock = block;
  m_pHeader = header;
  m_pGlyphs = glyphs;
  for (uint16_t i = 0; i < header->count; ++i) {
    if (glyphs[i].code < 256) m_ByByte[glyphs[i].code] = &glyphs[i];
  }
  if (reason) *reason = nullptr;
  return true;
}

}  // namespace nox
