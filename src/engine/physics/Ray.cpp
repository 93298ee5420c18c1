#include "physics/Ray.h"

#include <algorithm>

#include "physics/CollisionPool.h"
#include "physics/Particle.h"

namespace nox {

Vector3 Ray::getOriginPosition() const {
  return m_pOrigin->m_Position;
}

Vector3 Ray::getDestinationPosition() const {
  return m_pDestination->m_Position;
}

bool Ray::resolveIntersection(AbstractHull* hull, Vector3& out, bool flag) {
  return resolveIntersection(getOriginPosition(), getDestinationPosition(), m_Pools, hull, out, flag);
}

bool Ray::resolveIntersection(const Vector3& origin, const Vector3& destination,
                              std::vector<CollisionPool*>& pools, AbstractHull* hull, Vector3& out,
                              bool flag) {
  out = destination;
  for (CollisionPool* pool : pools) {
    if (pool->Trace(origin, destination, out)) return true;
  }
  return false;
}

void Ray::Init(Particle* origin, Particle* destination) {
  m_pOrigin = origin;
  m_pDestination = destination;
  m_bInitialized = true;
}

void Ray::Init(Particle* origin, Particle* destination, CollisionPool* pool) {
  Init(origin, destination);
  addToIntersectableVector(pool);
}

void Ray::Init(Particle* origin, Particle* destination, const std::vector<CollisionPool*>& pools) {
  Init(origin, destination);
  m_Pools.insert(m_Pools.end(), pools.begin(), pools.end());
}

void Ray::removeFromIntersectableVector(CollisionPool* pool) {
  auto it = std::find(m_Pools.begin(), m_Pools.end(), pool);
  if (it != m_Pools.end()) m_Pools.erase(it);
}

}  // namespace nox
