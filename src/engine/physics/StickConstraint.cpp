#include "physics/StickConstraint.h"

#include "physics/Particle.h"

namespace nox {

StickConstraint::StickConstraint(Particle* a, Particle* b)
    : StickConstraint(a, b, (a->m_Position - b->m_Position).magnitude()) {}

StickConstraint::StickConstraint(Particle* a, Particle* b, Real restLength)
    : AbstractConstraint(a, b, Real()), m_RestLength(restLength) {}

void StickConstraint::resolve() {
  if (m_pA->m_bFixed && m_pB->m_bFixed) return;
  m_LastDelta = m_pA->m_Position - m_pB->m_Position;
  m_LastLength = m_LastDelta.magnitude();
  if (m_LastLength == Real()) {
    // Coincident ends have no direction; they are parted along y.
    m_LastDelta = Vector3(Real(), Real(1), Real());
    m_LastLength = Real(1);
  }
  Displace(m_LastDelta * ((m_LastLength - m_RestLength) / m_LastLength));
}

Vector3 StickConstraint::getCenter() const {
  return (m_pA->m_Position + m_pB->m_Position) * Real::FromRaw(0x8000);
}

bool StickConstraint::checkForIllegalParticlesLocation() const {
  return m_pA->m_Position.x != m_pB->m_Position.x || m_pA->m_Position.y != m_pB->m_Position.y;
}

}  // namespace nox
