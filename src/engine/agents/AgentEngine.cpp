#include "agents/AgentEngine.h"

namespace nox {

AgentEngine::~AgentEngine() = default;

void AgentEngine::PrepareForUnload() {
  for (size_t i = 0; i < m_Agents.size(); ++i) m_Agents[i]->PrepareForUnload();
}

}  // namespace nox
