// Pulls two particles towards a rest length by a share (the stiffness) of the error
// at each relaxation. The ends must never coincide: the correction divides by their
// distance, and checkForIllegalParticlesLocation() is there to check it first.
#pragma once
#include "physics/AbstractConstraint.h"

namespace nox {

class SpringConstraint : public AbstractConstraint {
 public:
  // The rest length is the present distance.
  SpringConstraint(Particle* a, Particle* b, Real stiffness);
  SpringConstraint(Particle* a, Particle* b, Real stiffness, Real restLength);

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
