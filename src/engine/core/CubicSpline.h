// A cubic curve through a list of points, open or closed. Each point record holds the
// position P, the tangent D and the coefficients C and E of the segment that starts
// there, so a segment is P + D t + C t^2 + E t^3 for t in 0..1.0. The spline owns its
// records. Draw samples the curve for the debug overlay through a line hook that the
// graphics side installs, since this layer draws nothing itself.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"
#include "core/Real.h"
#include "core/Vector3.h"

namespace nox {

class CubicSpline : public NoCopy {
 public:
  struct Point {
    Vector3 P;  // position
    Vector3 D;  // tangent
    Vector3 C;  // t^2 coefficient of the segment starting here
    Vector3 E;  // t^3 coefficient of the segment starting here
  };

  typedef void (*LineHook)(const Vector3& from, const Vector3& to);

  CubicSpline() = default;
  ~CubicSpline();

  // Copies count points and computes tangents and coefficients. Does nothing when
  // already initialized or when points is null or count is 0.
  void Initialize(const Vector3* points, uint32_t count, bool closed);

  bool IsInitialized() const { return m_pPoints != nullptr; }
  uint32_t GetSegmentCount() const { return m_SegmentCount; }
  uint32_t GetPointCount() const { return m_PointCount; }
  bool IsClosed() const { return m_bClosed; }
  const Point& GetPoint(uint32_t i) const { return m_pPoints[i]; }

  // The position at t (0..1.0) along segment; segment must be below the count.
  Vector3 Evaluate(uint32_t segment, Real t) const;

  // Samples each segment at steps points and hands consecutive samples to the hook.
  void Draw(uint32_t steps) const;

  static void SetLineHook(LineHook hook) { sm_LineHook = hook; }

 private:
  uint32_t m_SegmentCount = 0;
  uint32_t m_PointCount = 0;
  Point* m_pPoints = nullptr;  // owned, m_PointCount records
  bool m_bClosed = false;

  static LineHook sm_LineHook;  // borrowed; null draws nothing
};

}  // namespace nox
