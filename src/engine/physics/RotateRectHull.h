// A box turned about its particle: U and V are its axes, set from an angle.
#pragma once
#include "physics/RectangleHull.h"

namespace nox {

class RotateRectHull : public RectangleHull {
 public:
  RotateRectHull() = default;
  // `radians` as for setAxes.
  RotateRectHull(Particle* particle, Real width, Real height, Real elasticity, Real friction,
                 CollisionNotifier* notifier, RTTIBase* owner, Real depth, Real radians = Real());

  Interval getProjection(const Vector2& axis) const override;
  Interval GetProjectionX() const override;
  Interval GetProjectionY() const override;
  bool IsAABB() const override { return false; }

  // Turns the box to `radians` (converted to degrees for the sine table):
  // U = (cos, sin), V = (-sin, cos). Marks the hull dirty.
  void setAxes(Real radians);
  Real getAngle() const { return m_Angle; }

 protected:
  Real m_Angle;  // radians
};

}  // namespace nox
