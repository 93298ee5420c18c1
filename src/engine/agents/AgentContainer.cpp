#include "agents/AgentContainer.h"

#include <algorithm>

#include "agents/Entity.h"
#include "graphics/Animation.h"

namespace nox {
namespace {

bool Contains(const std::vector<Agent*>& list, const Agent* agent) {
  return std::find(list.begin(), list.end(), agent) != list.end();
}

// Keeps the order of the others.
void Erase(std::vector<Agent*>& list, const Agent* agent) {
  auto it = std::find(list.begin(), list.end(), agent);
  if (it != list.end()) list.erase(it);
}

}  // namespace

AgentContainer::AgentContainer(Agent* owner) : m_pOwner(owner) {}

AgentContainer::AgentContainer(Agent* owner, unsigned long count) : m_pOwner(owner) {
  m_Agents.reserve(count);
  m_AddQueue.reserve(count);
  m_DestroyQueue.reserve(count);
  m_RemoveQueue.reserve(count);
}

AgentContainer::~AgentContainer() = default;

void AgentContainer::Update(unsigned long dt) {
  if (!m_bPaused) {
    m_bUpdating = true;
    // By index: the list does not change during the walk, but nothing is lost if a
    // subclass adds directly.
    for (size_t i = 0; i < m_Agents.size(); ++i) {
      Agent* agent = m_Agents[i];
      if (agent->IsEnabled()) agent->Update(dt);
    }
    m_bUpdating = false;
  }
  ProcessQueues();
}

Agent* AgentContainer::GetAgentById(unsigned long index) const {
  return index < m_Agents.size() ? m_Agents[index] : nullptr;
}

Agent* AgentContainer::GetAgentByName(NameHash name) const {
  return GetAgentByName(m_Agents, name);
}

Agent* AgentContainer::GetAgentByName(const std::vector<Agent*>& agents, NameHash name) {
  for (Agent* agent : agents) {
    if (agent && agent->GetName() == name) return agent;
  }
  return nullptr;
}

void AgentContainer::AddAgent(Agent* agent) {
  if (m_bUpdating) {
    m_AddQueue.push_back(agent);
  } else {
    DoAddAgent(agent);
  }
}

void AgentContainer::RemoveAgent(Agent* agent) {
  if (m_bUpdating) {
    m_RemoveQueue.push_back(agent);
  } else {
    DoRemoveAgent(agent);
  }
}

void AgentContainer::DestroyAgent(Agent* agent) {
  if (m_bUpdating) {
    // Queued once only: a second entry would delete it twice.
    if (!Contains(m_DestroyQueue, agent)) m_DestroyQueue.push_back(agent);
  } else {
    DoDestroyAgent(agent);
  }
}

void AgentContainer::ProcessQueues() {
  // By index and without iterators: a Deinit or a destructor may queue more.
  for (size_t i = 0; i < m_RemoveQueue.size(); ++i) DoRemoveAgent(m_RemoveQueue[i]);
  m_RemoveQueue.clear();
  for (size_t i = 0; i < m_DestroyQueue.size(); ++i) DoDestroyAgent(m_DestroyQueue[i]);
  m_DestroyQueue.clear();
  for (size_t i = 0; i < m_AddQueue.size(); ++i) DoAddAgent(m_AddQueue[i]);
  m_AddQueue.clear();
}

void AgentContainer::DoAddAgent(Agent* agent) {
  if (!agent || Contains(m_Agents, agent)) return;
  m_Agents.push_back(agent);
  agent->SetParent(m_pOwner);
  agent->AddEventListener(this);
}

void AgentContainer::DoRemoveAgent(Agent* agent) {
  auto it = std::find(m_Agents.begin(), m_Agents.end(), agent);
  if (it == m_Agents.end()) return;
  m_Agents.erase(it);
  agent->SetParent(nullptr);
  agent->RemoveEventListener(this);
}

void AgentContainer::DoDestroyAgent(Agent* agent) {
  if (!agent) return;
  DoRemoveAgent(agent);
  // An agent made and destroyed within one update is still waiting to be added;
  // adding it after the delete would keep a dangling pointer.
  Erase(m_AddQueue, agent);
  agent->Deinit();
  delete agent;
}

Entity* AgentContainer::FindEntityAtPoint(const Vector2& point) const {
  for (Agent* agent : m_Agents) {
    Entity* entity = TypeCast<Entity>(agent);
    if (!entity || !entity->IsEnabled()) continue;
    const Animation* animation = entity->GetAnimation();
    if (animation && animation->HitTest(point)) return entity;
  }
  return nullptr;
}

void AgentContainer::RemoveAllAgents() {
  m_Agents.clear();
  m_AddQueue.clear();
  m_DestroyQueue.clear();
  m_RemoveQueue.clear();
}

void AgentContainer::DeinitAllAgents() {
  ProcessQueues();
  for (Agent* agent : m_Agents) agent->Deinit();
}

void AgentContainer::DestroyAllAgents() {
  ProcessQueues();
  for (Agent* agent : m_Agents) {
    agent->SetParent(nullptr);
    agent->RemoveEventListener(this);
    delete agent;
  }
  m_Agents.clear();
}

}  // namespace nox
