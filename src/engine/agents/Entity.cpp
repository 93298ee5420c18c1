#include "agents/Entity.h"

namespace nox {

NOX_RTTI_DEFINE(Entity, Agent);

bool Entity::HandleAction(NameHash code, uint32_t value) {
  if (code == kActionGroup) {
    m_Group = value;
    return true;
  }
  return Agent::HandleAction(code, value);
}

}  // namespace nox
