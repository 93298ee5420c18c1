#include "physics/CircleHull.h"

#include "core/Trig.h"
#include "physics/CollisionDetector.h"
#include "physics/PhysicsDebugDraw.h"

namespace nox {

CircleHull::CircleHull(Particle* particle, Real radius, Real elasticity, Real friction,
                       CollisionNotifier* notifier, RTTIBase* owner, Real depth, bool sameRTTI)
    : m_Radius(radius) {
  Initialize(particle, elasticity, friction, notifier, owner, depth, sameRTTI);
}

Interval CircleHull::getProjection(const Vector2& axis) const {
  const Real centre = getPosition().dot(axis);
  return Interval(centre - m_Radius, centre + m_Radius);
}

void CircleHull::setRadius(Real radius) {
  m_Radius = radius;
  m_bDirty = true;
}

Interval CircleHull::getIntervalX() const {
  const Real x = getPosition().x;
  return Interval(x - m_Radius, x + m_Radius);
}

Interval CircleHull::getIntervalY() const {
  const Real y = getPosition().y;
  return Interval(y - m_Radius, y + m_Radius);
}

void CircleHull::Draw(const Vector2& offset, unsigned long colour) {
  if (!PhysicsDebugDraw::IsAvailable()) return;
  const Vector3 p = getPosition();
  const Vector2 centre = Vector2(p.x, p.y) + offset;
  constexpr int kSides = 16;
  Vector2 points[kSides];
  for (int i = 0; i < kSides; ++i) {
    const Real degrees = Real(i * 360 / kSides);
    points[i] = centre + Vector2(cos(degrees), sin(degrees)) * m_Radius;
  }
  PhysicsDebugDraw::DrawOutline(points, kSides, colour);
}

CollisionInfo CircleHull::collide(AbstractHull& other) {
  return other.collide(*this);
}

CollisionInfo CircleHull::collide(RectangleHull& other) {
  CollisionInfo info = CollisionDetector::testOBBvsCircle(other, *this);
  info.m_Normal = -info.m_Normal;
  return info;
}

CollisionInfo CircleHull::collide(CircleHull& other) {
  return CollisionDetector::testCirclevsCircle(*this, other);
}

CollisionInfo CircleHull::collide(PolyHull& other) {
  return CollisionDetector::testCirclevsPoly(*this, other);
}

}  // namespace nox
