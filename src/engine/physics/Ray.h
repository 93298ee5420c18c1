// A segment between two particles, traced against a list of pools: the first hit
// of the first pool in order wins. The particles and pools are borrowed. The hull
// argument and the flag of resolveIntersection are for rays that derive from this
// one; the base ignores them.
#pragma once
#include <vector>

#include "core/Vector3.h"

namespace nox {

class AbstractHull;
class CollisionPool;
class Particle;

class Ray {
 public:
  Ray() = default;
  virtual ~Ray() = default;

  virtual Vector3 getOriginPosition() const;
  virtual Vector3 getDestinationPosition() const;
  virtual void Draw() {}
  // From the origin particle to the destination particle, through the ray's pools.
  virtual bool resolveIntersection(AbstractHull* hull, Vector3& out, bool flag);
  // Traces each pool in order; true at the first hit, with the point in `out`. With
  // no hit `out` is the destination.
  virtual bool resolveIntersection(const Vector3& origin, const Vector3& destination,
                                   std::vector<CollisionPool*>& pools, AbstractHull* hull, Vector3& out,
                                   bool flag);

  void Init(Particle* origin, Particle* destination);
  void Init(Particle* origin, Particle* destination, CollisionPool* pool);
  void Init(Particle* origin, Particle* destination, const std::vector<CollisionPool*>& pools);
  bool isInitialized() const { return m_bInitialized; }

  void addToIntersectableVector(CollisionPool* pool) { m_Pools.push_back(pool); }
  // Removes the first entry of `pool`; an absent one is ignored.
  void removeFromIntersectableVector(CollisionPool* pool);
  void clearIntersectableVector() { m_Pools.clear(); }
  const std::vector<CollisionPool*>& getIntersectableVector() const { return m_Pools; }

 private:
  Particle* m_pOrigin = nullptr;       // borrowed
  Particle* m_pDestination = nullptr;  // borrowed
  bool m_bInitialized = false;
  std::vector<CollisionPool*> m_Pools;  // borrowed
};

}  // namespace nox
