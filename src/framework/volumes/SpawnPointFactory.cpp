#include "volumes/SpawnPointFactory.h"

#include "volumes/SpawnPoint.h"

namespace noxfw {

nox::Agent* SpawnPointFactory::CreateAgent(nox::AgentEntry* entry, const nox::AgentStyle* style,
                                           const nox::AttributeList& attributes) {
  if (!entry->m_pContextPool) return nullptr;
  SpawnPoint* point = new SpawnPoint(*entry->m_pContextPool, entry->m_Position);
  point->SetPosition(entry->m_Position);
  Configure(point, style, attributes);
  return point;
}

}  // namespace noxfw
