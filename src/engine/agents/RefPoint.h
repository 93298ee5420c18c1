// A bare position that a level can name: content places one where a script or a
// camera needs a point to refer to. It does nothing when updated.
#pragma once
#include "agents/Entity.h"

namespace nox {

class RefPoint : public Entity {
  NOX_RTTI_DECLARE

 public:
  RefPoint(ContextPool& pool, const Vector3& position) : Entity(pool), m_Position(position) {}

  void Update(unsigned long dt) override {}
  void SetPosition(const Vector3& position) override { m_Position = position; }
  Vector3 GetPosition() const override { return m_Position; }

 private:
  Vector3 m_Position;  // world units, z 0
};

}  // namespace nox
