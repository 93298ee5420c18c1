#include "level/StyleManager.h"

namespace noxfw {

StyleManager* StyleManager::sm_pInstance = nullptr;

void StyleManager::Create() {
  if (!sm_pInstance) sm_pInstance = new StyleManager();
}

void StyleManager::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

const nox::AgentStyle* StyleManager::Find(nox::NameHash name) {
  return sm_pInstance ? sm_pInstance->GetStyle(name) : nullptr;
}

void StyleManager::Load(const nox::AgentStyle* table, unsigned long count) {
  for (unsigned long i = 0; i < count; ++i) m_Styles[table[i].m_Name] = &table[i];
}

const nox::AgentStyle* StyleManager::GetStyle(nox::NameHash name) const {
  if (name == 0) return nullptr;
  auto it = m_Styles.find(name);
  return it == m_Styles.end() ? nullptr : it->second;
}

}  // namespace noxfw
