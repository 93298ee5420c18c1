// Collision pools: the interaction tables and what each type does, the filters in
// front of the shape tests, handlers and notifiers, adding and removing hulls in
// the middle of a step, the sorted lists, broad-phase culling, and the queries.
#include <gtest/gtest.h>

#include "PhysicsTestSupport.h"
#include "core/HashString.h"
#include "physics/CollisionPool.h"
#include "physics/CollisionPoolMap.h"
#include "physics/PhysicsEngine.h"
#include "physics/Ray.h"

using namespace physics_test;
using nox::CollisionInfo;
using nox::CollisionPool;
using nox::HashString;
using nox::InteractionType;
using nox::ProjectedHull;

namespace {

// A box that counts how often a shape test is asked of it.
struct CountingBox : Box {
  struct Hull : nox::RectangleHull {
    using RectangleHull::collide;
    using RectangleHull::RectangleHull;
    CollisionInfo collide(nox::AbstractHull& other) override {
      ++*counter;
      return RectangleHull::collide(other);
    }
    int* counter = nullptr;
  };
  CountingBox(int x, int y, int size, int* counter)
      : Box(x, y, 1, 1),
        counting(&particle, Real(size), Real(size), Real(), Real(), nullptr, &self, Real(2)) {
    counting.counter = counter;
  }
  Hull counting;
};

struct PoolFixture : ::testing::Test {
  nox::PhysicsEngine engine{Real(1), 64};
  nox::CollisionPoolMap pools{engine};
  CollisionPool* a = pools.AddDefinition("A", 0xFF0000FF, false);
  CollisionPool* b = pools.AddDefinition("B", 0x00FF00FF, false);
  // Overlapping by 2 in x; b's particle is fixed.
  Box boxA{100, 50, 10, 10};
  Box boxB{108, 50, 10, 10, true};
  Recorder recA;
  Recorder recB;

  void SetUp() override {
    engine.AddParticle(&boxA.particle);
    a->addHull(&boxA.hull);
    b->addHull(&boxB.hull);
    recA.Attach(boxA.hull);
    recB.Attach(boxB.hull);
  }
  void Interact(const char* x, const char* y, InteractionType::eInteractionType type) {
    pools.SetInteraction(HashString(x), HashString(y), type);
  }
};

}  // namespace

TEST_F(PoolFixture, EachInteractionTypeMovesOrTellsAsItSays) {
  struct Row {
    InteractionType::eInteractionType type;
    bool moves;
    bool tells;
    bool touches;
  };
  const Row rows[] = {
      {InteractionType::eNone, false, false, false},
      {InteractionType::eResolve, true, false, true},
      {InteractionType::eNotify, false, true, true},
      {InteractionType::eResolveAndNotify, true, true, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.type);
    boxA.particle = nox::Particle(V3(100, 50));
    recA.count = recB.count = 0;
    a->changeInteraction(b, row.type);
    if (a->GetPartners().empty()) a->interactsWith(b, row.type);
    engine.step(1);
    EXPECT_EQ(boxA.particle.m_Position, row.moves ? V3(98, 50) : V3(100, 50));
    EXPECT_EQ(boxA.particle.getVelocity(), Vector3());
    EXPECT_EQ(boxB.particle.m_Position, V3(108, 50));
    EXPECT_EQ(recA.count, row.tells ? 1 : 0);
    EXPECT_EQ(recB.count, row.tells ? 1 : 0);
    EXPECT_EQ(boxA.hull.isResolved(), row.touches);
    EXPECT_EQ(boxB.hull.isResolved(), row.touches);
    // Only a hull that touched nothing records where it was free.
    EXPECT_EQ(boxA.particle.m_LastFreePosition, row.touches ? Vector3() : V3(100, 50));
  }
}

