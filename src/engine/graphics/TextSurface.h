// A sprite made of text: it collects one-line strings, each with its font, colour,
// optional drop shadow and alignment in a rectangle, and draws them all from one
// vertex store. The store is allocated once by Initialise, for a number of glyphs;
// a text that would not fit is dropped whole. A surface with a static text costs
// nothing per frame: callers Clear and draw again only when the text changes.
//
// The surface borrows its fonts: they must outlive its records.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "core/Real.h"
#include "core/Vector2.h"
#include "core/Vector3.h"
#include "graphics/Animation.h"
#include "graphics/Rectangle.h"
#include "platform/TextSurface_pf.h"

namespace nox {

class Font;

struct TextProperties {
  enum HorizontalAlignment : int32_t { kLeft = 0, kRight = 1, kCentre = 2 };
  enum VerticalAlignment : int32_t { kTop = 0, kBottom = 1, kMiddle = 2 };

  Vector3 colour = Vector3(Real(1), Real(1), Real(1));
  Real alpha = Real(1);
  Vector3 shadowColour;  // black
  Real shadowAlpha = Real(1);
  int32_t horizontalAlignment = kLeft;
  int32_t verticalAlignment = kTop;
  int8_t shadowX = 1;  // whole pixels
  int8_t shadowY = 1;
  uint8_t reserved = 0;
  bool shadow = false;
};

class TextSurface : public Animation, private TextSurface_pf {
 public:
  TextSurface() = default;
  ~TextSurface() override;

  // Sizes the surface and allocates room for `capacity` glyphs (72 bytes each); any
  // text drawn before is forgotten.
  void Initialise(Real width, Real height, unsigned long capacity);

  // Lays the text out in `rect` by the alignments, at whole pixels. False when the
  // text was dropped because the surface is full.
  bool DrawText(const std::string& text, Font* font, const Rectangle& rect, const TextProperties& props);
  // The same with the rectangle (x, y, x, y): an aligned text is aligned on the point.
  bool DrawText(const std::string& text, Font* font, Real x, Real y, const TextProperties& props);
  // The same for a C string, which costs no copy.
  bool DrawText(const char* text, Font* font, const Rectangle& rect, const TextProperties& props);
  bool DrawText(const char* text, Font* font, Real x, Real y, const TextProperties& props);
  // Forgets every text.
  void Clear();

  void SetClearColor(const Vector3& colour) { m_ClearColour = colour; }
  const Vector3& GetClearColor() const { return m_ClearColour; }
  void SetClearAlpha(Real alpha) { m_ClearAlpha = alpha; }
  Real GetClearAlpha() const { return m_ClearAlpha; }
  Real GetWidth() const { return m_Width; }
  Real GetHeight() const { return m_Height; }

  void Update(unsigned long ms) override {}
  void Draw() override;
  // Within (position, position + width and height), edges included.
  bool HitTest(const Vector2& point) const override;
  bool HitTestBounds(const Vector2& point) const override { return HitTest(point); }

  // What DrawText recorded, for layout checks.
  struct TextRecord {
    Font* font;      // borrowed
    Rectangle rect;  // as asked for
    Real x;          // resolved top left, whole pixels
    Real y;
    Vector2 size;          // measured
    uint32_t firstVertex;  // into the store
    uint32_t triangles;
    TextProperties props;
  };
  const std::vector<TextRecord>& GetRecords() const { return m_Records; }
  unsigned long GetTrianglesInUse() const { return m_TrianglesInUse; }
  unsigned long GetCapacity() const { return m_Capacity; }
  const short* GetPositions() const { return m_pPositions; }
  const Real* GetCoords() const { return m_pCoords; }

 private:
  bool DrawBytes(const char* text, unsigned long length, Font* font, const Rectangle& rect,
                 const TextProperties& props);

  Vector3 m_ClearColour;
  Real m_ClearAlpha;
  Real m_Width;
  Real m_Height;
  unsigned long m_Capacity = 0;        // glyphs
  unsigned long m_TrianglesInUse = 0;  // at most 2 * m_Capacity
  unsigned char* m_pStore = nullptr;   // owned: positions, then texture coordinates
  short* m_pPositions = nullptr;       // in m_pStore: 12 bytes per triangle
  Real* m_pCoords = nullptr;           // in m_pStore: 24 bytes per triangle
  std::vector<TextRecord> m_Records;   // reserved by Initialise
};

}  // namespace nox
