#include "physics/CollisionPoolMap.h"

#include "physics/CollisionPool.h"
#include "physics/PhysicsEngine.h"

namespace nox {

CollisionPoolMap::~CollisionPoolMap() {
  Destroy();
}

CollisionPool* CollisionPoolMap::AddDefinition(const std::string& name, unsigned long colour, bool stacking) {
  const NameHash hash = HashString(name);
  auto it = m_Pools.find(hash);
  if (it != m_Pools.end()) return it->second;
  CollisionPool* pool = new CollisionPool(*m_pEngine, colour, stacking);
  m_Pools[hash] = pool;
  m_pEngine->AddPool(pool);
  return pool;
}

CollisionPool* CollisionPoolMap::GetPool(NameHash name) const {
  auto it = m_Pools.find(name);
  return it == m_Pools.end() ? nullptr : it->second;
}

void CollisionPoolMap::SetInteraction(NameHash a, NameHash b, InteractionType::eInteractionType type) {
  CollisionPool* poolA = GetPool(a);
  CollisionPool* poolB = GetPool(b);
  if (poolA && poolB) poolA->interactsWith(poolB, type);
}

void CollisionPoolMap::Destroy() {
  for (auto& entry : m_Pools) delete entry.second;
  m_Pools.clear();
}

}  // namespace nox
