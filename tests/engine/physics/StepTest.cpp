// The physics step as a whole: one-shot forces, the response to a contact, a
// resting stack, registrations made during a step, sprite-driven collision rigs,
// and a golden hash of a fixed scene.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <vector>

#include "PhysicsTestSupport.h"
#include "core/HashString.h"
#include "debug/DebugOverlay.h"
#include "physics/CircleHull.h"
#include "physics/CollisionDetector.h"
#include "physics/CollisionPool.h"
#include "physics/CollisionPoolMap.h"
#include "physics/CollisionResolver.h"
#include "physics/CollisionRig.h"
#include "physics/PhysicsEngine.h"
#include "physics/RectSeriesSource.h"
#include "physics/Rig.h"
#include "physics/StickConstraint.h"
#include "physics/TumbleRectangleHull.h"

using namespace physics_test;
using nox::CollisionInfo;
using nox::CollisionPool;
using nox::HashString;
using nox::InteractionType;
using nox::Particle;

TEST(Forces, GlobalForcesAreOneShotAndAZOnlyForceWaits) {
  nox::PhysicsEngine engine(Real(1), 8);
  Particle light(V3(0, 0));
  Particle heavy(V3(0, 0));
  heavy.m_ForceScale = Real(3);
  engine.AddParticle(&light);
  engine.AddParticle(&heavy);
  engine.addScaledForce(V3(0, 1, 4));
  engine.addForce(V3(0, 0, 7));  // no x or y: not applied this step
  engine.step(1);
  EXPECT_EQ(light.m_Position, V3(0, 1, 4));
  EXPECT_EQ(heavy.m_Position, V3(0, 3, 12));
  engine.addForce(V3(1, 0));
  engine.step(1);
  // The waiting z joins the next force that has x or y; velocity carries on.
  EXPECT_EQ(light.m_Position, V3(1, 2, 15));
  engine.step(1);
  EXPECT_EQ(light.m_Position, V3(2, 3, 26));
}

TEST(Forces, RegistrationsDuringAStepWaitForItsEnd) {
  nox::PhysicsEngine engine(Real(1), 8);
  CollisionPool pool(engine, 0, false);
  engine.AddPool(&pool);
  pool.interactsWith(&pool, InteractionType::eNotify);
  Box a(0, 0, 10, 10);
  Box b(5, 0, 10, 10);
  pool.addHull(&a.hull);
  pool.addHull(&b.hull);
  struct Lister {
    void OnCollision(const CollisionInfo& info) {
      engine->AddParticle(particle);
      engine->RemoveParticle(particle);  // removals are worked off before additions
      seen = engine->GetParticles().size();
    }
    nox::PhysicsEngine* engine;
    Particle* particle;
    size_t seen = 99;
  } lister{&engine, &a.particle};
  nox::CollisionNotifier notifier(&lister, &nox::HullCallback<Lister, &Lister::OnCollision>);
  a.hull.AddNotifier(&notifier);
  engine.step(1);
  EXPECT_EQ(lister.seen, 0u);
  EXPECT_EQ(engine.GetParticles(), std::vector<Particle*>{&a.particle});
}

TEST(Response, FreeBodiesShareMomentumAndPushApartByMass) {
  Box a(0, 0, 10, 10);
  Box b(0, 8, 10, 10);
  b.particle.m_Mass = Real(3);
  a.particle.m_PreviousPosition = V3(-1, -4);  // velocity (1, 4)
  nox::CollisionResolver::resolve(a.hull, b.hull, V3(0, 1), Real(-2));
  // Normal speeds 4 and 0 become 1 and 1; the tangent is kept (friction 0).
  EXPECT_EQ(a.particle.getVelocity(), V3(1, 1));
  EXPECT_EQ(b.particle.getVelocity(), V3(0, 1));
  // The 2 units of overlap are split 3 : 1, the light body moving further.
  EXPECT_EQ(a.particle.m_Position, Vector3(Real(), Raw(-0x18000), Real()));
  EXPECT_EQ(b.particle.m_Position, Vector3(Real(), Raw(0x88000), Real()));
  EXPECT_TRUE(a.particle.m_bMoved);
}

TEST(Response, ANoPushBodyLeavesTheWholeOffsetToItsPartner) {
  Box a(0, 0, 10, 10);
  Box b(0, 8, 10, 10);
  b.particle.m_bNoPush = true;
  nox::CollisionResolver::resolve(a.hull, b.hull, V3(0, 1), Real(-2));
  EXPECT_EQ(a.particle.m_Position, V3(0, -2));
  EXPECT_EQ(b.particle.m_Position, V3(0, 8));
}

