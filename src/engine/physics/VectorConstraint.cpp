#include "physics/VectorConstraint.h"

#include "physics/Particle.h"

namespace nox {

VectorConstraint::VectorConstraint(Particle* a, Particle* b, Real stiffness)
    : VectorConstraint(a, b, b->m_Position - a->m_Position, stiffness) {}

VectorConstraint::VectorConstraint(Particle* a, Particle* b, const Vector3& restVector, Real stiffness)
    : AbstractConstraint(a, b, stiffness), m_RestVector(restVector) {}

Vector3 VectorConstraint::Error() const {
  return m_RestVector - (m_pB->m_Position - m_pA->m_Position);
}

void VectorConstraint::resolve() {
  Particle& a = *m_pA;
  Particle& b = *m_pB;
  if (a.m_bFixed && b.m_bFixed) return;
  const Vector3 c = Error() * m_Stiffness;
  if (a.m_bFixed) {
    b.m_Position += c;
    return;
  }
  if (b.m_bFixed) {
    a.m_Position -= c;
    return;
  }
  const Real s = Real(1) / (a.m_Mass + b.m_Mass);
  if (a.m_bNoPush == b.m_bNoPush) {
    a.m_Position -= c * b.m_Mass * s;
    b.m_Position += c * a.m_Mass * s;
    return;
  }
  // One end may not be pushed sideways: the other takes all of x, y stays shared
  // and z is left alone.
  if (b.m_bNoPush) {
    a.m_Position.x -= c.x;
  } else {
    b.m_Position.x += c.x;
  }
  a.m_Position.y -= c.y * b.m_Mass * s;
  b.m_Position.y += c.y * a.m_Mass * s;
}

Vector3 VectorConstraint::getCenter() const {
  return (m_pA->m_Position + m_pB->m_Position) * Real::FromRaw(0x8000);
}

void BiasedVectorConstraint::resolve() {
  const Vector3 e = Error();
  if (e.magnitude() > m_RestVector.magnitude()) {
    m_pB->m_Position += e;
  } else {
    m_pB->m_Position += e * m_Stiffness;
  }
}

}  // namespace nox
