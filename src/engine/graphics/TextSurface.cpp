#include "graphics/TextSurface.h"

#include <cstring>

#include "graphics/Font.h"
#include "graphics/WholePixel.h"

namespace nox {

namespace {

constexpr unsigned long kPositionBytesPerTriangle = 12;
constexpr unsigned long kCoordBytesPerTriangle = 24;
// Texts without glyphs (blanks) take a record and no store; this many of them fit
// beyond one record per glyph before the record list is full too.
constexpr unsigned long kSpareRecords = 4;

}  // namespace

TextSurface::~TextSurface() {
  delete[] m_pStore;
}

void TextSurface::Initialise(Real width, Real height, unsigned long capacity) {
  delete[] m_pStore;
  m_Width = width;
  m_Height = height;
  m_Capacity = capacity;
  m_TrianglesInUse = 0;
  m_pStore = new unsigned char[capacity * (Font::kPositionBytesPerGlyph + Font::kCoordBytesPerGlyph)];
  m_pPositions = reinterpret_cast<short*>(m_pStore);
  m_pCoords = reinterpret_cast<Real*>(m_pStore + capacity * Font::kPositionBytesPerGlyph);
  m_Records.clear();
  m_Records.reserve(capacity + kSpareRecords);
}

bool TextSurface::DrawText(const std::string& text, Font* font, const Rectangle& rect,
                           const TextProperties& props) {
  return DrawBytes(text.data(), text.size(), font, rect, props);
}

bool TextSurface::DrawText(const char* text, Font* font, const Rectangle& rect, const TextProperties& props) {
  return DrawBytes(text, strlen(text), font, rect, props);
}

bool TextSurface::DrawText(const char* text, Font* font, Real x, Real y, const TextProperties& props) {
  return DrawBytes(text, strlen(text), font, Rectangle(x, y, x, y), props);
}

bool TextSurface::DrawBytes(const char* text, unsigned long length, Font* font, const Rectangle& rect,
                            const TextProperties& props) {
  if (!font || !m_pStore) return false;
  unsigned long triangles = 0;
  Vector2 size = font->MeasureBytes(text, length, &triangles);
  if (m_TrianglesInUse + triangles > 2 * m_Capacity || m_Records.size() == m_Records.capacity()) return false;

  TextRecord record;
  record.font = font;
  record.rect = rect;
  record.firstVertex = static_cast<uint32_t>(m_TrianglesInUse * 3);
  font->FormatBytes(
      text, length, m_pPositions + m_TrianglesInUse * (kPositionBytesPerTriangle / sizeof(short)),
      m_pCoords + m_TrianglesInUse * (kCoordBytesPerTriangle / sizeof(Real)), &triangles, &size);
  record.triangles = static_cast<uint32_t>(triangles);
  record.size = size;

  Real x = rect.left;
  if (props.horizontalAlignment == TextProperties::kRight)
    x = rect.right - size.x;
  else if (props.horizontalAlignment == TextProperties::kCentre)
    x = (rect.left + rect.right - size.x) / Real(2);
  Real y = rect.top;
  if (props.verticalAlignment == TextProperties::kBottom)
    y = rect.bottom - size.y;
  else if (props.verticalAlignment == TextProperties::kMiddle)
    y = (rect.top + rect.bottom - size.y) / Real(2);
  record.x = WholePixel(x);
  record.y = WholePixel(y);
  record.props = props;
  m_Records.push_back(record);
  m_TrianglesInUse += triangles;
  return true;
}

bool TextSurface::DrawText(const std::string& text, Font* font, Real x, Real y, const TextProperties& props) {
  return DrawText(text, font, Rectangle(x, y, x, y), props);
}

void TextSurface::Clear() {
  m_Records.clear();
  m_TrianglesInUse = 0;
}

void TextSurface::Draw() {
  if (!GetVisible() || m_Records.empty()) return;
  BeginText(m_pPositions, m_pCoords);
  const Vector3& position = m_Position;
  PushTranslation(WholePixel(position.x), WholePixel(position.y), position.z);
  for (const TextRecord& record : m_Records) {
    record.font->Bind();
    PushTranslation(record.x, record.y, Real());
    const TextProperties& props = record.props;
    const unsigned long vertices = record.triangles * 3ul;
    if (props.shadow) {
      // The shadow first, so that the text lies over it.
      const Real sx(static_cast<int>(props.shadowX));
      const Real sy(static_cast<int>(props.shadowY));
      SetColour(props.shadowColour, props.shadowAlpha);
      Translate(sx, sy);
      DrawTriangles(record.firstVertex, vertices);
      Translate(-sx, -sy);
    }
    SetColour(props.colour, props.alpha);
    DrawTriangles(record.firstVertex, vertices);
    PopTranslation();
  }
  PopTranslation();
  EndText();
}

bool TextSurface::HitTest(const Vector2& point) const {
  const Vector3& position = m_Position;
  return point.x >= position.x && point.y >= position.y && point.x <= position.x + m_Width &&
         point.y <= position.y + m_Height;
}

}  // namespace nox
