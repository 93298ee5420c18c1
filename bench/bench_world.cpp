// One frame of a world scene with a full arena: noxfw::WorldScene::Update over a level
// read from a file, with 75 characters (the most an arena holds) in one arena, walls
// of every kind (a box for the ground, polylines for ramps and ledges, polygons for
// rocks), a global arena, and the camera following the first character. Each
// character plays a two-frame walk, walks one way and then the other, is pulled down
// by gravity and pushed by the others and the walls.
//
// Reported per frame: CPU time, and "allocs", the heap allocations on the benchmark's
// thread per steady frame (the target is none), with the host's counter. The sprite
// and the level are written into a temporary title directory at start; nothing is
// drawn.
#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

#include "AllocCounter.h"
#include "BenchTitle.h"
#include "agents/AgentFactory.h"
#include "agents/Character.h"
#include "agents/RefPointFactory.h"
#include "core/HashString.h"
#include "graphics/TileAnimation.h"
#include "level/Arena.h"
#include "physics/CollisionPool.h"
#include "scenes/WorldScene.h"

namespace {

using nox::HashString;
using nox::Real;
using nox::Vector2;
using nox::Vector3;

constexpr int kCharacters = 75;
constexpr int kWidth = 2400;  // of the arena, world units
constexpr unsigned long kFrameMS = 17;
const nox::NameHash kWalk = HashString("Walk");

double Allocations() {
  if (!appmanager::AllocCounter::IsAvailable()) return -1;
  appmanager::AllocCounter::CountThisThread();
  return static_cast<double>(appmanager::AllocCounter::Count());
}

// The level: a global arena with one RefPoint, one arena of the characters standing
// in a row above the ground, and the walls.
std::string LevelText() {
  std::ostringstream s;
  s << HashString("Global") << " Global 0 0 0 " << kWidth << " 272 1 0 0 0\n"
    << HashString("RefPoint") << " Home 0 0 240 136\n";
  s << HashString("Arena") << " Bench 0 0 0 " << kWidth << " 272 " << kCharacters << " 0 0 0\n";
  for (int i = 0; i < kCharacters; ++i)
    s << HashString("BenchWalker") << " w" << i << " 0 0 " << 16 + i * 31 << " 150\n";
  const nox::NameHash wall = HashString("Wall");
  // The ground: one box the width of the arena.
  s << wall << " Ground 0 0 1 4 0 240 " << kWidth << " 240 " << kWidth << " 272 0 272\n";
  // Ledges and ramps: open polylines of three points, and the arena's two side walls.
  for (int x = 100; x < kWidth; x += 300) {
    s << wall << " Ramp 1 0 1 3 " << x << " 240 " << x + 60 << " 220 " << x + 120 << " 240\n";
  }
  s << wall << " Sides 1 0 2 2 0 0 0 240 2 " << kWidth << " 0 " << kWidth << " 240\n";
  // Rocks: closed triangles (three segments each) and solid triangles (polygons).
  for (int x = 250; x < kWidth; x += 400) {
    s << wall << " Rock 2 1 4 1 3 " << x << " 236 " << x + 20 << " 226 " << x + 40 << " 236\n";
    s << wall << " Stone 0 0 1 3 " << x + 150 << " 238 " << x + 160 << " 230 " << x + 170 << " 238\n";
  }
  return s.str();
}

// Walks `m_Direction` for a while, stops, turns; gravity every frame.
class Walker : public nox::Character {
 public:
  Walker(nox::ContextPool& pool, nox::TileAnimData* data, int direction)
      : nox::Character(pool, data), m_Direction(direction) {
    SetCollisionPool(HashString("Body"));
    if (GetTileAnimation()) {
      GetTileAnimation()->SetLoop(true);
      GetTileAnimation()->Play(kWalk, direction > 0 ? 0 : 1);
    }
  }
  void Init() override {
    nox::Character::Init();
    GetCollisionHull().setElasticity(Real());
  }
  void Update(unsigned long dt) override {
    m_Clock += dt;
    if (m_Clock > 1500) {
      m_Clock = 0;
      m_Direction = -m_Direction;
    }
    SetVelocity(Vector2(m_Clock < 1100 ? Real(m_Direction) : Real(), GetVelocity().y));
    m_Body.m_Force += Vector3(Real(), Real::FromRaw(0x4000), Real());
  }

