// One agent of a level as read from the file, before it is built: which factory
// makes it, with which style, where, and for which scene and container. The entry's
// attribute pairs follow those of the entries before it in the arena's pair array.
#pragma once
#include <cstdint>

#include "core/HashString.h"
#include "core/Vector3.h"

namespace nox {

class AgentContainer;
class Scene;
class ContextPool;

struct AgentEntry {
  NameHash m_Type = 0;   // the factory's key
  NameHash m_Style = 0;  // 0 for none
  uint32_t m_NumAttributes = 0;
  Vector3 m_Position;                      // whole world units; z is 0
  Scene* m_pScene = nullptr;               // set at load, borrowed
  ContextPool* m_pContextPool = nullptr;   // the scene's services, set at load
  AgentContainer* m_pContainer = nullptr;  // the arena's container
};

}  // namespace nox
