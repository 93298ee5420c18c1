// One physics step of an arena as the game builds one: 825 hulls in all, as every
// scene's engine is sized. Static ground, walls and platforms; characters that walk
// and fall, each a body box with two hit boxes that follow its sprite through a
// collision rig; pickups and triggers that only notice. The scene is settled before
// timing. Allocations are counted with the host's counter (malloc and operator new);
// a steady step should make none.
#include <benchmark/benchmark.h>

#include "AllocCounter.h"

#include <cstdlib>
#include <memory>
#include <vector>

#include "core/HashString.h"
#include "physics/CircleHull.h"
#include "physics/CollisionPool.h"
#include "physics/CollisionPoolMap.h"
#include "physics/CollisionRig.h"
#include "physics/PhysicsEngine.h"
#include "physics/RectSeriesSource.h"
#include "physics/RectangleHull.h"

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

using nox::HashString;
using nox::InteractionType;
using nox::Real;
using nox::Vector3;

constexpr int kCharacters = 150;  // 3 hulls each
constexpr int kPickups = 100;
constexpr int kTriggers = 23;
constexpr int kGroundTiles = 60;  // 32 wide: a level 1920 pixels long
constexpr int kWallTiles = 32;    // two columns of 16
constexpr int kPlatforms = 40;    // 4 tiles each
constexpr int kHulls = kCharacters * 3 + kPickups + kTriggers + kGroundTiles + kWallTiles + kPlatforms * 4;
static_assert(kHulls == 825, "the arena fills the engine exactly");

Vector3 V3(int x, int y) {
  return Vector3(Real(x), Real(y), Real());
}

// A sprite whose two hit rectangles sit at fixed offsets from its body.
class CharacterSprite : public nox::RectSeriesSource {
 public:
  explicit CharacterSprite(const nox::Particle* body) : m_pBody(body) {}
  bool HasRectSeriesInAnySequence(nox::NameHash series) const override {
    return series == HashString("hit0") || series == HashString("hit1");
  }
  nox::Rectangle GetCurrentRect(nox::NameHash series) const override {
    const Vector3& p = m_pBody->m_Position;
    if (series == HashString("hit0"))
      return nox::Rectangle(p.x - Real(6), p.y - Real(14), p.x + Real(6), p.y - Real(4));
    return nox::Rectangle(p.x + Real(4), p.y - Real(2), p.x + Real(14), p.y + Real(4));
  }

 private:
  const nox::Particle* m_pBody;
};

class ArenaScene {
 public:
  ArenaScene() {
    nox::CollisionPool* wall = pools.AddDefinition("Wall", 0x808080FF, false);
    nox::CollisionPool* character = pools.AddDefinition("PlayerCollision", 0x00FF00FF, false);
    nox::CollisionPool* hit = pools.AddDefinition("Hit", 0xFF0000FF, false);
    nox::CollisionPool* pickup = pools.AddDefinition("Pickup", 0xFFFF00FF, false);
    nox::CollisionPool* trigger = pools.AddDefinition("Sensor", 0x0000FFFF, false);
    Interact("PlayerCollision", "Wall", InteractionType::eResolve);
    Interact("PlayerCollision", "PlayerCollision", InteractionType::eResolve);
    Interact("Hit", "PlayerCollision", InteractionType::eNotify);
    Interact("Pickup", "PlayerCollision", InteractionType::eNotify);
    Interact("Sensor", "PlayerCollision", InteractionType::eNotify);

    for (int i = 0; i < kGroundTiles; ++i) AddStatic(wall, 16 + i * 32, 264, 32, 16);
    for (int i = 0; i < kWallTiles / 2; ++i) {
      AddStatic(wall, 8, 8 + i * 16, 16, 16);
      AddStatic(wall, 1912, 8 + i * 16, 16, 16);
    }
    for (int i = 0; i < kPlatforms; ++i) {
      const int x = 60 + (i * 173) % 1780;
      const int y = 90 + (i * 61) % 140;
      for (int t = 0; t < 4; ++t) AddStatic(wall, x + t * 24, y, 24, 8);
    }

    m_Rigs.reserve(kCharacters);
    for (int i = 0; i < kCharacters; ++i) {
      nox::Particle* body = NewParticle(40 + (i * 97) % 1840, 20 + (i * 37) % 200, false);
      body->m_PreviousPosition = body->m_Position - V3(i % 2 ? 1 : -1, 0);
      engine.AddParticle(body);
      auto* hull =
          new nox::RectangleHull(body, Real(12), Real(24), Real(), Real(), nullptr, &m_Owners[i], Real(20));
      character->addHull(hull);
      m_Hulls.emplace_back(hull);
      m_Sprites.emplace_back(new CharacterSprite(body));
      m_Rigs.emplace_back(new nox::CollisionRig);
      m_Rigs.back()->Initialize(m_Sprites.back().get(), "hit", hit,
                                &nox::CollisionRigCallback<ArenaScene, &ArenaScene::OnHit>, this,
                                &m_Owners[i]);
      m_Rigs.back()->Enable(Real(), Real(20));
      m_Bodies.push_back(body);
    }
    for (int i = 0; i < kPickups; ++i) {
      nox::Particle* p = NewParticle(30 + (i * 131) % 1860, 60 + (i * 43) % 190, true);
      auto* hull =
          new nox::CircleHull(p, Real(6), Real(), Real(), &m_Notifier, &m_SceneOwner, Real(20), false);
      pickup->addHull(hull);
      m_Hulls.emplace_back(hull);
    }
    for (int i = 0; i < kTriggers; ++i) {
      nox::Particle* p = NewParticle(80 * i + 40, 200, true);
      auto* hull = new nox::RectangleHull(p, Real(40), Real(120), Real(), Real(), &m_Notifier, &m_SceneOwner,
                                          Real(20));
      trigger->addHull(hull);
      m_Hulls.emplace_back(hull);
    }
  }

