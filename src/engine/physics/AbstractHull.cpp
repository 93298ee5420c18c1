#include "physics/AbstractHull.h"

#include "physics/Particle.h"

namespace nox {

void AbstractHull::Initialize(Particle* particle, Real elasticity, Real friction, CollisionNotifier* notifier,
                              RTTIBase* owner, Real depth, bool sameRTTI) {
  m_pParticle = particle;
  m_Elasticity = elasticity;
  m_Friction = friction;
  m_pNotifiers = notifier;
  m_pOwner = owner;
  m_HalfDepth = depth / Real(2);
  m_bSameRTTI = sameRTTI;
  setEnabled(true);
}

void AbstractHull::setEnabled(bool enabled) {
  if (enabled && !m_bEnabled) m_bDirty = true;
  m_bEnabled = enabled;
}

Interval AbstractHull::GetProjectionZ() const {
  const Real z = getPosition().z;
  return Interval(z - m_HalfDepth, z + m_HalfDepth);
}

Vector3 AbstractHull::getPosition() const {
  return m_pParticle->m_Position;
}

void AbstractHull::resolveCollision(Vector3 offset, Vector3 velocity, Vector3 normal, Real depth, Real sign) {
  Particle& p = *m_pParticle;
  if (p.m_bFixed) return;
  p.m_Position += offset;
  p.m_PreviousPosition += offset;
  if (offset != Vector3()) p.m_bMoved = true;
  p.m_PreviousPosition = p.m_Position - velocity;
}

Real AbstractHull::GetLeft() const {
  return getPosition().x;
}

Real AbstractHull::GetTop() const {
  return getPosition().y;
}

Real AbstractHull::GetRight() const {
  return getPosition().x;
}

Real AbstractHull::GetBottom() const {
  return getPosition().y;
}

void AbstractHull::AddNotifier(CollisionNotifier* notifier) {
  notifier->m_pNext = m_pNotifiers;
  m_pNotifiers = notifier;
}

void AbstractHull::RemoveNotifier(CollisionNotifier* notifier) {
  for (CollisionNotifier** link = &m_pNotifiers; *link; link = &(*link)->m_pNext) {
    if (*link == notifier) {
      *link = notifier->m_pNext;
      notifier->m_pNext = nullptr;
      return;
    }
  }
}

}  // namespace nox
