// Scripted messages of a level: an ActionList is a run of actions that an arena
// executes at once, each sending one code with one argument to an agent of the arena
// by its index. The arrays belong to the arena that read them.
#pragma once
#include <cstdint>

#include "core/HashString.h"

namespace nox {

struct AgentContext;

struct Action {
  uint32_t m_AgentIndex;  // place in the arena's agent list
  NameHash m_Code;
  int32_t m_Argument;
};

struct ActionList {
  AgentContext* m_pContext = nullptr;  // borrowed
  uint32_t m_Count = 0;
  Action* m_pActions = nullptr;  // borrowed from the arena's action array
};

}  // namespace nox
