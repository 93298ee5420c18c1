// One body: the particles, constraints and hulls that make it, listed with the
// engine and the pools as one. The rig owns all of them and deletes them in
// deleteTracked() (and so in its destructor); its owner fills it, for instance with
// one particle and one box for each rectangle of a sprite.
//
// Each hull is kept with the pool it belongs to, in the order added, so that
// enlisting puts hulls into pools in a repeatable order.
//
// A rig is enlisted or not; both ways are idempotent. Inside a step the change
// takes effect at the step's end. Delete a rig outside steps, before the engine.
#pragma once
#include <utility>
#include <vector>

#include "core/NoCopy.h"
#include "core/Real.h"
#include "core/Vector3.h"

namespace nox {

class AbstractConstraint;
class AbstractHull;
class CollisionPool;
class Particle;
class PhysicsEngine;

class Rig : public NoCopy {
 public:
  typedef std::pair<AbstractHull*, CollisionPool*> HullEntry;

  explicit Rig(PhysicsEngine* engine) : m_pEngine(engine) {}
  virtual ~Rig();

  // previous position = position - velocity, for each particle.
  virtual void setVelocity(const Vector3& velocity);
  virtual void addForce(const Vector3& force);
  virtual void setFixed(bool fixed);
  virtual void setFriction(Real friction);
  virtual void setElasticity(Real elasticity);

  void enlist();
  void delist();
  // Delists if needed, then deletes every constraint, hull and particle.
  void deleteTracked();
  // Moves `hull` into `pool` (null: into no pool). Only an enlisted rig's hulls are
  // in pools; a delisted rig just records the new pool.
  void setPool(AbstractHull* hull, CollisionPool* pool);

  // The rig takes ownership. An item added to an enlisted rig is listed at once.
  void addParticle(Particle* particle);
  void addConstraint(AbstractConstraint* constraint);
  void addHull(AbstractHull* hull, CollisionPool* pool);

  bool isEnlisted() const { return m_bEnlisted; }
  PhysicsEngine* getEngine() const { return m_pEngine; }
  const std::vector<Particle*>& getParticles() const { return m_Particles; }
  const std::vector<AbstractConstraint*>& getConstraints() const { return m_Constraints; }
  const std::vector<HullEntry>& getHulls() const { return m_Hulls; }
  // Null when the hull is not in this rig or has no pool.
  CollisionPool* getPool(const AbstractHull* hull) const;

 protected:
  PhysicsEngine* m_pEngine;                        // borrowed
  std::vector<Particle*> m_Particles;              // owned
  std::vector<AbstractConstraint*> m_Constraints;  // owned
  std::vector<HullEntry> m_Hulls;                  // hulls owned, pools borrowed
  bool m_bEnlisted = false;
};

}  // namespace nox