TEST_F(PoolFixture, EachHullIsToldFromItsOwnSide) {
  Interact("A", "B", InteractionType::eNotify);
  boxA.particle.m_PreviousPosition = V3(99, 50);  // moving right at 1 a frame
  engine.step(1);
  const CollisionInfo& ia = recA.last;
  EXPECT_EQ(ia.m_pHull, &boxB.hull);
  EXPECT_EQ(ia.m_pOwnHull, &boxA.hull);
  EXPECT_EQ(ia.m_pPool, b);
  EXPECT_EQ(ia.m_pOwnPool, a);
  EXPECT_EQ(ia.m_Normal, V3(1, 0));  // towards the other hull
  EXPECT_EQ(ia.m_Axis, Vector2(Real(1), Real()));
  EXPECT_EQ(ia.m_Depth, Real(-3));
  EXPECT_EQ(ia.m_Velocity, V3(1, 0));
  EXPECT_EQ(ia.m_Type, InteractionType::eNotify);
  const CollisionInfo& ib = recB.last;
  EXPECT_EQ(ib.m_pHull, &boxA.hull);
  EXPECT_EQ(ib.m_pOwnPool, b);
  EXPECT_EQ(ib.m_Normal, V3(-1, 0));
  EXPECT_EQ(ib.m_Axis, Vector2(Real(1), Real()));
  EXPECT_EQ(ib.m_Velocity, Vector3());
}

TEST_F(PoolFixture, InteractionsAreOneSidedAndCountEachTimeTheyAreSet) {
  // b has no partners: its own sweep never tests anything.
  b->collide();
  EXPECT_EQ(recA.count, 0);
  Interact("A", "B", InteractionType::eNotify);
  engine.step(1);
  EXPECT_EQ(recA.count, 1);
  Interact("A", "B", InteractionType::eNotify);
  Interact("B", "A", InteractionType::eNotify);
  Interact("A", "Nowhere", InteractionType::eNotify);  // unknown: ignored
  EXPECT_EQ(pools.GetPool(HashString("Nowhere")), nullptr);
  recA.count = 0;
  engine.step(1);
  EXPECT_EQ(recA.count, 3);
  EXPECT_EQ(recB.count, 4);
}

TEST_F(PoolFixture, AResolveHandlerCanVetoResponseAndNotification) {
  struct Veto {
    bool OnResolve(const CollisionInfo& info) {
      ++asked;
      return allow;
    }
    int asked = 0;
    bool allow = false;
  } veto;
  nox::ResolveHandler handler(&veto, &nox::ResolveHandlerCallback<Veto, &Veto::OnResolve>);
  boxB.hull.SetResolveHandler(&handler);
  Interact("A", "B", InteractionType::eResolveAndNotify);
  engine.step(1);
  EXPECT_EQ(veto.asked, 1);
  EXPECT_EQ(boxA.particle.m_Position, V3(100, 50));
  EXPECT_EQ(recA.count + recB.count, 0);
  veto.allow = true;
  engine.step(1);
  EXPECT_EQ(boxA.particle.m_Position, V3(98, 50));
  EXPECT_EQ(recA.count + recB.count, 2);
}

TEST_F(PoolFixture, HullsOfOneOwnerMeetOnlyWhenBothAllowIt) {
  nox::RTTIBase owner;
  boxA.hull.setOwner(&owner);
  boxB.hull.setOwner(&owner);
  Interact("A", "B", InteractionType::eNotify);
  boxA.hull.setCollideWithSameRTTI(true);
  engine.step(1);
  EXPECT_EQ(recA.count, 0);
  boxB.hull.setCollideWithSameRTTI(true);
  engine.step(1);
  EXPECT_EQ(recA.count, 1);
}

TEST_F(PoolFixture, DisabledHullsAndFixedPairsAreHandledApart) {
  Interact("A", "B", InteractionType::eResolveAndNotify);
  boxA.hull.setEnabled(false);
  engine.step(1);
  EXPECT_EQ(recA.count, 0);
  boxA.hull.setEnabled(true);
  boxA.particle.m_bFixed = true;
  engine.step(1);
  // Two fixed bodies are told, and neither moves.
  EXPECT_EQ(recA.count, 1);
  EXPECT_EQ(recB.count, 1);
  EXPECT_EQ(boxA.particle.m_Position, V3(100, 50));
}

TEST_F(PoolFixture, AHullRemovedInACallbackLeavesAtTheEndOfTheStep) {
  Box second{109, 50, 10, 10, true};
  b->addHull(&second.hull);
  Recorder recSecond;
  recSecond.Attach(second.hull);
  struct Remover {
    void OnCollision(const CollisionInfo& info) {
      pool->removeHull(victim);
      countDuringStep = pool->GetHullCount();
    }
    CollisionPool* pool;
    nox::AbstractHull* victim;
    unsigned countDuringStep = 0;
  } remover{b, &second.hull};
  nox::CollisionNotifier notifier(&remover, &nox::HullCallback<Remover, &Remover::OnCollision>);
  boxA.hull.AddNotifier(&notifier);
  Interact("A", "B", InteractionType::eNotify);
  engine.step(1);
  EXPECT_EQ(remover.countDuringStep, 2u);
  EXPECT_EQ(recSecond.count, 1);  // still swept in the step that removed it
  EXPECT_EQ(b->GetHullCount(), 1u);
  EXPECT_FALSE(b->ContainsHull(&second.hull));
  engine.step(1);
  EXPECT_EQ(recSecond.count, 1);
  EXPECT_EQ(engine.GetFreeNodeCount(), 62u);
}