TEST(Response, ElasticityAndFrictionAreClamped) {
  Box a(0, 0, 10, 10);
  Box wall(0, 8, 10, 10, true);
  a.hull.setElasticity(Raw(0xB000));
  wall.hull.setElasticity(Raw(0x9000));  // sum above 1.0
  a.hull.setFriction(Real(2));
  wall.hull.setFriction(Real(1));  // product above 1.0
  a.particle.m_PreviousPosition = V3(-3, -4);
  nox::CollisionResolver::resolve(a.hull, wall.hull, V3(0, 1), Real(-2));
  // A full bounce, and no sliding at all.
  EXPECT_EQ(a.particle.getVelocity(), V3(0, -4));
  EXPECT_EQ(a.particle.m_Position, V3(0, -2));
  EXPECT_EQ(wall.particle.m_Position, V3(0, 8));
}

namespace {

// Ground with three boxes on it, pushed down by gravity every frame.
struct Stack {
  explicit Stack(bool stacking) {
    pools.AddDefinition("Ground", 0, false)->addHull(&ground.hull);
    CollisionPool* boxes = pools.AddDefinition("Boxes", 0, stacking);
    pools.SetInteraction(HashString("Boxes"), HashString("Ground"), InteractionType::eResolve);
    pools.SetInteraction(HashString("Boxes"), HashString("Boxes"), InteractionType::eResolve);
    for (Box* box : {&low, &middle, &high}) {
      boxes->addHull(&box->hull);
      engine.AddParticle(&box->particle);
    }
  }
  void Step() {
    engine.addScaledForce(Vector3(Real(), Raw(0x8000), Real()));
    engine.step(1);
  }

  nox::PhysicsEngine engine{Real(1), 16};
  nox::CollisionPoolMap pools{engine};
  Box ground{100, 100, 200, 20, true};
  Box low{100, 80, 20, 20};
  Box middle{100, 60, 20, 20};
  Box high{100, 40, 20, 20};
};

}  // namespace

TEST(Stacking, ARestingStackStaysPut) {
  Stack stack(true);
  stack.Step();
  // The top box meets the middle one before the middle one is lifted off the low
  // one, and so keeps the half unit of one frame's gravity; from then on nothing
  // moves.
  for (int i = 0; i < 300; ++i) stack.Step();
  EXPECT_EQ(stack.low.particle.m_Position, V3(100, 80));
  EXPECT_EQ(stack.middle.particle.m_Position, V3(100, 60));
  EXPECT_EQ(stack.high.particle.m_Position, Vector3(Real(100), Raw(0x288000), Real()));
  EXPECT_EQ(stack.high.particle.getVelocity(), Vector3());
  EXPECT_EQ(stack.low.particle.getVelocity(), Vector3());
}

TEST(Stacking, WithoutTheStackingFlagThePileSinksIntoTheGround) {
  Stack stack(false);
  for (int i = 0; i < 300; ++i) stack.Step();
  // Every contact splits its correction by mass, so the boxes press each other,
  // and the low one, into the ground by several units.
  EXPECT_GT(stack.low.particle.m_Position.y, Real(83));
  EXPECT_GT(stack.high.particle.m_Position.y, Real(43));
}

namespace {

// A sprite with rectangle series by name; an absent name has no rectangle.
struct FakeSprite : nox::RectSeriesSource {
  struct Entry {
    nox::NameHash name;
    nox::Rectangle rect;
  };
  bool HasRectSeriesInAnySequence(nox::NameHash series) const override { return Find(series) != nullptr; }
  nox::Rectangle GetCurrentRect(nox::NameHash series) const override {
    const Entry* e = Find(series);
    return e ? e->rect : nox::Rectangle();
  }
  const Entry* Find(nox::NameHash series) const {
    for (const Entry& e : entries) {
      if (e.name == series) return &e;
    }
    return nullptr;
  }
  void Set(const char* name, int left, int top, int right, int bottom) {
    const nox::Rectangle rect{Real(left), Real(top), Real(right), Real(bottom)};
    for (Entry& e : entries) {
      if (e.name == HashString(name)) {
        e.rect = rect;
        return;
      }
    }
    entries.push_back({HashString(name), rect});
  }
  std::vector<Entry> entries;
};

struct RigOwner {
  void OnHit(int index, const CollisionInfo& info) {
    ++hits;
    lastIndex = index;
  }
  int hits = 0;
  int lastIndex = -1;
};

}  // namespace

