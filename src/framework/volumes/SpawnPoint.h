// A named position in a level where a character may appear: the scene asks its arena
// for the spawn point's position by the name the level gave it ("id").
#pragma once
#include "agents/Entity.h"

namespace noxfw {

class SpawnPoint : public nox::Entity {
  NOX_RTTI_DECLARE

 public:
  SpawnPoint(nox::ContextPool& pool, const nox::Vector3& position)
      : nox::Entity(pool), m_Position(position) {}

  void Update(unsigned long dt) override {}
  void SetPosition(const nox::Vector3& position) override { m_Position = position; }
  nox::Vector3 GetPosition() const override { return m_Position; }

 private:
  nox::Vector3 m_Position;  // world units, z 0
};

}  // namespace noxfw