TEST_F(PoolFixture, AHullAddedInACallbackIsListedAtOnceAndSweptFromTheNextStep) {
  Box newcomer{109, 50, 10, 10};
  Recorder recNew;
  recNew.Attach(newcomer.hull);
  struct Adder {
    void OnCollision(const CollisionInfo& info) {
      if (done) return;
      done = true;
      pool->addHull(hull);
      firstAfterAdd = pool->GetFirstNode()->m_pHull;
    }
    CollisionPool* pool;
    nox::AbstractHull* hull;
    bool done = false;
    nox::AbstractHull* firstAfterAdd = nullptr;
  } adder{b, &newcomer.hull};
  nox::CollisionNotifier notifier(&adder, &nox::HullCallback<Adder, &Adder::OnCollision>);
  boxA.hull.AddNotifier(&notifier);
  Interact("A", "B", InteractionType::eNotify);
  engine.step(1);
  EXPECT_EQ(adder.firstAfterAdd, &newcomer.hull);
  EXPECT_EQ(b->GetHullCount(), 2u);
  EXPECT_EQ(recNew.count, 0);
  engine.step(1);
  EXPECT_EQ(recNew.count, 1);
  // Sorted in by min x: boxB (103) before the newcomer (104).
  EXPECT_EQ(b->GetFirstNode()->m_pHull, &boxB.hull);
}

TEST_F(PoolFixture, StepZeroIntegratesAndTestsNothing) {
  Interact("A", "B", InteractionType::eResolveAndNotify);
  boxA.particle.m_PreviousPosition = V3(99, 50);
  engine.addForce(V3(0, 2));
  engine.step(0);
  EXPECT_EQ(boxA.particle.m_Position, V3(101, 52));
  EXPECT_EQ(recA.count, 0);
}

TEST(ListSort, InsertionSortsAreStableAndOrderByTheirKeys) {
  ProjectedHull head;
  ProjectedHull nodes[5];
  const int minX[5] = {5, 3, 9, 3, 1};
  const int maxY[5] = {2, 7, 7, 1, 9};
  nox::RectangleHull dummy;
  ProjectedHull* prev = &head;
  for (int i = 0; i < 5; ++i) {
    nodes[i].m_pHull = &dummy;
    nodes[i].m_MinX = Real(minX[i]);
    nodes[i].m_MaxY = Real(maxY[i]);
    nodes[i].m_pPrev = prev;
    prev->m_pNext = &nodes[i];
    prev = &nodes[i];
  }
  auto indices = [&]() {
    std::vector<int> v;
    ProjectedHull* back = &head;
    for (ProjectedHull* n = head.m_pNext; n; n = n->m_pNext) {
      EXPECT_EQ(n->m_pPrev, back);
      back = n;
      v.push_back(static_cast<int>(n - nodes));
    }
    return v;
  };
  nox::insertion_sort(&head);
  EXPECT_EQ(indices(), (std::vector<int>{4, 1, 3, 0, 2}));
  nox::y_insertion_sort(&head);
  EXPECT_EQ(indices(), (std::vector<int>{4, 1, 2, 0, 3}));
}

