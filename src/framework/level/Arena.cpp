#include "level/Arena.h"

#include "agents/AgentFactoryManager.h"
#include "agents/Entity.h"
#include "core/Debug.h"
#include "level/LevelTokens.h"
#include "level/StyleManager.h"
#include "volumes/SpawnPoint.h"

namespace noxfw {

NOX_RTTI_DEFINE(Arena, nox::Agent);

Arena::Arena(nox::ContextPool& pool, nox::AgentFactoryManager* factories, nox::Scene* scene)
    : nox::Agent(pool), nox::AgentContainer(this, kMaxAgents), m_pFactories(factories), m_pScene(scene) {}

Arena::~Arena() {
  Unload();
}

void Arena::ClearData() {
  m_Entries.clear();
  m_Pairs.clear();
  m_ActionLists.clear();
  m_Actions.clear();
}

bool Arena::Refuse(std::istream& stream, const char* fileName, const char* problem) {
  ClearData();
  const char* why = problem;
  if (!problem) why = stream.eof() ? "the file ends inside it" : "a number is missing or out of range";
  nox::AutomationPrintf("Arena: %s: arena \"%s\" refused: %s", fileName ? fileName : "", m_Label.c_str(),
                        why);
  stream.setstate(std::ios::failbit);
  return false;
}

bool Arena::Read(std::istream& in, size_t available, const char* fileName) {
  ClearData();
  m_Label.clear();
  if (!(in >> m_Label)) return Refuse(in, fileName, nullptr);
  // Names are one word; a long one is most likely not a name at all.
  if (m_Label.size() > 64) m_Label.resize(64);

  uint32_t number, agents, attributes, lists, actions;
  if (!ReadLevelUnsigned(in, number)) return Refuse(in, fileName, nullptr);
  for (int32_t& bound : m_Bounds) {
    if (!ReadLevelSigned(in, bound)) return Refuse(in, fileName, nullptr);
  }
  if (!ReadLevelUnsigned(in, agents) || !ReadLevelUnsigned(in, attributes) || !ReadLevelUnsigned(in, lists) ||
      !ReadLevelUnsigned(in, actions)) {
    return Refuse(in, fileName, nullptr);
  }
  if (agents > kMaxAgents) return Refuse(in, fileName, "more agents than an arena holds (75)");
  // Every token takes at least one character and one separator: counts that need more
  // text than is left are refused before anything is allocated for them.
  const uint64_t tokens = 6ull * agents + 2ull * attributes + lists + 3ull * actions;
  if (tokens > available / 2 + 1) return Refuse(in, fileName, "its counts are larger than what follows");

  m_Entries.resize(agents);
  m_Pairs.resize(attributes);
  m_ActionLists.resize(lists);
  m_Actions.resize(actions);
  if (!ReadAgents(in) || !ReadActions(in)) {
    const bool counts = !in.fail();
    return Refuse(in, fileName,
                  counts ? "its per-agent or per-list counts do not add up to the totals" : nullptr);
  }
  return true;
}

bool Arena::ReadAgents(std::istream& in) {
  size_t pair = 0;
  for (nox::AgentEntry& entry : m_Entries) {
    int32_t x, y;
    if (!ReadLevelUnsigned(in, entry.m_Type) || !SkipLevelWord(in) || !ReadLevelUnsigned(in, entry.m_Style) ||
        !ReadLevelUnsigned(in, entry.m_NumAttributes) || !ReadLevelSigned(in, x) || !ReadLevelSigned(in, y)) {
      return false;
    }
    if (entry.m_NumAttributes > m_Pairs.size() - pair) return false;
    for (uint32_t i = 0; i < entry.m_NumAttributes; ++i, ++pair) {
      if (!ReadLevelUnsigned(in, m_Pairs[pair].m_Key) || !ReadLevelSigned(in, m_Pairs[pair].m_Value))
        return false;
    }
    entry.m_Position = nox::Vector3(nox::Real(x), nox::Real(y), nox::Real());
    entry.m_pScene = m_pScene;
    entry.m_pContextPool = m_pContextPool;
    entry.m_pContainer = this;
  }
  return pair == m_Pairs.size();
}

bool Arena::ReadActions(std::istream& in) {
  size_t action = 0;
  for (nox::ActionList& list : m_ActionLists) {
    if (!ReadLevelUnsigned(in, list.m_Count)) return false;
    if (list.m_Count > m_Actions.size() - action) return false;
    list.m_pContext = m_pContextPool->m_pAgentContext;
    list.m_pActions = m_Actions.data() + action;
    action += list.m_Count;
  }
  if (action != m_Actions.size()) return false;
  for (nox::Action& a : m_Actions) {
    if (!ReadLevelUnsigned(in, a.m_AgentIndex) || !ReadLevelUnsigned(in, a.m_Code) ||
        !ReadLevelSigned(in, a.m_Argument)) {
      return false;
    }
  }
  return true;
}

void Arena::Load() {
  if (m_bLoaded) return;
  m_bLoaded = true;
  for (size_t i = 0; i < m_Entries.size(); ++i) {
    if (!m_pFactories || !m_pFactories->HasFactory(m_Entries[i].m_Type)) {
      nox::AutomationPrintf(
          "Arena: \"%s\": no factory makes agent type %u (agent %zu); the arena stays empty", m_Label.c_str(),
          static_cast<unsigned>(m_Entries[i].m_Type), i);
      return;
    }
  }
  // Agents made here go through the add queue, as if made during an update.
  SetUpdating(true);
  const nox::KeyValuePair* pairs = m_Pairs.data();
  for (nox::AgentEntry& entry : m_Entries) {
    const nox::AttributeList attributes(pairs, entry.m_NumAttributes);
    pairs += entry.m_NumAttributes;
    nox::Agent* agent = m_pFactories->CreateAgent(&entry, StyleManager::Find(entry.m_Style), attributes);
    if (agent) AddAgent(agent);
  }
  SetUpdating(false);
  ProcessQueues();
}

void Arena::Unload() {
  if (!m_bLoaded) return;
  DeinitAllAgents();
  DestroyAllAgents();
  m_bLoaded = false;
  m_bDone = false;
}

void Arena::Update(unsigned long dt) {
  if (!m_bLoaded) return;
  nox::AgentContainer::Update(dt);
  if (!m_bDone) m_bDone = CheckDone();
}

void Arena::PrePhysics() {
  if (!m_bLoaded) return;
  SetUpdating(true);
  for (nox::Agent* agent : m_Agents) {
    nox::Entity* entity = nox::TypeCast<nox::Entity>(agent);
    if (entity && entity->IsEnabled()) entity->PrePhysics();
  }
  SetUpdating(false);
}

void Arena::PostPhysics() {
  if (!m_bLoaded) return;
  SetUpdating(true);
  for (nox::Agent* agent : m_Agents) {
    nox::Entity* entity = nox::TypeCast<nox::Entity>(agent);
    if (entity && entity->IsEnabled()) entity->PostPhysics();
  }
  SetUpdating(false);
}

void Arena::Execute(const nox::ActionList& list) {
  if (!list.m_pActions) return;
  for (uint32_t i = 0; i < list.m_Count; ++i) {
    const nox::Action& action = list.m_pActions[i];
    nox::Agent* target = GetAgentById(action.m_AgentIndex);
    if (target) target->HandleAction(action.m_Code, static_cast<uint32_t>(action.m_Argument));
  }
}

nox::Vector3 Arena::GetSpawnPos(nox::NameHash id) const {
  for (nox::Agent* agent : m_Agents) {
    const SpawnPoint* point = nox::TypeCast<SpawnPoint>(agent);
    if (point && (id == 0 || point->GetName() == id)) return point->GetPosition();
  }
  return nox::Vector3();
}

const nox::ActionList* Arena::GetActionList(unsigned long index) const {
  return index < m_ActionLists.size() ? &m_ActionLists[index] : nullptr;
}

void Arena::LinkAfter(Arena* previous) {
  m_pPrevious = previous;
  if (previous) previous->m_pNext = this;
}

}  // namespace noxfw
