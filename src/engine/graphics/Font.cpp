#include "graphics/Font.h"

#include <cstdio>

#include "core/Debug.h"
#include "core/Loader.h"
#include "core/PathRegistry.h"
#include "core/WrapArith.h"
#include "graphics/GLBuffer.h"

namespace nox {

namespace {

constexpr unsigned char kBlank = ' ';

int16_t ToShort(uint32_t v) {
  return static_cast<int16_t>(static_cast<uint16_t>(v));
}

}  // namespace

Font::Font() : GLTexture(TextureFormat::kAlpha) {}

Font::Font(const std::string& name, unsigned long size) : GLTexture(TextureFormat::kAlpha) {
  Load(name, size);
}

Font::~Font() {
  UnLoad();
}

bool Font::AdoptGlyphTable(unsigned char* fdata, unsigned long fdataSize, unsigned long ftexSize,
                           const char** reason) {
  if (!m_Glyphs.Adopt(fdata, fdataSize, reason)) return false;
  if (ftexSize != static_cast<unsigned long>(m_Glyphs.GetTextureWidth()) * m_Glyphs.GetTextureHeight()) {
    m_Glyphs.Reset();
    if (reason) *reason = "texture size does not match the glyph table";
    return false;
  }
  return true;
}

bool Font::Load(const std::string& name, unsigned long size) {
  UnLoad();
  char base[64];
  snprintf(base, sizeof(base), "%s_%u", name.c_str(), static_cast<unsigned>(size));
  const std::string baseName(base);

  std::string fdataPath;
  std::string ftexPath;
  const PathRegistry* paths = PathRegistry::sm_pInstance;
  if (!paths || !paths->FindFile(paths->m_TexturePaths, baseName + ".fdata", fdataPath) ||
      !paths->FindFile(paths->m_TexturePaths, baseName + ".ftex", ftexPath)) {
    AutomationPrintf("Font: %s not found", base);
    return false;
  }

  unsigned long fdataSize = 0;
  unsigned long ftexSize = 0;
  unsigned char* fdata = Loader::LoadFile(fdataPath, &fdataSize);
  unsigned char* ftex = Loader::LoadFile(ftexPath, &ftexSize);
  const char* reason = nullptr;
  if (!ftex) {
    Loader::UnloadFile(fdata);
    AutomationPrintf("Font: %s refused: unreadable", ftexPath.c_str());
    return false;
  }
  if (!AdoptGlyphTable(fdata, fdataSize, ftexSize, &reason)) {
    Loader::UnloadFile(ftex);
    AutomationPrintf("Font: %s refused: %s", fdataPath.c_str(), reason);
    return false;
  }
  Update(m_Glyphs.GetTextureWidth(), m_Glyphs.GetTextureHeight(), PixelFormat::kByte4, ftex);
  Loader::UnloadFile(ftex);
  m_Name = name;
  return true;
}

void Font::UnLoad() {
  m_Glyphs.Reset();
  Free();
  m_Name.clear();
}

template <class Emit>
int32_t Font::Walk(const char* text, unsigned long length, Emit emit) const {
  // Unsigned so that an absurdly long line wraps instead of overflowing.
  uint32_t x = 0;
  for (unsigned long i = 0; i < length; ++i) {
    const unsigned char byte = static_cast<unsigned char>(text[i]);
    const FontGlyph* glyph = m_Glyphs.Find(byte);
    if (!glyph) continue;
    if (x != 0) x += glyph->spacing;
    if (byte != kBlank) emit(*glyph, x);
    x += glyph->advance;
  }
  return WrapToS32(x);
}

Vector2 Font::MeasureText(const std::string& text, unsigned long* triangles) const {
  return MeasureBytes(text.data(), text.size(), triangles);
}

Vector2 Font::MeasureBytes(const char* text, unsigned long length, unsigned long* triangles) const {
  unsigned long count = 0;
  const int32_t width = Walk(text, length, [&count](const FontGlyph&, uint32_t) { count += 2; });
  if (triangles) *triangles = count;
  return Vector2(Real(width), GetHeight());
}

void Font::FormatText(const std::string& text, short* positions, Real* coords, unsigned long* triangles,
                      Vector2* size) const {
  FormatBytes(text.data(), text.size(), positions, coords, triangles, size);
}

void Font::FormatBytes(const char* text, unsigned long length, short* positions, Real* coords,
                       unsigned long* triangles, Vector2* size) const {
  unsigned long count = 0;
  const int16_t bottom = ToShort(m_Glyphs.GetLineHeight());
  const int32_t width = Walk(text, length, [&](const FontGlyph& g, uint32_t x) {
    const int16_t left = ToShort(x);
    const int16_t right = ToShort(x + g.cellWidth);
    // Top left, bottom left, bottom right; top left, bottom right, top right.
    const int16_t p[12] = {left, 0, left, bottom, right, bottom, left, 0, right, bottom, right, 0};
    const Real c[12] = {g.left, g.top, g.left,  g.bottom, g.right, g.bottom,
                        g.left, g.top, g.right, g.bottom, g.right, g.top};
    for (int i = 0; i < 12; ++i) {
      positions[i] = p[i];
      coords[i] = c[i];
    }
    positions += 12;
    coords += 12;
    count += 2;
  });
  if (triangles) *triangles = count;
  if (size) *size = Vector2(Real(width), GetHeight());
}

void Font::FormatText(const std::string& text, GLBuffer& positions, GLBuffer& coords,
                      unsigned long* triangles, Vector2* size) const {
  // Zeroed, since blanks and bytes without glyphs leave their part of the upload unwritten.
  short positionStore[kMaxBufferedText * 12] = {};
  Real coordStore[kMaxBufferedText * 12];
  const unsigned long length = text.size() < kMaxBufferedText ? text.size() : kMaxBufferedText;
  FormatBytes(text.data(), length, positionStore, coordStore, triangles, size);
  positions.Update(static_cast<uint32_t>(length * kPositionBytesPerGlyph), positionStore);
  coords.Update(static_cast<uint32_t>(length * kCoordBytesPerGlyph), coordStore);
}

}  // namespace nox