  ~ArenaScene() {
    m_Rigs.clear();
    pools.Destroy();
  }

  // What a world scene does before its step: gravity, the walkers' push, and the
  // hit boxes following their sprites.
  void PrePhysics() {
    engine.addScaledForce(Vector3(Real(), Real::FromRaw(0x6000), Real()));
    ++m_Frame;
    for (int i = 0; i < kCharacters; ++i) {
      nox::Particle& body = *m_Bodies[i];
      const bool right = ((m_Frame / 90 + i) & 1) != 0;
      body.m_Force.x += Real::FromRaw(right ? 0x2000 : -0x2000);
      m_Rigs[i]->UpdateRig(Real(), Real(20));
    }
  }

  void Step() { engine.step(1); }
  void OnHit(int index, const nox::CollisionInfo& info) { ++m_Contacts; }
  void OnContact(const nox::CollisionInfo& info) { ++m_Contacts; }

  nox::PhysicsEngine engine{Real(1), 825};
  nox::CollisionPoolMap pools{engine};
  long m_Contacts = 0;

 private:
  void Interact(const char* a, const char* b, InteractionType::eInteractionType type) {
    pools.SetInteraction(HashString(a), HashString(b), type);
  }
  nox::Particle* NewParticle(int x, int y, bool fixed) {
    m_Particles.emplace_back(new nox::Particle(V3(x, y)));
    m_Particles.back()->m_bFixed = fixed;
    // Level geometry never moves, so its hulls are projected once.
    m_Particles.back()->m_bMoved = !fixed;
    return m_Particles.back().get();
  }
  void AddStatic(nox::CollisionPool* pool, int x, int y, int width, int height) {
    auto* hull = new nox::RectangleHull(NewParticle(x, y, true), Real(width), Real(height), Real(), Real(),
                                        nullptr, &m_SceneOwner, Real(20));
    pool->addHull(hull);
    m_Hulls.emplace_back(hull);
  }

  nox::RTTIBase m_SceneOwner;
  nox::RTTIBase m_Owners[kCharacters];
  nox::CollisionNotifier m_Notifier{this, &nox::HullCallback<ArenaScene, &ArenaScene::OnContact>};
  std::vector<std::unique_ptr<nox::Particle>> m_Particles;
  std::vector<std::unique_ptr<nox::AbstractHull>> m_Hulls;
  std::vector<std::unique_ptr<CharacterSprite>> m_Sprites;
  std::vector<std::unique_ptr<nox::CollisionRig>> m_Rigs;
  std::vector<nox::Particle*> m_Bodies;
  long m_Frame = 0;
};

void Settle(ArenaScene& scene) {
  for (int i = 0; i < 240; ++i) {
    scene.PrePhysics();
    scene.Step();
  }
}

void Report(benchmark::State& state, const ArenaScene& scene, double allocationsBefore, long contactsBefore) {
  const double steps = static_cast<double>(state.iterations());
  state.counters["allocs_per_step"] =
      allocationsBefore < 0 ? -1 : (Allocations() - allocationsBefore) / steps;
  state.counters["contacts_per_step"] = static_cast<double>(scene.m_Contacts - contactsBefore) / steps;
  state.counters["hulls"] = kHulls;
}

// The physics of one frame: pre-physics updates and the step.
void BM_ArenaFrame(benchmark::State& state) {
  ArenaScene scene;
  Settle(scene);
  const double allocations = Allocations();
  const long contacts = scene.m_Contacts;
  for (auto _ : state) {
    scene.PrePhysics();
    scene.Step();
  }
  Report(state, scene, allocations, contacts);
}
BENCHMARK(BM_ArenaFrame)->Unit(benchmark::kMicrosecond);

// The step alone, with everyone coasting: no forces, no rig updates.
void BM_ArenaStep(benchmark::State& state) {
  ArenaScene scene;
  Settle(scene);
  const double allocations = Allocations();
  const long contacts = scene.m_Contacts;
  for (auto _ : state) scene.Step();
  Report(state, scene, allocations, contacts);
}
BENCHMARK(BM_ArenaStep)->Unit(benchmark::kMicrosecond);

}  // namespace
