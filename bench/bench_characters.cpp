// The world half of a frame with a full arena of characters: 75 walkers (an arena
// holds at most 75 agents) in one AgentEngine and one PhysicsEngine, on a floor of
// rectangle hulls 1920 pixels long. Each walker plays a four-frame walk whose collider
// changes height from frame to frame, walks through a small state machine (walk one
// way, stop, turn, walk back) and is pulled down by gravity; walkers push each other
// and stand on the floor, between a wall at each end.
//
// One frame is what a world scene runs: the world animation engine's update, the
// agent engine's update, PrePhysics of every character, one physics step, PostPhysics
// of every character. Reported per frame: CPU time, and "allocs", the heap
// allocations on the benchmark's thread per steady frame (the target is none), with
// the host's counter; "contacts", walkers' contact callbacks per frame, and at the
// end the number of walkers "standing" on the floor, to show the scene is alive.
// BM_CharacterPhysicsOnly leaves out the two engine updates.
//
// The walk sprite is written by the asset tools' library into a temporary title
// directory at start; nothing is drawn.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "AllocCounter.h"
#include "BenchTitle.h"
#include "agents/AgentEngine.h"
#include "agents/Character.h"
#include "agents/ContextPool.h"
#include "agents/StateBase.h"
#include "agents/StateMachine.h"
#include "core/HashString.h"
#include "graphics/AnimationEngine.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "physics/CollisionPool.h"
#include "physics/CollisionPoolMap.h"
#include "physics/PhysicsEngine.h"
#include "physics/RectangleHull.h"

namespace {

using nox::HashString;
using nox::Real;
using nox::Vector2;
using nox::Vector3;

constexpr int kCharacters = 75;
constexpr int kFloorTiles = 60;  // 32 wide
constexpr int kWallTiles = 32;   // two columns of 16, 16 high, at the ends
constexpr unsigned long kFrameMS = 17;
const nox::NameHash kWalk = HashString("Walk");

class Walker;

// Walks for a while, then hands over to the next state.
class WalkState : public nox::StateBase {
 public:
  WalkState(Walker& owner, unsigned long id, unsigned long next, unsigned long ms);
  void OnEnter() override { m_Clock = 0; }
  void OnUpdate(unsigned long dt) override;

 private:
  Walker& m_Walker;
  unsigned long m_Next;
  unsigned long m_Length;  // ms
  unsigned long m_Clock = 0;
};

class Walker : public nox::Character {
 public:
  enum { kWalking = 1, kStopped = 2 };

  Walker(nox::ContextPool& pool, nox::TileAnimData* data, int direction)
      : nox::Character(pool, data), m_Direction(direction) {
    m_States.AddState(new WalkState(*this, kWalking, kStopped, 1500));
    m_States.AddState(new WalkState(*this, kStopped, kWalking, 400));
    GetCollisionHull().setElasticity(Real());
    if (GetTileAnimation()) {
      GetTileAnimation()->SetLoop(true);
      GetTileAnimation()->Play(kWalk, direction > 0 ? 0 : 2);
    }
  }
  void Init() override {
    nox::Character::Init();
    GetCollisionHull().setElasticity(Real());
    m_States.InitStateMachine(kWalking);
  }
  void Update(unsigned long dt) override { m_States.Update(dt); }
  void OnCollision(const nox::CollisionInfo& info) override { ++m_Contacts; }

  void Walk(bool moving) {
    const Vector3 v = GetVelocity();
    SetVelocity(Vector2(moving ? Real(m_Direction) : Real(), v.y));
  }
  void Turn() { m_Direction = -m_Direction; }
  nox::StateMachine& States() { return m_States; }
  long m_Contacts = 0;

 private:
  nox::StateMachine m_States;
  int m_Direction;
};

WalkState::WalkState(Walker& owner, unsigned long id, unsigned long next, unsigned long ms)
    : nox::StateBase(owner, id), m_Walker(owner), m_Next(next), m_Length(ms) {}

void WalkState::OnUpdate(unsigned long dt) {
  m_Walker.Walk(GetId() == Walker::kWalking);
  m_Clock += dt;
  if (m_Clock < m_Length) return;
  if (GetId() == Walker::kStopped) m_Walker.Turn();
  m_Walker.States().SwitchToState(m_Next);
}

class CharacterArena {
 public:
  explicit CharacterArena(nox::TileAnimData* data) {
    m_AgentContext.m_pAgentEngine = &m_Agents;
    m_AnimationContext.m_pWorldEngine = &m_Animations;
    m_PhysicsContext.m_pPhysicsEngine = &m_Physics;
    m_PhysicsContext.m_pCollisionPoolMap = &m_Pools;
    m_Context.m_pAgentContext = &m_AgentContext;
    m_Context.m_pAnimationContext = &m_AnimationContext;
    m_Context.m_pPhysicsContext = &m_PhysicsContext;

    nox::CollisionPool* wall = m_Pools.AddDefinition("Wall", 0x808080FF, false);
    m_Pools.AddDefinition("PlayerCollision", 0x00FF00FF, false);
    m_Pools.SetInteraction(HashString("PlayerCollision"), HashString("Wall"), nox::InteractionType::eResolve);
    m_Pools.SetInteraction(HashString("PlayerCollision"), HashString("PlayerCollision"),
                           nox::InteractionType::eResolveAndNotify);
    for (int i = 0; i < kFloorTiles; ++i) AddStatic(wall, 16 + i * 32, 264, 32, 16);
    for (int i = 0; i < kWallTiles / 2; ++i) {
      AddStatic(wall, 8, 8 + i * 16, 16, 16);
      AddStatic(wall, 1912, 8 + i * 16, 16, 16);
    }
    for (int i = 0; i < kCharacters; ++i) {
      Walker* walker = new Walker(m_Context, data, i % 2 ? 1 : -1);
      walker->SetCollisionPool(HashString("PlayerCollision"));
      walker->SetPosition(Vector3(Real(24 + i * 25), Real(120 + (i * 37) % 100), Real(i % 10)));
      walker->Init();
      m_Agents.AddAgent(walker);
      m_Walkers.push_back(walker);
    }
  }
  ~CharacterArena() {
    m_Agents.DeinitAllAgents();
    m_Agents.DestroyAllAgents();
    for (auto& hull : m_FloorHulls) m_Pools.GetPool(HashString("Wall"))->removeHull(hull.get());
    m_Pools.Destroy();
  }

