#include "agents/RefPointFactory.h"

#include "agents/RefPoint.h"

namespace nox {

Agent* RefPointFactory::CreateAgent(AgentEntry* entry, const AgentStyle* style,
                                    const AttributeList& attributes) {
  if (!entry->m_pContextPool) return nullptr;
  RefPoint* point = new RefPoint(*entry->m_pContextPool, entry->m_Position);
  point->SetPosition(entry->m_Position);
  Configure(point, style, attributes);
  return point;
}

}  // namespace nox
