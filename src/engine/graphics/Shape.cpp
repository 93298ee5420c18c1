#include "graphics/Shape.h"

#include <cstdint>

namespace nox {

const Real Shape::s_TouchPointSeparation = Real(3);

namespace {

Real Abs(Real r) {
  return r < Real() ? -r : r;
}

}  // namespace

void Shape::Grow(const Vector2& p) {
  if (p.x < m_MinX) m_MinX = p.x;
  if (p.y < m_MinY) m_MinY = p.y;
  if (p.x > m_MaxX) m_MaxX = p.x;
  if (p.y > m_MaxY) m_MaxY = p.y;
}

void Shape::AddPoint(const Vector2& p) {
  if (m_Count >= kMaxPoints) return;
  if (m_Count > 0) {
    const Vector2& last = m_Points[m_Count - 1];
    if (Abs(p.x - last.x) < s_TouchPointSeparation && Abs(p.y - last.y) < s_TouchPointSeparation) return;
    Grow(p);
  } else {
    m_MinX = m_MaxX = p.x;
    m_MinY = m_MaxY = p.y;
  }
  m_Points[m_Count++] = p;
}

void Shape::Move(const Vector2& from, const Vector2& to) {
  const Vector2 shift = to - from;
  for (int32_t i = 0; i < m_Count; ++i) {
    m_Points[i] += shift;
    Grow(m_Points[i]);
  }
}

void Shape::Draw() {
  if (m_Count >= 2) DrawLineLoop(&m_Points[0].x, m_Count);
}

bool Shape::IsPointInShape(const Vector2& p) const {
  if (m_Count < 2 || p.x < m_MinX || p.x > m_MaxX || p.y < m_MinY || p.y > m_MaxY) return false;
  bool inside = false;
  const int64_t px = p.x.Raw();
  const int64_t py = p.y.Raw();
  for (int32_t i = 0, j = m_Count - 1; i < m_Count; j = i++) {
    const int64_t xi = m_Points[i].x.Raw(), yi = m_Points[i].y.Raw();
    const int64_t xj = m_Points[j].x.Raw(), yj = m_Points[j].y.Raw();
    // An edge counts when exactly one end is at or above p (y at most p's): so a
    // vertex at p's height is counted once for the edges that meet there.
    if ((yi <= py) == (yj <= py)) continue;
    // x of the edge at p's height, in 64 bits: the product of two screen-sized
    // differences does not fit a Real.
    const int64_t x = xi + (py - yi) * (xj - xi) / (yj - yi);
    if (x < px) inside = !inside;
  }
  return inside;
}

void Shape::Union(Shape& other) {
  Vector2 kept[kMaxPoints];
  int32_t count = 0;
  for (int32_t i = 0; i < m_Count && count < kMaxPoints; ++i) {
    if (!other.IsPointInShape(m_Points[i])) kept[count++] = m_Points[i];
  }
  for (int32_t i = 0; i < other.m_Count && count < kMaxPoints; ++i) {
    if (!IsPointInShape(other.m_Points[i])) kept[count++] = other.m_Points[i];
  }
  for (int32_t i = 0; i < count; ++i) m_Points[i] = kept[i];
  m_Count = count;
}

}  // namespace nox
