#include "physics/TumbleRectangleHull.h"

#include "core/Trig.h"
#include "physics/Particle.h"

namespace nox {

TumbleRectangleHull::TumbleRectangleHull(Particle* first, Particle* second, Real width, Real height,
                                         Real elasticity, Real friction, CollisionNotifier* notifier,
                                         RTTIBase* owner, Real depth)
    : m_pSecond(second) {
  RectangleHull::Initialize(first, width, height, elasticity, friction, notifier, owner, depth);
  TumbleRectangleHull::update();
}

Vector3 TumbleRectangleHull::getPosition() const {
  return (m_pParticle->m_Position + m_pSecond->m_Position) * Real::FromRaw(0x8000);
}

Real TumbleRectangleHull::getZRotation() const {
  const Vector3& p = m_pParticle->m_Position;
  const Vector3& q = m_pSecond->m_Position;
  return atan2(q.y - p.y, q.x - p.x);
}

void TumbleRectangleHull::getDelta(Vector2& delta) const {
  const Vector3 d = m_pSecond->m_Position - m_pParticle->m_Position;
  delta = Vector2(d.x, d.y);
}

void TumbleRectangleHull::getDelta(Vector3& delta) const {
  delta = m_pSecond->m_Position - m_pParticle->m_Position;
}

void TumbleRectangleHull::update() {
  setAxes(getZRotation());
}

void TumbleRectangleHull::resolveCollision(Vector3 offset, Vector3 velocity, Vector3 normal, Real depth,
                                           Real sign) {
  for (Particle* p : {m_pParticle, m_pSecond}) {
    if (p->m_bFixed) continue;
    p->m_Position += offset;
    p->m_PreviousPosition = p->m_Position - velocity;
  }
}

CollisionInfo TumbleRectangleHull::collide(AbstractHull& other) {
  update();
  return other.collide(static_cast<RectangleHull&>(*this));
}

CollisionInfo TumbleRectangleHull::collide(RectangleHull& other) {
  update();
  return RectangleHull::collide(other);
}

CollisionInfo TumbleRectangleHull::collide(CircleHull& other) {
  update();
  return RectangleHull::collide(other);
}

SpringRectangleHull::SpringRectangleHull(Particle* first, Particle* second, Real width, Real height,
                                         Real elasticity, Real friction, CollisionNotifier* notifier,
                                         RTTIBase* owner, Real depth)
    : TumbleRectangleHull(first, second, width, height, elasticity, friction, notifier, owner, depth) {
  SpringRectangleHull::update();
}

void SpringRectangleHull::update() {
  TumbleRectangleHull::update();
  Vector2 delta;
  getDelta(delta);
  m_HalfWidth = delta.magnitude() / Real(2);
  m_bDirty = true;
}

}  // namespace nox
