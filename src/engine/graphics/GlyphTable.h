// The glyph table of a bitmap font: a ".fdata" block checked and used in place.
//
// File layout, little-endian:
//   0  u16  glyph count (at least 1)
//   2  u16  line height in pixels
//   4  u16  texture width in pixels (a power of two)
//   6  u16  texture height in pixels (a power of two)
//   8  24 * count glyph records (FontGlyph)
// The ".ftex" beside it is width * height bytes of 8-bit alpha and nothing else.
//
// The word at offset 8 is the table word of the loaded block: the loader claims it,
// so the first record's left texture coordinate never counts. The font tools put the
// blank first, which is never drawn.
//
// The table owns the block it was given. Glyphs are reached by byte: text is walked
// one byte at a time, so records with codes above 255 stay in the block unused. When a
// code appears twice the later record wins.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"
#include "core/Real.h"

namespace nox {

struct FontGlyph {
  Real left;  // texture coordinates, 0 to 1.0
  Real right;
  Real top;
  Real bottom;
  uint16_t code;       // character code
  uint16_t cellWidth;  // pixels: the drawn cell spans (x, 0) to (x + cellWidth, line height)
  uint16_t advance;    // pixels
  uint16_t spacing;    // pixels, added before every glyph but the first of a line
};
static_assert(sizeof(FontGlyph) == 24, "a glyph record is 24 bytes in the file");

struct FontFileHeader {
  uint16_t count;
  uint16_t lineHeight;
  uint16_t textureWidth;
  uint16_t textureHeight;
};
static_assert(sizeof(FontFileHeader) == 8, "the glyph file header is 8 bytes");

constexpr unsigned long kFontHeaderBytes = 8;
constexpr unsigned long kFontGlyphBytes = 24;
constexpr uint16_t kFontMaxTextureSide = 2048;  // the largest texture the GL takes
constexpr uint16_t kFontMaxMetric = 1024;       // pixels: no cell, advance or spacing is wider

class GlyphTable : public NoCopy {
 public:
  GlyphTable();
  ~GlyphTable();

  // Takes `block` (from Loader::LoadFile) whatever the outcome. Checks the header,
  // the size, and every record against the header; on success the table answers
  // lookups and true comes back. On failure the block is freed, the table is empty
  // and `reason` (if given) names what is wrong.
  bool Adopt(unsigned char* block, unsigned long size, const char** reason);
  // Frees the block and forgets every glyph.
  void Reset();

  // Null for a byte that has no glyph.
  const FontGlyph* Find(unsigned char byte) const { return m_ByByte[byte]; }
  bool IsEmpty() const { return m_pHeader == nullptr; }

  uint16_t GetCount() const { return m_pHeader ? m_pHeader->count : 0; }
  uint16_t GetLineHeight() const { return m_pHeader ? m_pHeader->lineHeight : 0; }
  uint16_t GetTextureWidth() const { return m_pHeader ? m_pHeader->textureWidth : 0; }
  uint16_t GetTextureHeight() const { return m_pHeader ? m_pHeader->textureHeight : 0; }
  const FontGlyph* GetGlyphs() const { return m_pGlyphs; }

 private:
  static const char* CheckRecord(const FontGlyph& glyph, bool first);

  unsigned char* m_pBlock = nullptr;          // owned, from Loader::LoadFile
  const FontFileHeader* m_pHeader = nullptr;  // in m_pBlock
  const FontGlyph* m_pGlyphs = nullptr;       // in m_pBlock, GetCount() records
  const FontGlyph* m_ByByte[256];             // into m_pGlyphs; null where no glyph
};

}  // namespace nox
