#include "agents/StateBase.h"

#include <algorithm>

namespace nox {

NOX_RTTI_DEFINE(StateBase, RTTIBase);

void StateBase::AddTransition(unsigned long id) {
  m_Transitions.push_back(id);
}

void StateBase::RemoveTransition(unsigned long id) {
  const auto it = std::find(m_Transitions.begin(), m_Transitions.end(), id);
  if (it != m_Transitions.end()) m_Transitions.erase(it);
}

bool StateBase::IsValidTransition(unsigned long id) const {
  return std::find(m_Transitions.begin(), m_Transitions.end(), id) != m_Transitions.end();
}

}  // namespace nox
