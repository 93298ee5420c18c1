#include "WorldRunScene.h"

#include "Walker.h"
#include "agents/RefPointFactory.h"
#include "core/Debug.h"
#include "level/Arena.h"
#include "volumes/SpawnPointFactory.h"

namespace worldapp {

NOX_RTTI_DEFINE(WorldRunScene, noxfw::WorldScene);

namespace {

const uint32_t kBodyColour = 0x00FF00FF;

}  // namespace

WorldRunScene::WorldRunScene() {
  nox::CollisionPoolMap& pools = GetCollisionPoolMap();
  pools.AddDefinition("Body", kBodyColour, false);
  pools.SetInteraction(nox::HashString("Body"), nox::HashString("Wall"),
                       nox::InteractionType::eResolveAndNotify);
}

void WorldRunScene::RegisterFactories() {
  nox::AgentFactoryManager& factories = GetFactoryManager();
  factories.Register(new noxfw::SpawnPointFactory());
  factories.Register(new nox::RefPointFactory());
  factories.Register(new WalkerFactory(GetAnimDataMap()));
}

void WorldRunScene::Enter() {
  noxfw::WorldScene::Enter();
  LoadBackgrounds("", "WorldScenery");
  LoadLevel("WorldLevel");
  InitCurrentArenas();
  FinishLoad();
  LogArena();
}

void WorldRunScene::ArenaTransitionOccurred() {
  LogArena();
}

void WorldRunScene::LogArena() {
  noxfw::Arena* arena = GetCurrentArena();
  if (arena) nox::AutomationPrintf("Arena %ld %s", GetCurrentArenaIndex(), arena->GetLabel().c_str());
}

void WorldRunScene::StylusDown(const nox::Vector2& position) {
  if (position.x >= nox::Real(kRightEdge) && GotoNextArena()) return;
  const nox::Vector2 world = GetCamera().ScreenToWorld(position);
  noxfw::Arena* arena = GetCurrentArena();
  if (arena) {
    for (nox::Agent* agent : arena->GetAgents()) {
      Walker* walker = nox::TypeCast<Walker>(agent);
      if (!walker || !walker->Covers(world)) continue;
      nox::AutomationPrintf("Hit %s", walker->GetLabel().c_str());
      if (walker->GetLabel() == "Witch" && arena->GetActionList(0)) arena->Execute(*arena->GetActionList(0));
      return;
    }
  }
  nox::AutomationPrintf("Miss %d %d", world.x.ToInt(), world.y.ToInt());
}

}  // namespace worldapp
