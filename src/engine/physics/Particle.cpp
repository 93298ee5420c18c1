#include "physics/Particle.h"

#include "physics/PhysicsDebugDraw.h"

namespace nox {

void Particle::update(Real timeStepSquared, Real damping) {
  if (m_bFixed) {
    m_Force = Vector3();
    return;
  }
  const Vector3 saved = m_Position;
  m_Force *= timeStepSquared;
  m_Position += (m_Force + m_Position - m_PreviousPosition) * damping;
  m_PreviousPosition = saved;
  m_Force = Vector3();
  // z alone does not count: every test is made in x and y.
  if (m_PreviousPosition.x != m_Position.x || m_PreviousPosition.y != m_Position.y) m_bMoved = true;
}

void Particle::Draw(const Vector2& offset, unsigned long colour) const {
  PhysicsDebugDraw::DrawPoint(Vector2(m_Position.x, m_Position.y) + offset, colour);
}

}  // namespace nox
