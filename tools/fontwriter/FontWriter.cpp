#include "FontWriter.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <png.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace fontwriter {

namespace {

constexpr unsigned kMaxSide = 2048;
constexpr unsigned kBlank = 32;

uint16_t NextPowerOfTwo(unsigned v) {
  unsigned p = 1;
  while (p < v) p <<= 1;
  return p > kMaxSide ? 0 : static_cast<uint16_t>(p);
}

void Put16(std::vector<uint8_t>& out, unsigned v) {
  out.push_back(static_cast<uint8_t>(v & 0xFF));
  out.push_back(static_cast<uint8_t>((v >> 8) & 0xFF));
}

void Put32(std::vector<uint8_t>& out, uint32_t v) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<uint8_t>((v >> (8 * i)) & 0xFF));
}

// Q16.16 of pixel / side; exact, since the side is a power of two.
uint32_t TexCoord(unsigned pixel, unsigned side) {
  return static_cast<uint32_t>((static_cast<uint64_t>(pixel) << 16) / side);
}

bool TakesSpace(const Glyph& g) {
  return g.code != kBlank && g.cellWidth > 0;
}

// Codes in ascending order with the blank first, each once.
std::vector<unsigned> CodesOf(const Options& options) {
  std::vector<unsigned> codes;
  for (const auto& range : options.ranges) {
    for (unsigned c = range.first; c <= range.second; ++c) {
      if (c != kBlank) codes.push_back(c);
    }
  }
  std::sort(codes.begin(), codes.end());
  codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
  codes.insert(codes.begin(), kBlank);
  return codes;
}

class Face {
 public:
  ~Face() {
    if (m_Face) FT_Done_Face(m_Face);
    if (m_Library) FT_Done_FreeType(m_Library);
  }
  bool Open(const std::string& path) {
    return FT_Init_FreeType(&m_Library) == 0 && FT_New_Face(m_Library, path.c_str(), 0, &m_Face) == 0;
  }
  FT_Face operator->() const { return m_Face; }
  FT_Face Get() const { return m_Face; }

 private:
  FT_Library m_Library = nullptr;
  FT_Face m_Face = nullptr;
};

// A glyph as FreeType rendered it, before it is put in its cell.
struct Rendered {
  unsigned code = 0;
  int left = 0;  // pixels from the pen to the bitmap's first column
  int top = 0;   // pixels from the baseline up to the bitmap's first row
  unsigned width = 0;
  unsigned rows = 0;
  uint16_t advance = 0;
  std::vector<uint8_t> pixels;  // width * rows
};

// False when the font cannot render the glyph as grey levels.
bool RenderGlyph(FT_Face face, unsigned code, Rendered& out) {
  if (FT_Load_Char(face, code, FT_LOAD_RENDER | FT_LOAD_TARGET_NORMAL) != 0) return false;
  const FT_GlyphSlot slot = face->glyph;
  const FT_Bitmap& bitmap = slot->bitmap;
  if (bitmap.pixel_mode != FT_PIXEL_MODE_GRAY && bitmap.width > 0 && bitmap.rows > 0) return false;
  out.code = code;
  out.left = slot->bitmap_left;
  out.top = slot->bitmap_top;
  out.width = bitmap.width;
  out.rows = bitmap.rows;
  out.advance = static_cast<uint16_t>(std::max<long>(0, (slot->advance.x + 32) >> 6));
  out.pixels.resize(static_cast<size_t>(out.width) * out.rows);
  for (unsigned row = 0; row < out.rows; ++row) {
    const unsigned char* src = bitmap.buffer + static_cast<long>(row) * bitmap.pitch;
    std::copy_n(src, out.width, &out.pixels[static_cast<size_t>(row) * out.width]);
  }
  return true;
}

