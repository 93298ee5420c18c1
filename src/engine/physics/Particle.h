// A point mass of the Verlet integrator. It keeps its position and where it was one
// step ago, and no velocity of its own: velocity is their difference, and anything
// that moves the position (a constraint, a collision) changes the velocity implied
// for the next step. A plain record: whoever creates a particle owns it (a Rig, a
// CollisionRig, a scene's static geometry); the engine only borrows it.
#pragma once
#include "core/Vector2.h"
#include "core/Vector3.h"

namespace nox {

class Particle {
 public:
  Particle() = default;
  explicit Particle(const Vector3& position) : m_PreviousPosition(position), m_Position(position) {}

  // One Verlet step: the accumulated force, scaled by the time step squared, and the
  // implied velocity carry the position forward; `damping` of 1.0 loses nothing. A
  // fixed particle only drops its force.
  void update(Real timeStepSquared, Real damping);

  // Debug overlay: a point at the position, shifted by `offset`.
  void Draw(const Vector2& offset, unsigned long colour) const;

  Vector3 getVelocity() const { return m_Position - m_PreviousPosition; }

  Vector3 m_LastFreePosition;   // where it was when its hull last touched nothing
  Vector3 m_PreviousPosition;   // one step ago
  Vector3 m_Force;              // accumulated for one step
  Real m_Mass = Real(1);        // shares of displacement and of momentum
  Real m_ForceScale = Real(1);  // multiplies the engine's scaled force
  bool m_bFixed = false;        // never moved by integration, collision or constraint
  bool m_bMoved = true;         // its hulls must be re-projected; the physics never clears it
  bool m_bNoPush = false;       // contacts push the partner instead when they can
  Vector3 m_Position;
};

}  // namespace nox
