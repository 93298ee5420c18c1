// A list of agents that can be changed while it is being walked. While Update walks
// the list, AddAgent, RemoveAgent and DestroyAgent only queue; the queues are worked
// off after the walk, removals first, then destructions, then additions. So an agent
// queued for adding and removing in one frame stays, and one destroyed by a
// neighbour earlier in the list is still updated in that frame.
//
// The container owns what it holds: DestroyAgent and DestroyAllAgents delete.
// RemoveAgent hands the agent back to the caller. Everything added takes m_pOwner as
// its parent (null for the scene's engine) and gets the container as a listener.
//
// Sized with a count, the four vectors never grow during play for up to that many
// agents; a frame that changes nothing allocates nothing.
#pragma once
#include <vector>

#include "agents/Agent.h"
#include "core/EventListener.h"
#include "core/Vector2.h"

namespace nox {

class Entity;

class AgentContainer : public EventListener<Agent> {
 public:
  explicit AgentContainer(Agent* owner);
  // Reserves `count` slots in each vector.
  AgentContainer(Agent* owner, unsigned long count);
  // Deletes nothing: owners call DestroyAllAgents first.
  virtual ~AgentContainer();

  void OnEventOccurred(Agent* source, const EventData* data) override {}
  virtual void OnChildDestroyed(Agent* child) {}
  virtual void Pause() { m_bPaused = true; }
  virtual void Resume() { m_bPaused = false; }
  // Updates the enabled agents (unless paused), then works off the queues.
  virtual void Update(unsigned long dt);
  // Element `index`; null past the end.
  virtual Agent* GetAgentById(unsigned long index) const;
  // The first agent with this name, or null. 0 finds the first agent without a name.
  virtual Agent* GetAgentByName(NameHash name) const;

  void AddAgent(Agent* agent);
  void RemoveAgent(Agent* agent);
  void DestroyAgent(Agent* agent);
  void ProcessQueues();

  // The first enabled entity, in list order, whose animation is hit at `point`.
  Entity* FindEntityAtPoint(const Vector2& point) const;

  // Forgets all agents and queued changes without telling anyone.
  void RemoveAllAgents();
  // Works off the queues, then Deinit on each agent.
  void DeinitAllAgents();
  // Works off the queues, then deletes each agent (without Deinit) and empties the list.
  void DestroyAllAgents();

  bool IsPaused() const { return m_bPaused; }
  bool IsUpdating() const { return m_bUpdating; }
  const std::vector<Agent*>& GetAgents() const { return m_Agents; }
  unsigned long GetAgentCount() const { return static_cast<unsigned long>(m_Agents.size()); }

 protected:
  virtual void DoAddAgent(Agent* agent);
  virtual void DoRemoveAgent(Agent* agent);
  virtual void DoDestroyAgent(Agent* agent);
  static Agent* GetAgentByName(const std::vector<Agent*>& agents, NameHash name);

  // While set, changes queue. Arenas set it while they create their agents.
  void SetUpdating(bool updating) { m_bUpdating = updating; }

  std::vector<Agent*> m_Agents;  // owned, in order of adding
  std::vector<Agent*> m_AddQueue;
  std::vector<Agent*> m_DestroyQueue;
  std::vector<Agent*> m_RemoveQueue;
  Agent* m_pOwner;  // borrowed; parent of everything added
  bool m_bPaused = false;
  bool m_bUpdating = false;  // true while Update walks m_Agents
};

}  // namespace nox