// Puts a rendered glyph in a cell of the line height with its baseline at `baseline`.
Glyph MakeCell(const Rendered& r, int baseline, uint16_t lineHeight, unsigned spacing) {
  Glyph out;
  out.code = static_cast<uint16_t>(r.code);
  out.advance = r.advance;
  out.spacing = static_cast<uint16_t>(spacing);
  if (r.code == kBlank) {
    out.cellWidth = r.advance;
    return out;
  }
  // A glyph that reaches left of the pen (a negative bearing) starts at the cell's
  // edge instead: the cell begins at the pen.
  const int left = std::max(0, r.left);
  out.cellWidth = static_cast<uint16_t>(left + static_cast<int>(r.width));
  out.alpha.assign(static_cast<size_t>(out.cellWidth) * lineHeight, 0);
  for (unsigned row = 0; row < r.rows; ++row) {
    const int y = baseline - r.top + static_cast<int>(row);
    if (y < 0 || y >= lineHeight) continue;
    std::copy_n(&r.pixels[static_cast<size_t>(row) * r.width], r.width,
                &out.alpha[static_cast<size_t>(y) * out.cellWidth + left]);
  }
  return out;
}

}  // namespace

bool ParseRanges(const std::string& text, std::vector<std::pair<unsigned, unsigned>>& out) {
  out.clear();
  size_t pos = 0;
  while (pos <= text.size()) {
    size_t comma = text.find(',', pos);
    if (comma == std::string::npos) comma = text.size();
    const std::string item = text.substr(pos, comma - pos);
    char* end = nullptr;
    const unsigned long first = strtoul(item.c_str(), &end, 0);
    if (end == item.c_str()) return false;
    unsigned long last = first;
    if (*end == '-') {
      const char* second = end + 1;
      last = strtoul(second, &end, 0);
      if (end == second) return false;
    }
    if (*end != '\0' || first > last || last > 0xFFFF) return false;
    out.emplace_back(static_cast<unsigned>(first), static_cast<unsigned>(last));
    pos = comma + 1;
  }
  return !out.empty();
}

uint16_t PackCells(std::vector<Glyph>& glyphs, uint16_t lineHeight, uint16_t width) {
  // One free column after each cell and one free row under each line, so that no
  // cell reads its neighbour's pixels at its edges.
  unsigned x = 0;
  unsigned y = 0;
  for (Glyph& g : glyphs) {
    g.x = 0;
    g.y = 0;
    if (!TakesSpace(g)) continue;
    if (g.cellWidth > width) return 0;
    if (x + g.cellWidth > width) {
      x = 0;
      y += lineHeight + 1u;
    }
    if (y + lineHeight > kMaxSide) return 0;
    g.x = static_cast<uint16_t>(x);
    g.y = static_cast<uint16_t>(y);
    x += g.cellWidth + 1u;
  }
  return NextPowerOfTwo(std::max(1u, y + lineHeight));
}

void Serialize(BuiltFont& font) {
  const unsigned w = font.textureWidth;
  const unsigned h = font.textureHeight;
  font.ftex.assign(static_cast<size_t>(w) * h, 0);
  font.fdata.clear();
  Put16(font.fdata, static_cast<unsigned>(font.glyphs.size()));
  Put16(font.fdata, font.lineHeight);
  Put16(font.fdata, w);
  Put16(font.fdata, h);
  for (const Glyph& g : font.glyphs) {
    const bool placed = TakesSpace(g);
    Put32(font.fdata, placed ? TexCoord(g.x, w) : 0);
    Put32(font.fdata, placed ? TexCoord(g.x + g.cellWidth, w) : 0);
    Put32(font.fdata, placed ? TexCoord(g.y, h) : 0);
    Put32(font.fdata, placed ? TexCoord(g.y + font.lineHeight, h) : 0);
    Put16(font.fdata, g.code);
    Put16(font.fdata, g.cellWidth);
    Put16(font.fdata, g.advance);
    Put16(font.fdata, g.spacing);
    if (!placed) continue;
    for (unsigned row = 0; row < font.lineHeight; ++row) {
      std::copy_n(&g.alpha[static_cast<size_t>(row) * g.cellWidth], g.cellWidth,
                  &font.ftex[static_cast<size_t>(g.y + row) * w + g.x]);
    }
  }
}

