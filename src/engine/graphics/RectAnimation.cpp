#include "graphics/RectAnimation.h"

namespace nox {

void RectAnimation::SetColor(const Vector3& rgb) {
  m_Colour[0] = rgb.x;
  m_Colour[1] = rgb.y;
  m_Colour[2] = rgb.z;
}

void RectAnimation::UpdateBox() {
  const Real halfW = m_Width / Real(2), halfH = m_Height / Real(2);
  m_BoundingBox =
      Rectangle(m_Position.x - halfW, m_Position.y - halfH, m_Position.x + halfW, m_Position.y + halfH);
}

bool RectAnimation::ContainsPoint(const Vector2& point) {
  UpdateBox();
  return point.x >= m_BoundingBox.left && point.x <= m_BoundingBox.right && point.y >= m_BoundingBox.top &&
         point.y <= m_BoundingBox.bottom;
}

void RectAnimation::Draw() {
  if (!m_bVisible) return;
  UpdateBox();
  const Real l = m_BoundingBox.left, t = m_BoundingBox.top, r = m_BoundingBox.right, b = m_BoundingBox.bottom;
  const Real z = m_Position.z;
  // Filled: two triangles; outlined: a closed strip of five points.
  const Real filled[6][2] = {{l, t}, {r, b}, {l, b}, {l, t}, {r, t}, {r, b}};
  const Real outline[5][2] = {{l, t}, {l, b}, {r, b}, {r, t}, {l, t}};
  const int count = m_bOutline ? 5 : 6;
  for (int i = 0; i < count; ++i) {
    m_Vertices[3 * i] = m_bOutline ? outline[i][0] : filled[i][0];
    m_Vertices[3 * i + 1] = m_bOutline ? outline[i][1] : filled[i][1];
    m_Vertices[3 * i + 2] = z;
  }
  DrawBox(m_Vertices, count, m_bOutline, m_Colour, m_LineWidth);
}

}  // namespace nox
