// Keeps two particles at a rest length, pushing and pulling. The stiffness of the
// base is not used: a stick corrects in full at each relaxation.
#pragma once
#include "physics/AbstractConstraint.h"

namespace nox {

class StickConstraint : public AbstractConstraint {
 public:
  // The rest length is the present distance.
  StickConstraint(Particle* a, Particle* b);
  StickConstraint(Particle* a, Particle* b, Real restLength);

  void resolve() override;

  Real getRestLength() const { return m_RestLength; }
  void setRestLength(Real restLength) { m_RestLength = restLength; }
  Vector3 getCenter() const;
  Real getZRotation() const { return Real(); }
  bool isConnectedTo(const Particle& p) const { return &p == m_pA || &p == m_pB; }
  // False when the two ends coincide in x and y.
  bool checkForIllegalParticlesLocation() const;

 private:
  Real m_RestLength;
  Vector3 m_LastDelta;  // a - b at the last resolve
  Real m_LastLength;    // its length
};

}  // namespace nox