bool BuildFont(const Options& options, BuiltFont& out, std::string& error) {
  const std::string& file = options.fontPath;
  Face face;
  if (!face.Open(file)) {
    error = file + ": not a font FreeType can read";
    return false;
  }
  if (!FT_IS_SCALABLE(face.Get())) {
    error = file + ": not a scalable font";
    return false;
  }
  if (options.pixelSize < 4 || options.pixelSize > 255) {
    error = file + ": pixel size " + std::to_string(options.pixelSize) + " outside 4 to 255";
    return false;
  }
  if (FT_Set_Pixel_Sizes(face.Get(), 0, options.pixelSize) != 0) {
    error = file + ": cannot be set to " + std::to_string(options.pixelSize) + " pixels";
    return false;
  }

  // The line is as tall as the ink of the glyphs asked for, plus one free row under
  // it, so that lines drawn one height apart never touch. The face's own ascender
  // and descender are far looser in fonts built for stacked diacritics, and would
  // waste rows on a small screen.
  std::vector<Rendered> rendered;
  int above = 0;
  int below = 0;
  for (unsigned code : CodesOf(options)) {
    // Characters the font lacks are left out: the engine draws nothing for them.
    if (code != kBlank && FT_Get_Char_Index(face.Get(), code) == 0) continue;
    Rendered r;
    if (!RenderGlyph(face.Get(), code, r)) {
      error = file + ": glyph " + std::to_string(code) + " cannot be rendered";
      return false;
    }
    if (r.rows > 0 && r.width > 0) {
      above = std::max(above, r.top);
      below = std::max(below, static_cast<int>(r.rows) - r.top);
    }
    rendered.push_back(std::move(r));
  }
  const int height = above + below + 1;
  if (above < 0 || below < 0 || height > 1024) {
    error = file + ": line height " + std::to_string(height) + " outside 1 to 1024";
    return false;
  }
  out = BuiltFont();
  out.lineHeight = static_cast<uint16_t>(height);
  for (const Rendered& r : rendered)
    out.glyphs.push_back(MakeCell(r, above, out.lineHeight, options.spacing));
  for (const Glyph& g : out.glyphs) {
    if (g.cellWidth > 1024 || g.advance > 1024) {
      error = file + ": glyph " + std::to_string(g.code) + " wider than 1024 pixels";
      return false;
    }
  }

  // The smallest texture that holds every cell; among equal areas the squarer one.
  unsigned bestWidth = 0;
  unsigned long bestArea = 0;
  unsigned bestSide = 0;
  for (unsigned w = 16; w <= kMaxSide; w <<= 1) {
    const uint16_t h = PackCells(out.glyphs, out.lineHeight, static_cast<uint16_t>(w));
    if (h == 0) continue;
    const unsigned long area = static_cast<unsigned long>(w) * h;
    const unsigned side = std::max<unsigned>(w, h);
    if (bestWidth == 0 || area < bestArea || (area == bestArea && side < bestSide)) {
      bestWidth = w;
      bestArea = area;
      bestSide = side;
    }
  }
  if (bestWidth == 0) {
    error = file + ": glyphs do not fit a texture of 2048 by 2048";
    return false;
  }
  out.textureWidth = static_cast<uint16_t>(bestWidth);
  out.textureHeight = PackCells(out.glyphs, out.lineHeight, out.textureWidth);
  Serialize(out);
  return true;
}

namespace {

bool WriteBytes(const std::string& path, const std::vector<uint8_t>& bytes, std::string& error) {
  FILE* file = fopen(path.c_str(), "wb");
  if (!file) {
    error = path + ": cannot be created";
    return false;
  }
  const bool ok = fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  if (fclose(file) != 0 || !ok) {
    error = path + ": write failed";
    return false;
  }
  return true;
}

}  // namespace

bool WriteFiles(const BuiltFont& font, const std::string& prefix, const std::string& pngPath,
                std::string& error) {
  if (!WriteBytes(prefix + ".fdata", font.fdata, error) || !WriteBytes(prefix + ".ftex", font.ftex, error))
    return false;
  if (pngPath.empty()) return true;
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = font.textureWidth;
  image.height = font.textureHeight;
  image.format = PNG_FORMAT_GRAY;
  if (!png_image_write_to_file(&image, pngPath.c_str(), 0, font.ftex.data(), 0, nullptr)) {
    error = pngPath + ": " + image.message;
    return false;
  }
  return true;
}

}  // namespace fontwriter
