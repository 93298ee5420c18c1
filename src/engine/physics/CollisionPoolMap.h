// The pools of a scene by name. The map owns its pools; defining a pool registers
// it with the engine, and SetInteraction fills the pools' tables. Destroy the map
// before the engine, and never inside a step.
#pragma once
#include <map>
#include <string>

#include "core/HashString.h"
#include "core/NoCopy.h"
#include "physics/CollisionInfo.h"

namespace nox {

class CollisionPool;
class PhysicsEngine;

class CollisionPoolMap : public NoCopy {
 public:
  explicit CollisionPoolMap(PhysicsEngine& engine) : m_pEngine(&engine) {}
  virtual ~CollisionPoolMap();

  // The pool of that name, made and registered with the engine on first use; the
  // colour and stacking flag of an existing pool are left as they are.
  CollisionPool* AddDefinition(const std::string& name, unsigned long colour, bool stacking);
  // Null for a name never defined.
  CollisionPool* GetPool(NameHash name) const;
  // Adds b to a's table; nothing if either is unknown.
  void SetInteraction(NameHash a, NameHash b, InteractionType::eInteractionType type);
  // Deletes every pool.
  void Destroy();

 private:
  std::map<NameHash, CollisionPool*> m_Pools;  // owned
  PhysicsEngine* m_pEngine;                    // borrowed
};

}  // namespace nox
