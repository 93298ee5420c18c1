#include "core/CubicSpline.h"

namespace nox {

CubicSpline::LineHook CubicSpline::sm_LineHook = nullptr;

CubicSpline::~CubicSpline() {
  delete[] m_pPoints;
}

void CubicSpline::Initialize(const Vector3* points, uint32_t count, bool closed) {
  if (m_pPoints || !points || count == 0) return;
  m_pPoints = new Point[count];
  m_PointCount = count;
  m_bClosed = closed;
  m_SegmentCount = closed ? count : count - 1;

  Point* p = m_pPoints;
  for (uint32_t i = 0; i < count; ++i) p[i].P = points[i];

  const uint32_t last = count - 1;
  const Real three(3);
  const Real two(2);
  // Catmull-Rom style tangents without the factor of one half; an open curve's ends
  // use themselves as the missing neighbour.
  for (uint32_t i = 0; i < count; ++i) {
    uint32_t prev;
    uint32_t next;
    if (closed) {
      prev = i == 0 ? last : i - 1;
      next = i == last ? 0 : i + 1;
    } else {
      prev = i == 0 ? 0 : i - 1;
      next = i == last ? last : i + 1;
    }
    p[i].D = (p[next].P - p[prev].P) * three;
  }
  for (uint32_t i = 0; i < m_SegmentCount; ++i) {
    const uint32_t j = i == last ? 0 : i + 1;
    p[i].C = (p[j].P - p[i].P) * three - p[i].D * two - p[j].D;
    p[i].E = (p[i].P - p[j].P) * two + p[i].D + p[j].D;
  }
}

Vector3 CubicSpline::Evaluate(uint32_t segment, Real t) const {
  const Point& s = m_pPoints[segment];
  return s.P + (s.D + (s.C + s.E * t) * t) * t;
}

void CubicSpline::Draw(uint32_t steps) const {
  if (!sm_LineHook || !m_pPoints || steps < 2) return;
  // Keeps 1.0 / (steps - 1) away from a divisor that wraps to zero.
  if (steps > 4096) steps = 4096;
  const Real step = Real(1) / Real(steps - 1);
  for (uint32_t s = 0; s < m_SegmentCount; ++s) {
    Vector3 from = Evaluate(s, Real());
    for (uint32_t k = 1; k < steps; ++k) {
      const Vector3 to = Evaluate(s, step * Real(k));
      sm_LineHook(from, to);
      from = to;
    }
  }
}

}  // namespace nox
