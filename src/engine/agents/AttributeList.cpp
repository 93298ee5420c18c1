#include "agents/AttributeList.h"

#include "agents/Agent.h"

namespace nox {

void AttributeList::Apply(Agent* agent) const {
  for (uint32_t i = 0; i < m_Count; ++i) {
    agent->HandleAction(m_pPairs[i].m_Key, static_cast<uint32_t>(m_pPairs[i].m_Value));
  }
}

const KeyValuePair* AttributeList::FindAttribute(NameHash key) const {
  for (uint32_t i = 0; i < m_Count; ++i) {
    if (m_pPairs[i].m_Key == key) return &m_pPairs[i];
  }
  return nullptr;
}

}  // namespace nox
