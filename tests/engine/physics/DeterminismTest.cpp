// A fixed scene of every kind of body stepped for 400 frames must land on the same
// raw positions on every run and every host: one hash of all of them, plus the
// count of contacts told. When the physics changes on purpose, the failure prints
// the new hash; updating it is a deliberate commit that says why.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <vector>

#include "PhysicsTestSupport.h"
#include "core/HashString.h"
#include "physics/CircleHull.h"
#include "physics/CollisionPool.h"
#include "physics/CollisionPoolMap.h"
#include "physics/PhysicsEngine.h"
#include "physics/PolyHull.h"
#include "physics/Rig.h"
#include "physics/SpringConstraint.h"
#include "physics/StickConstraint.h"
#include "physics/TumbleRectangleHull.h"

using namespace physics_test;
using nox::HashString;
using nox::InteractionType;
using nox::Particle;

namespace {

constexpr uint32_t kGoldenHash = 0x39F29301;
constexpr int kFrames = 400;

class Arena {
 public:
  Arena() {
    nox::CollisionPool* wall = pools.AddDefinition("Wall", 0x808080FF, false);
    nox::CollisionPool* body = pools.AddDefinition("Body", 0x00FF00FF, false);
    nox::CollisionPool* crate = pools.AddDefinition("Crate", 0xFFFF00FF, true);
    nox::CollisionPool* sensor = pools.AddDefinition("Sensor", 0x0000FFFF, false);
    Interact("Body", "Wall", InteractionType::eResolve);
    Interact("Body", "Body", InteractionType::eResolveAndNotify);
    Interact("Body", "Crate", InteractionType::eResolve);
    Interact("Crate", "Wall", InteractionType::eResolve);
    Interact("Crate", "Crate", InteractionType::eResolve);
    Interact("Sensor", "Body", InteractionType::eNotify);

    // Ground, two walls, two platforms and a ramp.
    AddStatic(wall, 240, 262, 480, 20);
    AddStatic(wall, 5, 136, 10, 272);
    AddStatic(wall, 475, 136, 10, 272);
    AddStatic(wall, 120, 180, 100, 10);
    AddStatic(wall, 330, 140, 80, 10);
    m_Particles.emplace_back(new Particle(V3(400, 230)));
    m_Particles.back()->m_bFixed = true;
    auto* ramp =
        new nox::PolyHull(m_Particles.back().get(), Real(), Real(), nullptr, &m_Owner, Real(10), false);
    ramp->SetVertices(
        {Vector2(Real(-40), Real(22)), Vector2(Real(40), Real(-10)), Vector2(Real(40), Real(22))});
    wall->addHull(ramp);
    m_Hulls.emplace_back(ramp);

    // Loose boxes of several sizes, thrown in different directions.
    for (int i = 0; i < 24; ++i) {
      const int size = 8 + (i * 7) % 13;
      Particle* p = AddParticle(30 + (i * 53) % 420, 20 + (i * 29) % 120);
      p->m_PreviousPosition = p->m_Position - V3((i % 5) - 2, (i % 3) - 1);
      p->m_Mass = Real(1 + i % 3);
      auto* hull = new nox::RectangleHull(p, Real(size), Real(size + i % 4), Real(), Real(), &m_Notifier,
                                          &m_Owners[i], Real(10));
      hull->setFriction(Raw(0x4000 * (i % 3)));
      hull->setElasticity(Raw(0x2000 * (i % 4)));
      body->addHull(hull);
      m_Hulls.emplace_back(hull);
    }

    // A pile of crates on the left platform.
    for (int i = 0; i < 4; ++i) {
      Particle* p = AddParticle(120, 165 - i * 10);
      auto* hull =
          new nox::RectangleHull(p, Real(12), Real(10), Real(), Real(), nullptr, &m_CrateOwners[i], Real(10));
      crate->addHull(hull);
      m_Hulls.emplace_back(hull);
    }

    // A rig: a chain of three sticks with tumbling boxes between the links, and a
    // spring-stretched box on the last one.
    m_pRig.reset(new nox::Rig(&engine));
    Particle* links[4];
    for (int i = 0; i < 4; ++i) {
      links[i] = new Particle(V3(250 + i * 15, 60 - i * 4));
      m_pRig->addParticle(links[i]);
    }
    links[0]->m_bFixed = true;
    for (int i = 0; i < 3; ++i) {
      m_pRig->addConstraint(new nox::StickConstraint(links[i], links[i + 1]));
      if (i < 2) {
        m_pRig->addHull(new nox::TumbleRectangleHull(links[i], links[i + 1], Real(15), Real(4), Real(),
                                                     Real(), nullptr, &m_RigOwner, Real(10)),
                        body);
      }
    }
    m_pRig->addConstraint(new nox::SpringConstraint(links[1], links[3], Raw(0x4000)));
    m_pRig->addHull(new nox::SpringRectangleHull(links[2], links[3], Real(1), Real(4), Real(), Real(),
                                                 nullptr, &m_RigOwner, Real(10)),
                    body);
    m_pRig->enlist();

    // Circles that notice bodies passing.
    for (int i = 0; i < 3; ++i) {
      Particle* p = new Particle(V3(100 + i * 140, 220));
      p->m_bFixed = true;
      m_Particles.emplace_back(p);
      auto* hull = new nox::CircleHull(p, Real(20), Real(), Real(), &m_Notifier, &m_Owner, Real(10), false);
      sensor->addHull(hull);
      m_Hulls.emplace_back(hull);
    }
  }