TEST(BroadPhase, OnlyHullsOverlappingInXReachTheShapeTests) {
  nox::PhysicsEngine engine(Real(1), 64);
  nox::CollisionPoolMap pools(engine);
  CollisionPool* walls = pools.AddDefinition("Wall", 0, false);
  CollisionPool* movers = pools.AddDefinition("Mover", 0, false);
  CollisionPool* row = pools.AddDefinition("Row", 0, false);
  pools.SetInteraction(HashString("Mover"), HashString("Wall"), InteractionType::eNotify);
  pools.SetInteraction(HashString("Row"), HashString("Row"), InteractionType::eNotify);
  int wallTests = 0;
  int rowTests = 0;
  std::vector<std::unique_ptr<CountingBox>> boxes;
  for (int i = 9; i >= 0; --i) {
    boxes.emplace_back(new CountingBox(i * 30, 0, 10, &wallTests));
    boxes.back()->particle.m_bFixed = true;
    walls->addHull(&boxes.back()->counting);
  }
  // The first mover overlaps wall 3 only; the second overlaps wall 5 in x, not y.
  Box mover(96, 4, 10, 10);
  Box high(150, -40, 10, 10);
  movers->addHull(&mover.hull);
  movers->addHull(&high.hull);
  // Six boxes in a row, each overlapping the next.
  for (int i = 0; i < 6; ++i) {
    boxes.emplace_back(new CountingBox(200 + i * 8, 0, 10, &rowTests));
    row->addHull(&boxes.back()->counting);
  }
  engine.step(1);
  EXPECT_EQ(wallTests, 1);
  EXPECT_EQ(rowTests, 5);
  // The walls' list is whole again after the sweep unlinked the passed ones.
  int listed = 0;
  for (ProjectedHull* n = walls->GetFirstNode(); n; n = n->m_pNext) ++listed;
  EXPECT_EQ(listed, 10);
}

TEST_F(PoolFixture, QueriesTraceRaysAndTestPlacements) {
  Box far{200, 50, 10, 10};
  b->addHull(&far.hull);
  b->projectPool();
  Vector3 out;
  EXPECT_EQ(b->Trace(V3(0, 50), V3(300, 50), out), &boxB.hull);
  EXPECT_EQ(out.y, Real(50));
  EXPECT_EQ(b->Trace(V3(0, 0), V3(300, 0), out), nullptr);
  EXPECT_EQ(out, V3(300, 0));
  boxB.hull.setEnabled(false);
  EXPECT_EQ(b->Trace(V3(0, 50), V3(300, 50), out), &far.hull);
  boxB.hull.setEnabled(true);

  nox::Particle origin(V3(0, 50));
  nox::Particle destination(V3(190, 50));
  nox::Ray ray;
  ray.Init(&origin, &destination, std::vector<CollisionPool*>{a, b});
  EXPECT_TRUE(ray.resolveIntersection(nullptr, out, false));
  EXPECT_EQ(out, V3(95, 50));  // the first pool's hit wins
  ray.removeFromIntersectableVector(a);
  destination.m_Position = V3(206, 50);
  EXPECT_TRUE(ray.resolveIntersection(nullptr, out, false));
  EXPECT_EQ(out, V3(103, 50));

  Box probe{112, 50, 10, 10};
  EXPECT_TRUE(b->collidesWithHull(probe.hull));
  probe.particle.m_Position = V3(150, 50);
  EXPECT_FALSE(b->collidesWithHull(probe.hull));
  EXPECT_EQ(boxB.particle.m_Position, V3(108, 50));

  EXPECT_EQ(b->GetBoundingBox(), nox::Rectangle(Real(103), Real(45), Real(205), Real(55)));
  nox::CollisionPool empty(engine, 0, false);
  EXPECT_EQ(empty.GetBoundingBox(), nox::Rectangle());
}

TEST_F(PoolFixture, PoolMapKeepsOnePoolPerNameAndRegistersItOnce) {
  EXPECT_EQ(pools.AddDefinition("A", 0x12345678, true), a);
  EXPECT_EQ(a->GetColour(), 0xFF0000FFu);
  EXPECT_FALSE(a->IsStacking());
  EXPECT_EQ(pools.GetPool(HashString("B")), b);
  EXPECT_EQ(engine.GetPools(), (std::vector<CollisionPool*>{a, b}));
  pools.Destroy();
  EXPECT_TRUE(engine.GetPools().empty());
  EXPECT_EQ(engine.GetFreeNodeCount(), 64u);
}

TEST(PoolLimits, AFullNodeBlockRefusesFurtherHulls) {
  nox::PhysicsEngine engine(Real(1), 2);
  CollisionPool pool(engine, 0, false);
  Box boxes[3] = {{0, 0, 1, 1}, {5, 0, 1, 1}, {10, 0, 1, 1}};
  for (Box& box : boxes) pool.addHull(&box.hull);
  EXPECT_EQ(pool.GetHullCount(), 2u);
  EXPECT_FALSE(pool.ContainsHull(&boxes[2].hull));
}
