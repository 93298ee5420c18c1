// One stretch of a level: a rectangle of the world and the agents that live in it.
// An arena reads its element from the level file once, keeping the entries, the
// attribute pairs and the scripted action lists in arrays of exact size, and builds
// its agents only when Load() is called; Unload() deletes them again, so an arena can
// be entered more than once.
//
// It is an agent itself (the scene's AgentEngine updates it) and the container of its
// agents, sized for 75 so that play never grows the lists. Its agents have it as their
// parent: an agent that destroys itself is deleted by the arena after the update.
//
// A malformed element leaves the arena empty, with one automation line naming it;
// so does an agent type that no factory makes.
#pragma once
#include <istream>
#include <string>
#include <vector>

#include "agents/Action.h"
#include "agents/Agent.h"
#include "agents/AgentContainer.h"
#include "agents/AgentEntry.h"
#include "agents/AttributeList.h"
#include "core/Vector3.h"

namespace nox {
class AgentFactoryManager;
}

namespace noxfw {

class Arena : public nox::Agent, public nox::AgentContainer {
  NOX_RTTI_DECLARE

 public:
  static constexpr unsigned long kMaxAgents = 75;

  // `factories` and `scene` are borrowed; either may be null, and then Load builds nothing.
  Arena(nox::ContextPool& pool, nox::AgentFactoryManager* factories, nox::Scene* scene);
  // Deletes the agents if loaded.
  ~Arena() override;

  // Reads the element that follows its id. `available` is the number of bytes left in
  // the stream, against which the counts are checked before anything is allocated;
  // `fileName` labels the message. On a malformed element the arena stays empty, the
  // stream is put into the failed state (nothing after it can be trusted) and the
  // result is false.
  bool Read(std::istream& stream, size_t available, const char* fileName);

  // Builds the agents: per entry the style, the factory, AddAgent. Once only.
  void Load();
  // Deinit and delete all agents.
  void Unload();

  void Update(unsigned long dt) override;
  void OnChildDestroyed(nox::Agent* child) override { DestroyAgent(child); }
  // The physics hooks of the enabled entities, in list order; changes queue meanwhile.
  void PrePhysics();
  void PostPhysics();
  // True when nothing holds the arena open. No agent of the base framework does.
  virtual bool CheckDone() { return true; }

  // Sends each action to the agent at its index; unknown indices are skipped.
  void Execute(const nox::ActionList& list);
  // The first SpawnPoint for 0, else the SpawnPoint of that name; the zero vector if none.
  nox::Vector3 GetSpawnPos(nox::NameHash id) const;
  // An agent that did not come from the level, such as the player's walker.
  void AddExternalAgent(nox::Agent* agent) { AddAgent(agent); }
  void RemoveExternalAgent(nox::Agent* agent) { RemoveAgent(agent); }

  bool IsLoaded() const { return m_bLoaded; }
  bool IsDone() const { return m_bDone; }
  // left, top, right, bottom in whole world units
  const int32_t* GetBounds() const { return m_Bounds; }
  const std::string& GetLabel() const { return m_Label; }
  unsigned long GetEntryCount() const { return static_cast<unsigned long>(m_Entries.size()); }
  unsigned long GetActionListCount() const { return static_cast<unsigned long>(m_ActionLists.size()); }
  // Null past the end.
  const nox::ActionList* GetActionList(unsigned long index) const;

  Arena* GetPrevious() const { return m_pPrevious; }
  Arena* GetNext() const { return m_pNext; }
  void LinkAfter(Arena* previous);

 private:
  bool Refuse(std::istream& stream, const char* fileName, const char* problem);
  bool ReadAgents(std::istream& stream);
  bool ReadActions(std::istream& stream);
  void ClearData();

  nox::AgentFactoryManager* m_pFactories;  // borrowed
  nox::Scene* m_pScene;                    // borrowed
  std::string m_Label;                     // the element's name word, for messages
  int32_t m_Bounds[4] = {0, 0, 0, 0};
  std::vector<nox::AgentEntry> m_Entries;
  std::vector<nox::KeyValuePair> m_Pairs;  // all agents' attributes, entry after entry
  std::vector<nox::ActionList> m_ActionLists;
  std::vector<nox::Action> m_Actions;  // all lists' actions, list after list
  Arena* m_pPrevious = nullptr;
  Arena* m_pNext = nullptr;
  bool m_bLoaded = false;
  bool m_bDone = false;
};

}  // namespace noxfw