  ~Arena() {
    m_pRig.reset();
    pools.Destroy();
  }

  void Step() {
    engine.addScaledForce(Vector3(Real(), Raw(0x4000), Real()));
    engine.step(1);
  }

  uint32_t Hash() const {
    uint32_t h = 2166136261u;
    auto add = [&h](int32_t v) {
      for (int i = 0; i < 4; ++i) {
        h ^= static_cast<uint32_t>(v) >> (8 * i) & 0xFFu;
        h *= 16777619u;
      }
    };
    for (const Particle* p : engine.GetParticles()) {
      add(p->m_Position.x.Raw());
      add(p->m_Position.y.Raw());
      add(p->m_Position.z.Raw());
      add(p->m_PreviousPosition.x.Raw());
      add(p->m_PreviousPosition.y.Raw());
    }
    add(m_Contacts);
    return h;
  }

  void OnContact(const nox::CollisionInfo& info) { ++m_Contacts; }

  nox::PhysicsEngine engine{Real(1), 825};
  nox::CollisionPoolMap pools{engine};

 private:
  void Interact(const char* a, const char* b, InteractionType::eInteractionType type) {
    pools.SetInteraction(HashString(a), HashString(b), type);
  }
  Particle* AddParticle(int x, int y) {
    m_Particles.emplace_back(new Particle(V3(x, y)));
    engine.AddParticle(m_Particles.back().get());
    return m_Particles.back().get();
  }
  void AddStatic(nox::CollisionPool* pool, int x, int y, int width, int height) {
    m_Particles.emplace_back(new Particle(V3(x, y)));
    m_Particles.back()->m_bFixed = true;
    m_Particles.back()->m_bMoved = false;
    auto* hull = new nox::RectangleHull(m_Particles.back().get(), Real(width), Real(height), Real(), Real(),
                                        nullptr, &m_Owner, Real(10));
    pool->addHull(hull);
    m_Hulls.emplace_back(hull);
  }

  nox::RTTIBase m_Owner;
  nox::RTTIBase m_Owners[24];
  nox::RTTIBase m_CrateOwners[4];
  nox::RTTIBase m_RigOwner;
  nox::CollisionNotifier m_Notifier{this, &nox::HullCallback<Arena, &Arena::OnContact>};
  std::vector<std::unique_ptr<Particle>> m_Particles;
  std::vector<std::unique_ptr<nox::AbstractHull>> m_Hulls;
  std::unique_ptr<nox::Rig> m_pRig;
  int m_Contacts = 0;
};

}  // namespace

TEST(Determinism, AFixedSceneLandsOnTheSameRawPositions) {
  Arena arena;
  for (int i = 0; i < kFrames; ++i) arena.Step();
  const uint32_t hash = arena.Hash();
  if (hash != kGoldenHash) std::printf("new physics golden hash: 0x%08X\n", hash);
  EXPECT_EQ(hash, kGoldenHash);
}

TEST(Determinism, TwoRunsInOneProcessAgree) {
  Arena first;
  Arena second;
  for (int i = 0; i < kFrames; ++i) {
    first.Step();
    second.Step();
  }
  EXPECT_EQ(first.Hash(), second.Hash());
}
