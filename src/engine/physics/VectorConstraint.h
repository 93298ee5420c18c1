// Holds the second particle at a rest offset from the first, in all three axes, by
// a share (the stiffness) of the error at each relaxation. A particle with the
// no-push flag keeps its x when its partner has none: the partner takes the whole
// x correction, while y is still shared by mass.
//
// BiasedVectorConstraint moves only the second particle, fixed or not: by the
// stiffness's share of the error, or, once the error exceeds the rest offset's own
// length, all the way back at once.
#pragma once
#include "physics/AbstractConstraint.h"

namespace nox {

class VectorConstraint : public AbstractConstraint {
 public:
  // The rest vector is b - a at present.
  VectorConstraint(Particle* a, Particle* b, Real stiffness);
  VectorConstraint(Particle* a, Particle* b, const Vector3& restVector, Real stiffness);

  void resolve() override;

  const Vector3& getRestVector() const { return m_RestVector; }
  void setRestVector(const Vector3& restVector) { m_RestVector = restVector; }
  Vector3 getCenter() const;
  Real getZRotation() const { return Real(); }
  bool isConnectedTo(const Particle& p) const { return &p == m_pA || &p == m_pB; }

 protected:
  // rest vector - (b - a): where b should be, seen from where it is.
  Vector3 Error() const;

  Vector3 m_RestVector;  // from a to b
};

class BiasedVectorConstraint : public VectorConstraint {
 public:
  BiasedVectorConstraint(Particle* a, Particle* b, Real stiffness) : VectorConstraint(a, b, stiffness) {}
  BiasedVectorConstraint(Particle* a, Particle* b, const Vector3& restVector, Real stiffness)
      : VectorConstraint(a, b, restVector, stiffness) {}

  void resolve() override;
};

}  // namespace nox
