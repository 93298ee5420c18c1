// World scenes: the level read into arenas, walls and tables, the arenas brought in
// and changed, the scene's bounds, the game lock, and a level that is not there.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "../../engine/files/TestFiles.h"
#include "agents/RefPoint.h"
#include "agents/RefPointFactory.h"
#include "core/EventListener.h"
#include "core/GameHost.h"
#include "level/Arena.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"
#include "physics/CollisionPool.h"
#include "scenes/WorldScene.h"
#include "volumes/SpawnPointFactory.h"

namespace {

namespace Host = Hollin::Ostra::Host;
using nox::HashString;
using nox::Real;
using noxfw::Arena;
using noxfw::WorldScene;

// Stands in for the game's characters: a RefPoint made under another type name.
class StandInFactory : public nox::RefPointFactory {
 public:
  explicit StandInFactory(const char* type) : m_Type(HashString(type)) {}
  nox::NameHash GetElementTypeId() const override { return m_Type; }

 private:
  nox::NameHash m_Type;
};

class TestWorldScene : public WorldScene, public nox::EventListener<WorldScene> {
 public:
  TestWorldScene() { nox::EventSource<WorldScene>::AddEventListener(this); }
  ~TestWorldScene() override { nox::EventSource<WorldScene>::RemoveEventListener(this); }

  void RegisterFactories() override {
    ++factoryRegistrations;
    GetFactoryManager().Register(new nox::RefPointFactory());
    GetFactoryManager().Register(new noxfw::SpawnPointFactory());
    GetFactoryManager().Register(new StandInFactory("AdventureCharacter"));
  }
  void Unload() override { arenasAtUnload = static_cast<long>(GetLevel().GetArenaCount()); }
  void ArenaTransitionOccurred() override { transitions.push_back(GetCurrentArenaIndex()); }
  void OnEventOccurred(WorldScene* source, const nox::EventData* data) override {
    events.push_back(data->m_Param);
  }

  int factoryRegistrations = 0;
  long arenasAtUnload = -1;
  std::vector<long> transitions;
  std::vector<uint32_t> events;
};

std::string H(const char* name) {
  return std::to_string(HashString(name));
}

// An arena element with `points` RefPoints.
std::string ArenaText(const char* name, int left, int right, int points) {
  std::string s = H("Arena") + " " + name + " 0 " + std::to_string(left) + " -8 " + std::to_string(right) +
                  " 300 " + std::to_string(points) + " 0 0 0\n";
  for (int i = 0; i < points; ++i) s += H("RefPoint") + " P 0 0 " + std::to_string(left + i) + " 10\n";
  return s;
}

class WorldSceneTest : public ::testing::Test {
 protected:
  WorldSceneTest() : m_Log(m_Dir) {
    Host::HostConfig config;
    config.logFile = m_Dir / "automation.log";
    config.saveRoot = m_Dir / "players";
    config.clock = Host::ClockMode::kVirtual;
    config.headless = true;
    config.quiet = true;
    Host::SetHostConfig(config);
    nox::GameHost::Create();
  }
  ~WorldSceneTest() override { nox::GameHost::Destroy(); }

  std::string WriteLevel(const std::string& text) {
    const std::string path = m_Dir / "Test.fun";
    std::ofstream(path) << text;
    return path;
  }

