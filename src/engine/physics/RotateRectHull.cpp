#include "physics/RotateRectHull.h"

#include "core/Trig.h"

namespace nox {

RotateRectHull::RotateRectHull(Particle* particle, Real width, Real height, Real elasticity, Real friction,
                               CollisionNotifier* notifier, RTTIBase* owner, Real depth, Real radians)
    : RectangleHull(particle, width, height, elasticity, friction, notifier, owner, depth) {
  setAxes(radians);
}

Interval RotateRectHull::getProjection(const Vector2& axis) const {
  const Real r = AbsReal(axis.dot(m_AxisU)) * m_HalfWidth + AbsReal(axis.dot(m_AxisV)) * m_HalfHeight;
  const Real centre = getPosition().dot(axis);
  return Interval(centre - r, centre + r);
}

Interval RotateRectHull::GetProjectionX() const {
  return getProjection(Vector2(Real(1), Real()));
}

Interval RotateRectHull::GetProjectionY() const {
  return getProjection(Vector2(Real(), Real(1)));
}

void RotateRectHull::setAxes(Real radians) {
  m_Angle = radians;
  const Real degrees = radians * kRadiansToDegrees;
  const Real c = cos(degrees);
  const Real s = sin(degrees);
  m_AxisU = Vector2(c, s);
  m_AxisV = Vector2(-s, c);
  m_bDirty = true;
}

}  // namespace nox
