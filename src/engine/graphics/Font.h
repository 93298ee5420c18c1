// A bitmap font at one size: the glyph table of "<name>_<size>.fdata" and the alpha
// texture of "<name>_<size>.ftex", both found in the texture directories. It turns a
// one-line string into textured triangles, two per glyph, with the pen starting at
// x = 0 and every cell spanning the full line height from y = 0. There is no word
// wrap: a string is one line.
//
// A file that is missing or malformed leaves the font empty: it measures every text
// as 0 wide and 0 high and makes no triangles. A byte without a glyph is skipped as
// if it were not in the text. The font owns its glyph table and its texture; fonts
// are shared through FontManager.
#pragma once
#include <string>

#include "core/Real.h"
#include "core/Vector2.h"
#include "graphics/GLTexture.h"
#include "graphics/GlyphTable.h"

namespace nox {

class GLBuffer;

class Font : public GLTexture {
 public:
  // Vertices, position pairs and coordinate pairs that one glyph makes.
  static constexpr unsigned long kVerticesPerGlyph = 6;
  static constexpr unsigned long kPositionBytesPerGlyph = 24;  // 12 signed 16-bit values
  static constexpr unsigned long kCoordBytesPerGlyph = 48;     // 12 Reals
  // The GLBuffer form of FormatText builds on the stack and takes at most this many
  // bytes of a text.
  static constexpr unsigned long kMaxBufferedText = 256;

  // An empty font; Load or AdoptGlyphTable fill it.
  Font();
  // Loads at once; see Load.
  Font(const std::string& name, unsigned long size);
  ~Font();

  // Finds, checks and loads "<name>_<size>" and uploads its texture. On failure the
  // font is left empty, one automation line names the file, and false comes back.
  bool Load(const std::string& name, unsigned long size);
  // Releases the glyph table and the texture and empties the name.
  void UnLoad();

  // The part of Load that does not touch GL: takes `fdata` (from Loader::LoadFile)
  // whatever the outcome, checks it and the texture's size in bytes against each
  // other. False, with the reason, for a malformed pair; the font is then empty.
  bool AdoptGlyphTable(unsigned char* fdata, unsigned long fdataSize, unsigned long ftexSize,
                       const char** reason);

  // Line height in pixels; 0 for an empty font.
  Real GetHeight() const { return Real(static_cast<unsigned>(m_Glyphs.GetLineHeight())); }
  const std::string& GetName() const { return m_Name; }
  bool IsLoaded() const { return !m_Glyphs.IsEmpty(); }
  // Null for a byte without a glyph.
  const FontGlyph* GetGlyph(unsigned char byte) const { return m_Glyphs.Find(byte); }

  // The text's width and the line height. `triangles`, if given, receives 2 for each
  // byte that has a glyph and is not a blank.
  Vector2 MeasureText(const std::string& text, unsigned long* triangles) const;
  // Writes 6 vertices for each drawn glyph: `positions` takes 12 signed 16-bit values
  // and `coords` 12 Reals per glyph, room for which the caller sizes with
  // MeasureText. `triangles` and `size`, if given, receive the count and the size.
  void FormatText(const std::string& text, short* positions, Real* coords, unsigned long* triangles,
                  Vector2* size) const;
  // The same into two GL buffers, uploaded with the full size of the text (24 and 48
  // bytes per byte, blanks and bytes without glyphs included); at most
  // kMaxBufferedText bytes are taken.
  // The same two over `length` bytes of `text`, for callers that hold plain arrays.
  Vector2 MeasureBytes(const char* text, unsigned long length, unsigned long* triangles) const;
  void FormatBytes(const char* text, unsigned long length, short* positions, Real* coords,
                   unsigned long* triangles, Vector2* size) const;
  void FormatText(const std::string& text, GLBuffer& positions, GLBuffer& coords, unsigned long* triangles,
                  Vector2* size) const;

 private:
  // Runs `emit(glyph, x)` for each glyph drawn, with the pen x in pixels; returns the
  // pen position after the last byte.
  template <class Emit>
  int32_t Walk(const char* text, unsigned long length, Emit emit) const;

  GlyphTable m_Glyphs;  // owns the loaded ".fdata"
  std::string m_Name;   // as given to Load; empty while unloaded
};

}  // namespace nox
