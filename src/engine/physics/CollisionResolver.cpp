#include "physics/CollisionResolver.h"

#include "physics/AbstractHull.h"
#include "physics/Particle.h"

namespace nox {
namespace {

constexpr Real kFixedMass = Real(15000);

}  // namespace

void CollisionResolver::resolve(AbstractHull& a, AbstractHull& b, Vector3 normal, Real depth) {
  const Real e = ClampReal(a.getElasticity() + b.getElasticity(), Real(), Real(1));
  const Real f = ClampReal(Real(1) - a.getFriction() * b.getFriction(), Real(), Real(1));
  const Particle& pa = *a.getParticle();
  const Particle& pb = *b.getParticle();
  const Vector3 va = pa.m_Position - pa.m_PreviousPosition;
  const Vector3 vb = pb.m_Position - pb.m_PreviousPosition;
  const Vector3 vnA = va.project(normal);
  const Vector3 vnB = vb.project(normal);
  const Vector3 vtA = va - vnA;
  const Vector3 vtB = vb - vnB;
  const Vector3 o = normal * depth;
  const Real ma = pa.m_bFixed ? kFixedMass : pa.m_Mass;
  const Real mb = pb.m_bFixed ? kFixedMass : pb.m_Mass;
  const Real minusOne = Real(-1);

  if (pa.m_bFixed && pb.m_bFixed) return;
  if (pa.m_bFixed) {
    b.resolveCollision(-o, vtB * f - vnB * e, normal, depth, minusOne);
    return;
  }
  if (pb.m_bFixed) {
    a.resolveCollision(o, vtA * f - vnA * e, normal, depth, minusOne);
    return;
  }

  // A zero total mass is replaced by raw 1 in the first division, and the
  // replacement stays for the others.
  Real total = ma + mb;
  Vector3 velocityA = vnA * (ma - e * mb) + vnB * ((Real(1) + e) * mb);
  velocityA /= total;
  velocityA += vtA * f;
  Vector3 velocityB = vnB * (mb - e * ma) + vnA * ((Real(1) + e) * ma);
  velocityB /= total;
  velocityB += vtB * f;

  Vector3 offsetA;
  Vector3 offsetB;
  if (pb.m_bNoPush && !pa.m_bNoPush) {
    offsetA = o;
  } else if (pa.m_bNoPush && !pb.m_bNoPush) {
    offsetB = -o;
  } else {
    offsetA = o * mb;
    offsetA /= total;
    offsetB = o * (-ma);
    offsetB /= total;
  }
  a.resolveCollision(offsetA, velocityA, normal, depth, minusOne);
  b.resolveCollision(offsetB, velocityB, normal, depth, minusOne);
}

}  // namespace nox
