#include "agents/AgentFactory.h"

#include "agents/Agent.h"

namespace nox {

void AgentFactory::Configure(Agent* agent, const AgentStyle* style, const AttributeList& attributes) {
  if (style) style->Apply(agent);
  attributes.Apply(agent);
  agent->Init();
}

}  // namespace nox