TEST(CollisionRigs, BoxesFollowTheSpriteRectanglesNamedByPrefixAndDigit) {
  nox::PhysicsEngine engine(Real(1), 16);
  CollisionPool pool(engine, 0, false);
  FakeSprite sprite;
  sprite.Set("hit0", 10, 20, 30, 60);
  sprite.Set("hit1", 0, 0, 8, 4);
  sprite.Set("hit3", 0, 0, 1, 1);  // after the gap: not counted
  sprite.Set("body0", 0, 0, 1, 1);
  RigOwner owner;
  auto rig = std::make_unique<nox::CollisionRig>();
  rig->Initialize(&sprite, "hit", &pool, &nox::CollisionRigCallback<RigOwner, &RigOwner::OnHit>, &owner,
                  nullptr);
  ASSERT_EQ(rig->GetHullCount(), 2);
  EXPECT_EQ(pool.GetHullCount(), 2u);
  EXPECT_FALSE(rig->GetHullAtIndex(0)->isEnabled());
  EXPECT_EQ(rig->GetHullAtIndex(2), nullptr);

  rig->UpdateRig(Real(5), Real(4));  // not enabled yet: nothing moves
  EXPECT_FALSE(rig->GetHullAtIndex(0)->isEnabled());
  rig->Enable(Real(5), Real(4));
  nox::RectangleHull& first = *rig->GetHullAtIndex(0);
  EXPECT_TRUE(first.isEnabled());
  EXPECT_EQ(first.getPosition(), V3(20, 40, 5));
  EXPECT_EQ(first.GetProjectionX(), nox::Interval(Real(10), Real(30)));
  EXPECT_EQ(first.GetProjectionY(), nox::Interval(Real(20), Real(60)));
  EXPECT_EQ(first.GetProjectionZ(), nox::Interval(Real(3), Real(7)));
  EXPECT_EQ(rig->GetMaxWidthHeight(), Vector2(Real(20), Real(40)));
  EXPECT_EQ(rig->GetRigWidthHeight(1), Vector2(Real(8), Real(4)));
  EXPECT_EQ(rig->GetMaxExtents(), nox::Rectangle(Real(0), Real(0), Real(30), Real(60)));

  // The sprite moves: the box goes with it and keeps its velocity.
  first.getParticle()->m_PreviousPosition = V3(18, 40, 5);
  sprite.Set("hit0", 14, 20, 34, 60);
  rig->UpdateRig(Real(5), Real(4));
  EXPECT_EQ(first.getPosition(), V3(24, 40, 5));
  EXPECT_EQ(first.getParticle()->getVelocity(), V3(2, 0));
  // A frame without the rectangle switches its box off.
  sprite.Set("hit1", 0, 0, 0, 0);
  rig->UpdateRig(Real(5), Real(4));
  EXPECT_FALSE(rig->GetHullAtIndex(1)->isEnabled());

  // Contacts reach the owner with the index of the box.
  Box probe(24, 40, 4, 4);
  pool.projectPool();
  nox::CollisionDetector::test(probe.hull, first, nullptr, &pool, InteractionType::eNotify);
  EXPECT_EQ(owner.hits, 1);
  EXPECT_EQ(owner.lastIndex, 0);

  rig.reset();
  EXPECT_EQ(pool.GetHullCount(), 0u);
}

TEST(CollisionRigs, ASpriteWithoutTheSeriesGivesARigWithoutHulls) {
  nox::PhysicsEngine engine(Real(1), 4);
  CollisionPool pool(engine, 0, false);
  nox::CollisionRig rig;
  rig.Initialize(static_cast<nox::AnimInfo*>(nullptr), "hit", &pool, nullptr, nullptr, nullptr);
  EXPECT_TRUE(rig.IsInitialized());
  EXPECT_EQ(rig.GetHullCount(), 0);
  rig.Enable(Real(), Real(1));
  EXPECT_EQ(rig.GetMaxExtents(), nox::Rectangle());
  EXPECT_EQ(pool.GetHullCount(), 0u);
}

TEST(DebugView, TheStepDrawsOntoTheOverlayOnlyWhenAskedTo) {
  nox::PhysicsEngine engine(Real(1), 4);
  CollisionPool pool(engine, 0xFF0000FF, false);
  engine.AddPool(&pool);
  Box box(10, 10, 4, 4);
  Particle other(V3(20, 10));
  nox::StickConstraint stick(&box.particle, &other);
  pool.addHull(&box.hull);
  engine.AddParticle(&box.particle);
  engine.AddConstraint(&stick);
  engine.SetDebugDraw(true);
  engine.Draw();  // no overlay: nothing to draw on, and nothing breaks
  nox::DebugOverlay::Create();
  nox::DebugOverlay& overlay = *nox::DebugOverlay::sm_pInstance;
  engine.SetDebugDraw(false);
  engine.Draw();
  EXPECT_TRUE(overlay.GetLines().empty());
  engine.SetDebugDraw(true);
  engine.Draw(Vector2(Real(100), Real()));
  // Four sides of the box and the stick; one particle.
  ASSERT_EQ(overlay.GetLines().size(), 5u);
  EXPECT_EQ(overlay.GetLines()[0].from, V3(108, 8));
  EXPECT_EQ(overlay.GetLines()[0].colour, V3(1, 0, 0));
  EXPECT_EQ(overlay.GetPoints().size(), 1u);
  nox::DebugOverlay::Destroy();
}
