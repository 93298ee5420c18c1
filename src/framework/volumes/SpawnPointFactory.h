// Makes SpawnPoints for levels, under the type name "SpawnPoint".
#pragma once
#include "agents/AgentFactory.h"

namespace noxfw {

class SpawnPointFactory : public nox::AgentFactory {
 public:
  nox::Agent* CreateAgent(nox::AgentEntry* entry, const nox::AgentStyle* style,
                          const nox::AttributeList& attributes) override;
  nox::NameHash GetElementTypeId() const override { return nox::HashString("SpawnPoint"); }
};

}  // namespace noxfw
