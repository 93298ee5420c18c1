#include "physics/SpringConstraint.h"

#include "physics/Particle.h"

namespace nox {

SpringConstraint::SpringConstraint(Particle* a, Particle* b, Real stiffness)
    : SpringConstraint(a, b, stiffness, (a->m_Position - b->m_Position).magnitude()) {}

SpringConstraint::SpringConstraint(Particle* a, Particle* b, Real stiffness, Real restLength)
    : AbstractConstraint(a, b, stiffness), m_RestLength(restLength) {}

void SpringConstraint::resolve() {
  if (m_pA->m_bFixed && m_pB->m_bFixed) return;
  m_LastDelta = m_pA->m_Position - m_pB->m_Position;
  m_LastLength = m_LastDelta.magnitude();
  Displace(m_LastDelta * ((m_LastLength - m_RestLength) / m_LastLength) * m_Stiffness);
}

Vector3 SpringConstraint::getCenter() const {
  return (m_pA->m_Position + m_pB->m_Position) * Real::FromRaw(0x8000);
}

bool SpringConstraint::checkForIllegalParticlesLocation() const {
  return m_pA->m_Position.x != m_pB->m_Position.x || m_pA->m_Position.y != m_pB->m_Position.y;
}

}  // namespace nox
