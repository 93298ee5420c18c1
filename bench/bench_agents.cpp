// One update of a scene's agents: an engine holding an arena of 75 agents read from a
// level file (the most an arena holds), each a moving entity with a little work in its
// Update, as the game's characters and volumes have. A second case also moves one
// agent out of the arena and back each frame, through the queues. Allocations are
// counted with the host's counter (malloc and operator new); a steady update should
// make none.
#include <benchmark/benchmark.h>

#include "AllocCounter.h"

#include <cstdlib>
#include <sstream>
#include <string>

#include "agents/AgentEngine.h"
#include "agents/AgentFactory.h"
#include "agents/AgentFactoryManager.h"
#include "agents/Entity.h"
#include "core/HashString.h"
#include "level/Arena.h"
#include "level/Level.h"
#include "ostra/HostConfig.h"

namespace {

// Heap allocations made so far on this thread, through the host's counter; -1 where
// it is not available (sanitizer builds keep their own allocator).
double Allocations() {
  if (!appmanager::AllocCounter::IsAvailable()) return -1;
  appmanager::AllocCounter::CountThisThread();
  return static_cast<double>(appmanager::AllocCounter::Count());
}

}  // namespace

namespace {

using nox::Real;

constexpr int kAgents = 75;

// Walks back and forth between two x positions; the entity half of a character.
class Walker : public nox::Entity {
 public:
  Walker(nox::ContextPool& pool, const nox::Vector3& at) : nox::Entity(pool), m_Position(at), m_Home(at.x) {}
  void Update(unsigned long dt) override {
    m_Position.x += m_Speed * Real(static_cast<int>(dt)) / Real(16);
    if (m_Position.x > m_Home + Real(64) || m_Position.x < m_Home) m_Speed = -m_Speed;
  }
  void SetPosition(const nox::Vector3& p) override { m_Position = p; }
  nox::Vector3 GetPosition() const override { return m_Position; }

 private:
  nox::Vector3 m_Position;
  Real m_Home;
  Real m_Speed = Real(1);
};

class WalkerFactory : public nox::AgentFactory {
 public:
  nox::Agent* CreateAgent(nox::AgentEntry* entry, const nox::AgentStyle* style,
                          const nox::AttributeList& attributes) override {
    Walker* walker = new Walker(*entry->m_pContextPool, entry->m_Position);
    Configure(walker, style, attributes);
    return walker;
  }
  nox::NameHash GetElementTypeId() const override { return nox::HashString("Walker"); }
};

std::string LevelText() {
  std::ostringstream s;
  s << nox::HashString("Arena") << " Bench 0 0 0 4800 272 " << kAgents << " " << kAgents << " 0 0\n";
  for (int i = 0; i < kAgents; ++i) {
    s << nox::HashString("Walker") << " w" << i << " 0 1 " << i * 64 << " 200 " << nox::HashString("id")
      << " " << i << "\n";
  }
  return s.str();
}

struct Scene {
  nox::AgentEngine engine{8};
  nox::AgentContext agentContext;
  nox::ContextPool pool;
  nox::AgentFactoryManager factories;
  noxfw::Level level{pool, factories, nullptr};
  noxfw::Arena* arena = nullptr;

  Scene() {
    Hollin::Ostra::Host::HostConfig config;
    config.quiet = true;
    Hollin::Ostra::Host::SetHostConfig(config);
    agentContext.m_pAgentEngine = &engine;
    pool.m_pAgentContext = &agentContext;
    factories.Register(new WalkerFactory());
    const std::string text = LevelText();
    level.LoadText("bench.fun", text.data(), text.size());
    arena = level.GetArena(0);
    arena->Load();
    engine.AddAgent(arena);
    for (int i = 0; i < 60; ++i) engine.Update(16);  // settle
  }
  ~Scene() { engine.RemoveAgent(arena); }
};

void Report(benchmark::State& state, double allocationsBefore) {
  const double updates = static_cast<double>(state.iterations());
  state.counters["allocs_per_update"] =
      allocationsBefore < 0 ? -1 : (Allocations() - allocationsBefore) / updates;
  state.counters["agents"] = kAgents;
}

void BM_AgentEngineUpdate(benchmark::State& state) {
  Scene scene;
  if (scene.arena->GetAgentCount() != kAgents) state.SkipWithError("the arena did not load");
  const double allocations = Allocations();
  for (auto _ : state) scene.engine.Update(16);
  Report(state, allocations);
}
BENCHMARK(BM_AgentEngineUpdate)->Unit(benchmark::kMicrosecond);

// During each update one agent asks the arena to take another out and put it back:
// both wait in the queues until the walk ends. Each re-addition links the arena into
// the agent's listener list, one list node.
class Juggler : public nox::Agent {
 public:
  Juggler(nox::ContextPool& pool, noxfw::Arena& arena, nox::Agent* ball)
      : nox::Agent(pool), m_Arena(arena), m_pBall(ball) {}
  void Update(unsigned long) override {
    m_Arena.RemoveAgent(m_pBall);
    m_Arena.AddAgent(m_pBall);
  }

 private:
  noxfw::Arena& m_Arena;
  nox::Agent* m_pBall;
};

void BM_AgentEngineUpdateWithRequeue(benchmark::State& state) {
  Scene scene;
  // The juggler takes the place of one walker, so the arena stays at 75.
  nox::Agent* ball = scene.arena->GetAgentById(1);
  nox::Agent* replaced = scene.arena->GetAgentById(0);
  scene.arena->DestroyAgent(replaced);
  scene.arena->AddExternalAgent(new Juggler(scene.pool, *scene.arena, ball));
  scene.engine.Update(16);
  const double allocations = Allocations();
  for (auto _ : state) scene.engine.Update(16);
  Report(state, allocations);
}
BENCHMARK(BM_AgentEngineUpdateWithRequeue)->Unit(benchmark::kMicrosecond);

}  // namespace
