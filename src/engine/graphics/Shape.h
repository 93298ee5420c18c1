// A freehand outline: the points of a stroke, kept a few pixels apart, closed into a
// loop. Answers whether a point lies inside it and can be merged with another
// outline. Fixed storage of 500 points; nothing allocates.
#pragma once
#include <cstdint>

#include "core/Vector2.h"
#include "platform/Shape_pf.h"

namespace nox {

class Shape : public Shape_pf {
 public:
  static constexpr int32_t kMaxPoints = 500;
  // Samples closer than this in both x and y to the last point are dropped.
  static const Real s_TouchPointSeparation;  // 3.0

  Shape() = default;

  // Ignored when the shape is full or the point is too close to the last one;
  // otherwise stored, and the bounding box grows to take it.
  void AddPoint(const Vector2& p);
  // Moves every point by to - from. The box widens to the moved points; it never
  // shrinks.
  void Move(const Vector2& from, const Vector2& to);
  // The closed outline, with at least 2 points, in the current colour.
  void Draw();
  // Crossing test on the closed outline; false outside the bounding box.
  bool IsPointInShape(const Vector2& p) const;
  // Keeps this shape's points outside `other`, then `other`'s points outside this
  // shape, up to kMaxPoints. The bounding box stays as it was.
  void Union(Shape& other);

  int32_t GetCount() const { return m_Count; }
  const Vector2& GetPoint(int32_t i) const { return m_Points[i]; }
  Real GetMinX() const { return m_MinX; }
  Real GetMinY() const { return m_MinY; }
  Real GetMaxX() const { return m_MaxX; }
  Real GetMaxY() const { return m_MaxY; }

 private:
  void Grow(const Vector2& p);

  Vector2 m_Points[kMaxPoints];  // x, y pairs: handed to GL as they are
  int32_t m_Count = 0;
  Real m_MinX;  // bounding box of every point ever held
  Real m_MinY;
  Real m_MaxX;
  Real m_MaxY;
};

}  // namespace nox
