// Makes RefPoints for levels, under the type name "RefPoint".
#pragma once
#include "agents/AgentFactory.h"

namespace nox {

class RefPointFactory : public AgentFactory {
 public:
  Agent* CreateAgent(AgentEntry* entry, const AgentStyle* style, const AttributeList& attributes) override;
  NameHash GetElementTypeId() const override { return HashString("RefPoint"); }
};

}  // namespace nox