 private:
  int m_Direction;
  unsigned long m_Clock = 0;  // ms into the present walk
};

class WalkerFactory : public nox::AgentFactory {
 public:
  explicit WalkerFactory(nox::AnimDataMap& sprites) : m_Sprites(sprites) {}
  nox::Agent* CreateAgent(nox::AgentEntry* entry, const nox::AgentStyle* style,
                          const nox::AttributeList& attributes) override {
    Walker* walker = new Walker(*entry->m_pContextPool, m_Sprites.GetAnimData("BenchWorldWalker"),
                                (m_Count++ & 1) ? -1 : 1);
    walker->SetPosition(entry->m_Position);
    Configure(walker, style, attributes);
    return walker;
  }
  nox::NameHash GetElementTypeId() const override { return HashString("BenchWalker"); }

 private:
  nox::AnimDataMap& m_Sprites;
  int m_Count = 0;
};

class BenchWorldScene : public noxfw::WorldScene {
 public:
  BenchWorldScene() {
    nox::CollisionPoolMap& pools = GetCollisionPoolMap();
    pools.AddDefinition("Body", 0x00FF00FF, false);
    pools.SetInteraction(HashString("Body"), HashString("Wall"), nox::InteractionType::eResolveAndNotify);
    pools.SetInteraction(HashString("Body"), HashString("Body"), nox::InteractionType::eResolve);
  }
  void RegisterFactories() override {
    GetFactoryManager().Register(new nox::RefPointFactory());
    GetFactoryManager().Register(new WalkerFactory(GetAnimDataMap()));
  }
};

// The host over a temporary title with the sprite and the level.
struct Title : bench::BenchTitle {
  Title()
      : bench::BenchTitle("bench_world"),
        m_bReady(WriteWalker("BenchWorldWalker", 2) && Write("Levels/BenchWorld.fun", LevelText())) {}
  const bool m_bReady;
};

void BM_WorldSceneFrame(benchmark::State& state) {
  Title title;
  if (!title.m_bReady) {
    state.SkipWithError("the title could not be written");
    return;
  }
  BenchWorldScene scene;
  scene.LoadLevel("BenchWorld");
  scene.InitCurrentArenas();
  noxfw::Arena* arena = scene.GetCurrentArena();
  if (!arena || arena->GetAgents().size() != kCharacters) {
    state.SkipWithError("the level did not load its characters");
    return;
  }
  scene.TrackCharacter(&scene.GetCamera(), nox::TypeCast<nox::Character>(arena->GetAgents()[0]));
  scene.StartLevelWatch();
  // Let them land and walk a round first, so that the frames measured are steady ones.
  for (int i = 0; i < 240; ++i) scene.Update(kFrameMS);
  const double before = Allocations();
  for (auto _ : state) scene.Update(kFrameMS);
  const double frames = static_cast<double>(state.iterations());
  state.counters["allocs"] = before < 0 ? -1 : (Allocations() - before) / frames;
  state.counters["characters"] = kCharacters;
  state.counters["wall_hulls"] = scene.GetGeometry().GetHullCount();
  // Where the characters stand: all above the ground, none fallen through.
  int grounded = 0;
  for (nox::Agent* agent : arena->GetAgents()) {
    const nox::Character* c = nox::TypeCast<nox::Character>(agent);
    if (c && c->GetPosition().y <= Real(241) && c->GetPosition().y >= Real(200)) ++grounded;
  }
  state.counters["on_ground"] = grounded;
}
BENCHMARK(BM_WorldSceneFrame)->Unit(benchmark::kMicrosecond);

// A load of the level as a scene makes it on entry, and its unload: the file read, the
// walls built, the 75 characters made and brought in with their arena, then all taken
// down again. The sprite stays in the scene's sprite map after the first load, as it
// does for a scene that reloads its level. Reported per load: CPU time and "allocs".
void BM_WorldSceneLoad(benchmark::State& state) {
  Title title;
  if (!title.m_bReady) {
    state.SkipWithError("the title could not be written");
    return;
  }
  BenchWorldScene scene;
  size_t characters = 0;
  auto load = [&scene, &characters] {
    scene.LoadLevel("BenchWorld");
    scene.InitCurrentArenas();
    noxfw::Arena* arena = scene.GetCurrentArena();
    characters = arena ? arena->GetAgents().size() : 0;
    scene.UnloadLevel();
  };
  load();
  const double before = Allocations();
  for (auto _ : state) load();
  state.counters["allocs"] =
      before < 0 ? -1 : (Allocations() - before) / static_cast<double>(state.iterations());
  if (characters != kCharacters) state.SkipWithError("the level did not load its characters");
}
BENCHMARK(BM_WorldSceneLoad)->Unit(benchmark::kMicrosecond);

}  // namespace
