// The work of fontwriter: rasterize a TrueType font at one pixel size with FreeType,
// pack the glyph cells into one power-of-two alpha texture and lay out the engine's
// glyph table (".fdata") and texture (".ftex"). See src/engine/graphics/GlyphTable.h
// for the byte layout; this file writes exactly that.
//
// Each glyph owns a cell of the full line height: the engine draws it from (x, 0) to
// (x + cell width, line height) at pen position x, so the cell holds the glyph's
// pixels with the baseline at the same row for every glyph. The blank comes first and
// takes no texture space: the engine claims the first record's left coordinate and
// never draws blanks.
#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace fontwriter {

struct Options {
  std::string fontPath;
  unsigned pixelSize = 0;
  // Inclusive ranges of character codes (Unicode, which equals the byte for 0 to 255).
  std::vector<std::pair<unsigned, unsigned>> ranges = {{32, 126}};
  unsigned spacing = 0;  // pixels added before every glyph but the first of a line
};

struct Glyph {
  uint16_t code = 0;
  uint16_t cellWidth = 0;
  uint16_t advance = 0;
  uint16_t spacing = 0;
  uint16_t x = 0;  // cell position in the texture, pixels
  uint16_t y = 0;
  std::vector<uint8_t> alpha;  // cellWidth * line height
};

struct BuiltFont {
  uint16_t lineHeight = 0;
  uint16_t textureWidth = 0;
  uint16_t textureHeight = 0;
  std::vector<Glyph> glyphs;   // the blank first, then by code
  std::vector<uint8_t> fdata;  // the glyph table file
  std::vector<uint8_t> ftex;   // the texture file
};

// Parses "32-126,160-255" or "65"; false on anything else or a code above 0xFFFF.
bool ParseRanges(const std::string& text, std::vector<std::pair<unsigned, unsigned>>& out);

// Rasterizes and packs. On failure `error` holds "file: what is wrong".
bool BuildFont(const Options& options, BuiltFont& out, std::string& error);

// Lays out cells in rows of the given width; the texture height that results, or 0
// when it would exceed 2048. Sets each glyph's x and y.
uint16_t PackCells(std::vector<Glyph>& glyphs, uint16_t lineHeight, uint16_t width);

// Fills out.fdata and out.ftex from the packed glyphs.
void Serialize(BuiltFont& font);

// Writes prefix + ".fdata" and prefix + ".ftex"; and a greyscale picture of the
// texture when `pngPath` is not empty. On failure `error` holds "file: what is wrong".
bool WriteFiles(const BuiltFont& font, const std::string& prefix, const std::string& pngPath,
                std::string& error);

}  // namespace fontwriter
