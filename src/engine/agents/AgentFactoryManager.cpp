#include "agents/AgentFactoryManager.h"

namespace nox {

AgentFactoryManager::~AgentFactoryManager() {
  for (auto& entry : m_Factories) delete entry.second;
}

void AgentFactoryManager::Register(AgentFactory* factory) {
  if (!factory) return;
  AgentFactory*& slot = m_Factories[factory->GetElementTypeId()];
  if (slot != factory) delete slot;
  slot = factory;
}

void AgentFactoryManager::UnRegister(AgentFactory* factory) {
  if (!factory) return;
  auto it = m_Factories.find(factory->GetElementTypeId());
  if (it != m_Factories.end() && it->second == factory) m_Factories.erase(it);
}

Agent* AgentFactoryManager::CreateAgent(AgentEntry* entry, const AgentStyle* style,
                                        const AttributeList& attributes) {
  auto it = m_Factories.find(entry->m_Type);
  if (it == m_Factories.end()) return nullptr;
  return it->second->CreateAgent(entry, style, attributes);
}

}  // namespace nox
