// An agent with a place in the world. Entities take part in the physics stages of a
// frame (PrePhysics before the step, PostPhysics after it) and join the physics
// engine while enabled and initialised: EnableImpl adds them, DisableImpl takes them
// out. This base has no body; subclasses with one override the physics hooks.
//
// The group word set by the level code 0x0B88A75A is kept for content; the engine
// gives it no meaning.
#pragma once
#include "agents/Agent.h"
#include "core/Vector3.h"

namespace nox {

class Animation;

class Entity : public Agent {
  NOX_RTTI_DECLARE

 public:
  static constexpr NameHash kActionGroup = 0x0B88A75Au;

  explicit Entity(ContextPool& pool) : Agent(pool) {}

  // The sprite that stands for the entity, or null; FindEntityAtPoint hit-tests it.
  virtual Animation* GetAnimation() const { return nullptr; }
  virtual void SetPosition(const Vector3& position) = 0;
  virtual Vector3 GetPosition() const = 0;
  virtual void PrePhysics() {}
  virtual void PostPhysics() {}
  virtual void AddToPhysicsEngine() {}
  virtual void RemoveFromPhysicsEngine() {}

  bool HandleAction(NameHash code, uint32_t value) override;
  uint32_t GetGroup() const { return m_Group; }

 protected:
  void EnableImpl() override { AddToPhysicsEngine(); }
  void DisableImpl() override { RemoveFromPhysicsEngine(); }
};

}  // namespace nox
