// Base of the relaxation constraints. A constraint joins two particles it does not
// own and, in resolve(), moves their positions towards what it demands; only
// positions change, so the velocity that the correction implies comes out of the
// next Verlet step. The engine resolves constraints in list order, once per
// relaxation iteration. Whoever creates a constraint deletes it (normally a Rig).
#pragma once
#include "core/Real.h"
#include "core/Vector2.h"
#include "core/Vector3.h"

namespace nox {

class Particle;

class AbstractConstraint {
 public:
  AbstractConstraint(Particle* a, Particle* b, Real stiffness) : m_Stiffness(stiffness), m_pA(a), m_pB(b) {}
  virtual ~AbstractConstraint() = default;

  virtual void resolve() {}
  // Debug overlay: a line between the two ends, shifted by `offset`.
  virtual void Draw(const Vector2& offset, unsigned long colour);

  Particle* getParticleA() const { return m_pA; }
  Particle* getParticleB() const { return m_pB; }
  Real getStiffness() const { return m_Stiffness; }
  void setStiffness(Real stiffness) { m_Stiffness = stiffness; }

 protected:
  // The rule that stick, rope and spring share for a correction c taken from b to a:
  // a fixed end stays and the other takes all of c; otherwise each end takes the
  // other's share of the total mass, so the heavier end moves less.
  void Displace(const Vector3& c);

  Real m_Stiffness;  // 0 to 1.0 where used
  Particle* m_pA;    // borrowed
  Particle* m_pB;    // borrowed
};

}  // namespace nox