  testfiles::TempDir m_Dir;
  testfiles::AutomationLog m_Log;
};

TEST_F(WorldSceneTest, TheGameLockStaysWithItsHolderUntilThatHolderReleasesIt) {
  TestWorldScene scene;
  EXPECT_TRUE(scene.HasPermissionToUpdate(5));
  EXPECT_TRUE(scene.AcquireGameLock(5));
  EXPECT_FALSE(scene.AcquireGameLock(7));
  EXPECT_EQ(scene.GetGameLockHolder(), 5u);
  EXPECT_TRUE(scene.HasPermissionToUpdate(5));
  EXPECT_FALSE(scene.HasPermissionToUpdate(7));
  scene.ReleaseGameLock(7);  // not the holder: nothing
  EXPECT_EQ(scene.GetGameLockHolder(), 5u);
  scene.ReleaseGameLock(5);
  EXPECT_TRUE(scene.HasPermissionToUpdate(7));
  EXPECT_TRUE(scene.AcquireGameLock(7));
}

TEST_F(WorldSceneTest, TheLevelWatchCountsOnlyWhileItsHolderMayUpdate) {
  TestWorldScene scene;
  scene.Update(16);
  EXPECT_EQ(scene.GetWatchFrames(), 0u);
  scene.StartLevelWatch();
  scene.Update(16);
  scene.Update(20);
  EXPECT_EQ(scene.GetWatchFrames(), 2u);
  EXPECT_EQ(scene.GetWatchMs(), 36u);
  scene.AcquireGameLock(9);
  scene.Update(16);
  scene.ReleaseGameLock(9);
  scene.PauseLevelWatch(true);
  scene.Update(16);
  scene.PauseLevelWatch(false);
  scene.Update(5);
  EXPECT_EQ(scene.GetWatchFrames(), 3u);
  EXPECT_EQ(scene.GetWatchMs(), 41u);
}

TEST_F(WorldSceneTest, OneArenaHasNoNextArenaAndGivesAllTheBounds) {
  TestWorldScene scene;
  scene.LoadLevel(WriteLevel(ArenaText("Only", -40, 700, 2)));
  scene.SetCurrentArenaIndex(3);  // past the end: back to the first
  scene.InitCurrentArenas();
  ASSERT_NE(scene.GetCurrentArena(), nullptr);
  EXPECT_EQ(scene.GetCurrentArenaIndex(), 0);
  EXPECT_EQ(scene.GetNextArena(), nullptr);
  EXPECT_TRUE(scene.GetCurrentArena()->IsLoaded());
  EXPECT_EQ(scene.GetCurrentArena()->GetAgents().size(), 2u);
  // Left clamped to 0; the rest from the arena.
  const nox::Rectangle& bounds = scene.GetSceneBounds();
  EXPECT_EQ(bounds.left, Real(0));
  EXPECT_EQ(bounds.top, Real(-8));
  EXPECT_EQ(bounds.right, Real(700));
  EXPECT_EQ(bounds.bottom, Real(300));
  EXPECT_EQ(scene.GetCamera().GetBounds().right, Real(700));
  EXPECT_FALSE(scene.GotoNextArena());
}

TEST_F(WorldSceneTest, ArenasChangeAfterTheFrameAndTheOneLeftBehindIsUnloaded) {
  TestWorldScene scene;
  scene.LoadLevel(
      WriteLevel(ArenaText("A", 0, 480, 1) + ArenaText("B", 480, 960, 2) + ArenaText("C", 960, 1440, 3)));
  scene.InitCurrentArenas();
  Arena* a = scene.GetCurrentArena();
  Arena* b = scene.GetNextArena();
  ASSERT_TRUE(a && b);
  EXPECT_EQ(scene.GetSceneBounds().right, Real(960));  // reaches over the next arena
  EXPECT_TRUE(b->IsLoaded());

  EXPECT_TRUE(scene.GotoNextArena());
  EXPECT_EQ(scene.GetCurrentArena(), a);  // not before the frame
  scene.Update(16);
  EXPECT_EQ(scene.GetCurrentArena(), b);
  EXPECT_EQ(scene.FindArenaIndex(scene.GetNextArena()), 2);
  EXPECT_FALSE(a->IsLoaded());
  EXPECT_EQ(a->GetAgents().size(), 0u);
  EXPECT_EQ(scene.GetSceneBounds().left, Real(480));
  EXPECT_EQ(scene.GetSceneBounds().right, Real(1440));
  EXPECT_EQ(scene.transitions, std::vector<long>({1}));
  EXPECT_EQ(scene.events, std::vector<uint32_t>({1}));

  // Only the engine's arenas are updated: the one left behind is out of it.
  const std::vector<nox::Agent*>& agents = scene.GetAgentEngine().GetAgents();
  EXPECT_EQ(std::count(agents.begin(), agents.end(), a), 0);
  EXPECT_EQ(std::count(agents.begin(), agents.end(), b), 1);

  scene.GotoNextArena();
  scene.Update(16);
  EXPECT_EQ(scene.GetCurrentArenaIndex(), 2);
  EXPECT_EQ(scene.GetNextArena(), nullptr);
  EXPECT_FALSE(scene.GotoNextArena());
  EXPECT_EQ(scene.FindArenaIndex(nullptr), -1);

  // Leaving tells the subclass while the level is still there.
  scene.Leave();
  EXPECT_EQ(scene.arenasAtUnload, 3);
}

TEST_F(WorldSceneTest, ALevelThatIsNotThereLeavesNoArenasAndSaysSoOnce) {
  TestWorldScene scene;
  scene.LoadLevel("Nowhere");
  scene.LoadLevel("Nowhere");  // once only
  scene.InitCurrentArenas();
  EXPECT_TRUE(scene.IsLevelLoaded());
  EXPECT_EQ(scene.factoryRegistrations, 1);
  EXPECT_EQ(scene.GetLevel().GetArenaCount(), 0u);
  EXPECT_EQ(scene.GetCurrentArena(), nullptr);
  EXPECT_EQ(scene.GetGlobalArena(), nullptr);
  EXPECT_EQ(m_Log.Count("Nowhere.fun"), 1);
  scene.Update(16);  // a scene without arenas still runs
}

TEST_F(WorldSceneTest, TheTestLevelGivesItsArenasWallsPathsAndStrings) {
  const std::string file = std::string(NOX_BINARY_DIR) + "/title/Levels/TestLevel.fun";
  if (!std::ifstream(file)) GTEST_SKIP() << file << " is not built (target levels)";
  TestWorldScene scene;
  scene.LoadLevel(file);
  const noxfw::Level& level = scene.GetLevel();
  EXPECT_EQ(level.GetArenaCount(), 2u);
  EXPECT_EQ(level.GetPaths().size(), 1u);
  EXPECT_EQ(level.GetStringTable().GetCount(), 2u);
  EXPECT_EQ(scene.GetStringById(1), "The cave is dark.");
  EXPECT_EQ(scene.GetStringById(7), "");
  // The ground box, the edge's one segment, the rock's three sides.
  EXPECT_EQ(scene.GetGeometry().GetHullCount(), 5u);
  EXPECT_EQ(scene.GetCollisionPoolMap().GetPool(HashString("Wall"))->GetHullCount(), 5u);
  ASSERT_NE(scene.GetGlobalArena(), nullptr);
  EXPECT_EQ(scene.GetGlobalArena()->GetAgents().size(), 1u);
  scene.InitCurrentArenas();
  EXPECT_EQ(scene.GetCurrentArena()->GetAgents().size(), 4u);
  EXPECT_EQ(scene.GetNextArena()->GetAgents().size(), 2u);
  EXPECT_EQ(scene.GetCurrentArena()->GetLabel(), "Meadow");
  EXPECT_EQ(m_Log.Count("refused"), 0);

  scene.UnloadLevel();
  EXPECT_EQ(scene.GetCollisionPoolMap().GetPool(HashString("Wall"))->GetHullCount(), 0u);
  EXPECT_TRUE(scene.GetAgentEngine().GetAgents().empty());
}

}  // namespace
