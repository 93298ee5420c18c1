// The physics of one scene: particles integrated by Verlet, constraints and
// collisions relaxed, all in fixed point. Scenes make it with a time step of 1.0
// (velocities are in units per frame) and 825 hulls, and call step(1) once a frame.
//
// The engine borrows everything it lists: pools belong to their CollisionPoolMap,
// particles, constraints and hulls to their Rig or other creator. Registrations made
// during a step wait in the add and remove vectors and take effect when it ends.
// The list nodes of all pools come from one block allocated here, so a step
// allocates nothing. Destroy rigs and pool maps before the engine.
//
// Forces are one-shot: a game that wants gravity adds it every frame.
#pragma once
#include <vector>

#include "core/NoCopy.h"
#include "core/Prealloc.h"
#include "core/Vector2.h"
#include "core/Vector3.h"
#include "physics/ProjectedHull.h"

namespace nox {

class AbstractConstraint;
class CollisionPool;
class Particle;

class PhysicsEngine : public NoCopy {
 public:
  // `hullCount` is a hard limit on the hulls in all pools together.
  PhysicsEngine(Real timeStep, unsigned hullCount);
  virtual ~PhysicsEngine();

  // Integration, then `iterations` rounds of constraints and collisions.
  void step(unsigned char iterations);
  // Collects dead nodes, then works off the remove and the add vectors.
  void ProcessAllocation();

  // Onto the debug overlay, when it exists (debug facilities enabled) and the
  // debug-draw flag or the setting "Draw Physics" is on. Hulls are shifted by
  // `offset`, in screen coordinates.
  void Draw();
  void Draw(const Vector2& offset);

  // The stages of a step, in order.
  void applyGlobalForces();
  void integrate();
  void clearResolveFlags();
  void satisfyConstraints();
  void checkCollisions();
  void checkResolveFlags();

  // Added for the next step to every particle, times its force scale (gravity).
  void addScaledForce(const Vector3& force) { m_ScaledForce += force; }
  // Added for the next step to every particle as it is.
  void addForce(const Vector3& force) { m_Force += force; }

  // Registration: an item already listed or waiting is not added twice. Outside a
  // step the change is made at once.
  void AddPool(CollisionPool* pool);
  void RemovePool(CollisionPool* pool);
  void AddParticle(Particle* particle);
  void RemoveParticle(Particle* particle);
  void AddConstraint(AbstractConstraint* constraint);
  void RemoveConstraint(AbstractConstraint* constraint);
  // Drops the pool from every vector at once (a pool being destroyed).
  void ForgetPool(CollisionPool* pool);

  // List nodes for the pools: null when all are in use.
  ProjectedHull* TakeNode();
  void ReturnNode(ProjectedHull* node);
  size_t GetFreeNodeCount() const { return m_FreeNodes.size(); }

  bool IsInStep() const { return m_bInStep; }
  bool GetDebugDraw() const { return m_bDebugDraw; }
  void SetDebugDraw(bool on) { m_bDebugDraw = on; }
  Real GetDamping() const { return m_Damping; }
  void SetDamping(Real damping) { m_Damping = damping; }
  Real GetTimeStepSquared() const { return m_TimeStepSquared; }
  const std::vector<CollisionPool*>& GetPools() const { return m_Pools; }
  const std::vector<Particle*>& GetParticles() const { return m_Particles; }
  const std::vector<AbstractConstraint*>& GetConstraints() const { return m_Constraints; }

 private:
  Vector3 m_ScaledForce;  // one-shot, times each particle's force scale
  Vector3 m_Force;        // one-shot
  Real m_TimeStepSquared;
  std::vector<CollisionPool*> m_Pools;  // all borrowed
  std::vector<CollisionPool*> m_PoolsToAdd;
  std::vector<CollisionPool*> m_PoolsToRemove;
  std::vector<Particle*> m_Particles;
  std::vector<Particle*> m_ParticlesToAdd;
  std::vector<Particle*> m_ParticlesToRemove;
  std::vector<AbstractConstraint*> m_Constraints;
  std::vector<AbstractConstraint*> m_ConstraintsToAdd;
  std::vector<AbstractConstraint*> m_ConstraintsToRemove;
  Real m_Damping = Real(1);
  bool m_bDebugDraw = false;
  bool m_bInStep = false;
  Prealloc<ProjectedHull> m_NodeBlock;      // owns every list node
  std::vector<ProjectedHull*> m_FreeNodes;  // capacity: the hull count
};

}  // namespace nox
