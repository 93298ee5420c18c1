// The factories of a scene, by type. It owns them: registering a second factory of
// the same type deletes the first, and the destructor deletes all. UnRegister hands a
// factory back to the caller.
#pragma once
#include <map>

#include "agents/AgentFactory.h"
#include "core/NoCopy.h"

namespace nox {

class AgentFactoryManager : public NoCopy {
 public:
  AgentFactoryManager() = default;
  virtual ~AgentFactoryManager();

  virtual void Register(AgentFactory* factory);
  virtual void UnRegister(AgentFactory* factory);
  // The agent from the factory of entry->m_Type; null when no factory has the type.
  virtual Agent* CreateAgent(AgentEntry* entry, const AgentStyle* style, const AttributeList& attributes);

  bool HasFactory(NameHash type) const { return m_Factories.count(type) != 0; }

 private:
  std::map<NameHash, AgentFactory*> m_Factories;  // owned
};

}  // namespace nox
