// Feeds arbitrary text to the level reader as a world scene uses it: walls, paths,
// strings and arenas, then builds every arena's agents, updates them, runs every action
// list and takes every arena down again. An arena never holds more than 75 entries.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>

#include "agents/AgentEngine.h"
#include "agents/AgentFactoryManager.h"
#include "agents/RefPointFactory.h"
#include "level/Arena.h"
#include "level/Level.h"
#include "level/LevelElements.h"
#include "level/WallEntry.h"
#include "ostra/HostConfig.h"
#include "volumes/SpawnPointFactory.h"

namespace {

class WalledLevel : public noxfw::Level {
 public:
  using noxfw::Level::Level;
  bool LoadElement(nox::LevelLoader* loader, unsigned long id, std::istringstream& stream) override {
    if (id != noxfw::kLevelElementWall) return noxfw::Level::LoadElement(loader, id, stream);
    noxfw::WallEntry wall;
    return wall.Read(stream);
  }
};

void Exercise(noxfw::Arena* arena, nox::AgentEngine& engine) {
  if (!arena) return;
  if (arena->GetEntryCount() > noxfw::Arena::kMaxAgents) std::abort();
  arena->Load();
  engine.AddAgent(arena);
  engine.Update(16);
  arena->PrePhysics();
  arena->PostPhysics();
  for (unsigned long i = 0; i < arena->GetActionListCount(); ++i) arena->Execute(*arena->GetActionList(i));
  arena->GetSpawnPos(0);
  engine.RemoveAgent(arena);
  arena->Unload();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Hollin::Ostra::Host::HostConfig config;
  config.quiet = true;
  Hollin::Ostra::Host::SetHostConfig(config);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  nox::AgentEngine engine;
  nox::AgentContext agentContext;
  agentContext.m_pAgentEngine = &engine;
  nox::ContextPool pool;
  pool.m_pAgentContext = &agentContext;
  nox::AgentFactoryManager factories;
  factories.Register(new nox::RefPointFactory());
  factories.Register(new noxfw::SpawnPointFactory());

  WalledLevel level(pool, factories, nullptr);
  level.LoadText("fuzz.fun", reinterpret_cast<const char*>(data), size);
  Exercise(level.GetGlobalArena(), engine);
  for (unsigned long i = 0; i < level.GetArenaCount(); ++i)
    Exercise(level.GetArena(static_cast<long>(i)), engine);
  return 0;
}
