// Builds the agents of one type for the level loader. A factory's CreateAgent
// constructs the agent with the entry's context pool and position, applies the
// style, then the attributes (so attributes win over the style), calls Init and
// returns the agent; the caller adds it to the arena's container. It may return null
// when it cannot build one.
#pragma once
#include "agents/AgentEntry.h"
#include "agents/AttributeList.h"

namespace nox {

class Agent;

class AgentFactory {
 public:
  virtual ~AgentFactory() = default;
  virtual Agent* CreateAgent(AgentEntry* entry, const AgentStyle* style, const AttributeList& attributes) = 0;
  // The NameHash of the type name that levels use for this factory.
  virtual NameHash GetElementTypeId() const = 0;

 protected:
  // Steps 3 to 6 of every factory: position, style, attributes, Init.
  static void Configure(Agent* agent, const AgentStyle* style, const AttributeList& attributes);
};

}  // namespace nox