  void EngineUpdates() {
    m_Animations.Update(kFrameMS);
    m_Agents.Update(kFrameMS);
  }
  void Physics() {
    m_Physics.addScaledForce(Vector3(Real(), Real::FromRaw(0x6000), Real()));
    for (Walker* w : m_Walkers) w->PrePhysics();
    m_Physics.step(1);
    for (Walker* w : m_Walkers) w->PostPhysics();
  }
  void Frame() {
    EngineUpdates();
    Physics();
  }
  void AddStatic(nox::CollisionPool* pool, int x, int y, int width, int height) {
    m_Floor.emplace_back(new nox::Particle(Vector3(Real(x), Real(y), Real())));
    m_Floor.back()->m_bFixed = true;
    m_Floor.back()->m_bMoved = false;  // level geometry is projected once
    m_FloorHulls.emplace_back(new nox::RectangleHull(m_Floor.back().get(), Real(width), Real(height), Real(),
                                                     Real(), nullptr, &m_FloorOwner, Real(2000)));
    pool->addHull(m_FloorHulls.back().get());
  }
  long Contacts() const {
    long n = 0;
    for (const Walker* w : m_Walkers) n += w->m_Contacts;
    return n;
  }
  // Walkers whose feet are on the floor's top (y 256), within a pixel.
  int Standing() const {
    int n = 0;
    for (const Walker* w : m_Walkers) {
      const Real y = w->GetPosition().y;
      n += y >= Real(255) && y <= Real(257);
    }
    return n;
  }
  bool Ready() const { return m_Walkers.size() == kCharacters && m_Walkers.front()->GetTileAnimation(); }

 private:
  nox::AgentEngine m_Agents;
  nox::AnimationEngine m_Animations;
  nox::PhysicsEngine m_Physics{Real(1), 825};
  nox::CollisionPoolMap m_Pools{m_Physics};
  nox::AgentContext m_AgentContext;
  nox::AnimationContext m_AnimationContext;
  nox::PhysicsContext m_PhysicsContext;
  nox::ContextPool m_Context;
  nox::RTTIBase m_FloorOwner;
  std::vector<std::unique_ptr<nox::Particle>> m_Floor;
  std::vector<std::unique_ptr<nox::RectangleHull>> m_FloorHulls;
  std::vector<Walker*> m_Walkers;  // owned by the agent engine
};

// A second of settling (everyone lands), then the timed frames with the thread's
// allocations counted.
template <typename F>
void CountedLoop(benchmark::State& state, CharacterArena& arena, F frame) {
  for (int i = 0; i < 60; ++i) arena.Frame();
  const long contacts = arena.Contacts();
  const uint64_t before = appmanager::AllocCounter::Count();
  appmanager::AllocCounter::CountThisThread();
  for (auto _ : state) frame();
  appmanager::AllocCounter::PauseThisThread();
  state.counters["contacts"] = benchmark::Counter(static_cast<double>(arena.Contacts() - contacts),
                                                  benchmark::Counter::kAvgIterations);
  state.counters["standing"] = arena.Standing();
  if (!appmanager::AllocCounter::IsAvailable()) {
    state.counters["allocs"] = -1;  // not counted in sanitizer builds
    return;
  }
  state.counters["allocs"] = benchmark::Counter(
      static_cast<double>(appmanager::AllocCounter::Count() - before), benchmark::Counter::kAvgIterations);
}

// The arena of 75 walkers, measured over whole frames or over the physics half alone.
void RunArena(benchmark::State& state, bool physicsOnly) {
  bench::BenchTitle title("bench_characters");
  const bool ready = title.WriteWalker("BenchWalker", 4);
  std::unique_ptr<nox::TileAnimData> data(new nox::TileAnimData("BenchWalker", false, true));
  CharacterArena arena(data.get());
  if (!ready || !arena.Ready()) {
    state.SkipWithError("the walker sprite could not be made");
    return;
  }
  if (physicsOnly) {
    CountedLoop(state, arena, [&arena] { arena.Physics(); });
  } else {
    CountedLoop(state, arena, [&arena] { arena.Frame(); });
  }
}

void BM_75CharactersFrame(benchmark::State& state) {
  RunArena(state, false);
}
BENCHMARK(BM_75CharactersFrame)->Unit(benchmark::kMicrosecond);

void BM_CharacterPhysicsOnly(benchmark::State& state) {
  RunArena(state, true);
}
BENCHMARK(BM_CharacterPhysicsOnly)->Unit(benchmark::kMicrosecond);

}  // namespace
