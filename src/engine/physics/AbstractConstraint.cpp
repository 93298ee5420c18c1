#include "physics/AbstractConstraint.h"

#include "physics/Particle.h"
#include "physics/PhysicsDebugDraw.h"

namespace nox {

void AbstractConstraint::Draw(const Vector2& offset, unsigned long colour) {
  if (!PhysicsDebugDraw::IsAvailable()) return;
  PhysicsDebugDraw::DrawLine(Vector2(m_pA->m_Position.x, m_pA->m_Position.y) + offset,
                             Vector2(m_pB->m_Position.x, m_pB->m_Position.y) + offset, colour);
}

void AbstractConstraint::Displace(const Vector3& c) {
  if (m_pA->m_bFixed) {
    m_pB->m_Position += c;
  } else if (m_pB->m_bFixed) {
    m_pA->m_Position -= c;
  } else {
    // A zero sum divides by zero here: masses are positive by contract.
    const Real s = Real(1) / (m_pA->m_Mass + m_pB->m_Mass);
    m_pA->m_Position -= c * m_pB->m_Mass * s;
    m_pB->m_Position += c * m_pA->m_Mass * s;
  }
}

}  // namespace nox
