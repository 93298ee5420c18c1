#include "physics/RectangleHull.h"

#include "physics/CollisionDetector.h"
#include "physics/PhysicsDebugDraw.h"

namespace nox {
namespace {

bool Overlaps(Real aMin, Real aMax, Real bMin, Real bMax) {
  return aMin <= bMax && bMin <= aMax;
}

bool Within(Real v, Real lo, Real hi) {
  return lo <= v && v <= hi;
}

Real Component(const Vector3& v, int i) {
  return i == 0 ? v.x : (i == 1 ? v.y : v.z);
}

}  // namespace

RectangleHull::RectangleHull(Particle* particle, Real width, Real height, Real elasticity, Real friction,
                             CollisionNotifier* notifier, RTTIBase* owner, Real depth) {
  Initialize(particle, width, height, elasticity, friction, notifier, owner, depth);
}

void RectangleHull::Initialize(Particle* particle, Real width, Real height, Real elasticity, Real friction,
                               CollisionNotifier* notifier, RTTIBase* owner, Real depth) {
  AbstractHull::Initialize(particle, elasticity, friction, notifier, owner, depth, false);
  m_HalfWidth = width / Real(2);
  m_HalfHeight = height / Real(2);
}

Interval RectangleHull::getProjection(const Vector2& axis) const {
  const Real r = AbsReal(axis.x) * m_HalfWidth + AbsReal(axis.y) * m_HalfHeight;
  const Real centre = getPosition().dot(axis);
  return Interval(centre - r, centre + r);
}

Interval RectangleHull::GetProjectionX() const {
  const Real x = getPosition().x;
  return Interval(x - m_HalfWidth, x + m_HalfWidth);
}

Interval RectangleHull::GetProjectionY() const {
  const Real y = getPosition().y;
  return Interval(y - m_HalfHeight, y + m_HalfHeight);
}

void RectangleHull::SetWidth(Real width) {
  m_HalfWidth = width / Real(2);
  m_bDirty = true;
}

void RectangleHull::SetHeight(Real height) {
  m_HalfHeight = height / Real(2);
  m_bDirty = true;
}

void RectangleHull::setHalfSize(Real halfWidth, Real halfHeight) {
  m_HalfWidth = halfWidth;
  m_HalfHeight = halfHeight;
  m_bDirty = true;
}

void RectangleHull::Draw(const Vector2& offset, unsigned long colour) {
  if (!PhysicsDebugDraw::IsAvailable()) return;
  const Vector3 p = getPosition();
  const Vector2 centre = Vector2(p.x, p.y) + offset;
  const Vector2 u = m_AxisU * m_HalfWidth;
  const Vector2 v = m_AxisV * m_HalfHeight;
  const Vector2 corners[4] = {centre - u - v, centre + u - v, centre + u + v, centre - u + v};
  PhysicsDebugDraw::DrawOutline(corners, 4, colour);
}

CollisionInfo RectangleHull::collide(AbstractHull& other) {
  return other.collide(*this);
}

CollisionInfo RectangleHull::collide(RectangleHull& other) {
  return CollisionDetector::testOBBvsOBB(*this, other);
}

CollisionInfo RectangleHull::collide(CircleHull& other) {
  return CollisionDetector::testOBBvsCircle(*this, other);
}

CollisionInfo RectangleHull::collide(PolyHull& other) {
  return CollisionDetector::testOBBvsPoly(*this, other);
}

bool RectangleHull::intersectsRay(Vector3 origin, Vector3 destination, Vector3& hit) {
  const Vector3 p = getPosition();
  const Vector3 half(m_HalfWidth, m_HalfHeight, m_HalfDepth);
  const Vector3 lo = p - half;
  const Vector3 hi = p + half;
  for (int i = 0; i < 3; ++i) {
    const Real o = Component(origin, i);
    const Real d = Component(destination, i);
    if (!Overlaps(o < d ? o : d, o < d ? d : o, Component(lo, i), Component(hi, i))) return false;
  }
  const Vector3 direction = destination - origin;
  for (int i = 0; i < 3; ++i) {
    const Real step = Component(direction, i);
    if (step == Real()) continue;
    const Real o = Component(origin, i);
    const Real boxLo = Component(lo, i);
    const Real boxHi = Component(hi, i);
    const Real face = AbsReal(boxLo - o) <= AbsReal(boxHi - o) ? boxLo : boxHi;
    hit = origin + direction * ((face - o) / step);
    const int j = (i + 1) % 3;
    const int k = (i + 2) % 3;
    if (Within(Component(hit, j), Component(lo, j), Component(hi, j)) &&
        Within(Component(hit, k), Component(lo, k), Component(hi, k))) {
      return true;
    }
  }
  return false;
}

}  // namespace nox
