#include "physics/RopeConstraint.h"

#include "physics/Particle.h"

namespace nox {

RopeConstraint::RopeConstraint(Particle* a, Particle* b)
    : RopeConstraint(a, b, (a->m_Position - b->m_Position).magnitude()) {}

RopeConstraint::RopeConstraint(Particle* a, Particle* b, Real restLength)
    : AbstractConstraint(a, b, Real()), m_RestLength(restLength) {}

void RopeConstraint::resolve() {
  if (m_pA->m_bFixed && m_pB->m_bFixed) return;
  m_LastDelta = m_pA->m_Position - m_pB->m_Position;
  m_LastLength = m_LastDelta.magnitude();
  if (m_LastLength == Real()) {
    m_LastDelta = Vector3(Real(), Real(1), Real());
    m_LastLength = Real(1);
  }
  const Real stretch = (m_LastLength - m_RestLength) / m_LastLength;
  // Slack or exactly taut: a rope never pushes.
  if (stretch < Real::FromRaw(1)) return;
  Displace(m_LastDelta * stretch);
}

Vector3 RopeConstraint::getCenter() const {
  return (m_pA->m_Position + m_pB->m_Position) * Real::FromRaw(0x8000);
}

bool RopeConstraint::checkForIllegalParticlesLocation() const {
  return m_pA->m_Position.x != m_pB->m_Position.x || m_pA->m_Position.y != m_pB->m_Position.y;
}

}  // namespace nox
