// Once a scene is set up, its steps allocate nothing: not the sweeps, not the
// callbacks, not hulls leaving and joining pools, not a rig delisted and enlisted
// again between frames.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <vector>

#include "PhysicsTestSupport.h"
#include "core/HashString.h"
#include "physics/CollisionPool.h"
#include "physics/CollisionPoolMap.h"
#include "physics/PhysicsEngine.h"
#include "physics/Rig.h"
#include "physics/StickConstraint.h"

// Sanitizer builds keep their own allocator, whose operator new this file cannot
// replace; there the count is not taken and the test is skipped.
#if defined(__SANITIZE_ADDRESS__)
#define NOX_COUNTS_ALLOCATIONS 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define NOX_COUNTS_ALLOCATIONS 0
#endif
#endif
#ifndef NOX_COUNTS_ALLOCATIONS
#define NOX_COUNTS_ALLOCATIONS 1
#endif

namespace {
std::atomic<bool> s_Counting{false};
std::atomic<int> s_Allocations{0};
}  // namespace

#if NOX_COUNTS_ALLOCATIONS
// GCC takes the frees below for a mismatch with the replaced operator new.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t size) {
  if (s_Counting) ++s_Allocations;
  if (void* p = std::malloc(size ? size : 1)) return p;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void operator delete(void* p) noexcept {
  std::free(p);
}
void operator delete[](void* p) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
  std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
  std::free(p);
}
#endif

using namespace physics_test;
using nox::HashString;
using nox::InteractionType;

TEST(SteadyStep, StepsOfASetUpSceneAllocateNothing) {
  if (!NOX_COUNTS_ALLOCATIONS) GTEST_SKIP() << "allocations are not counted under the address sanitizer";
  nox::PhysicsEngine engine(Real(1), 64);
  nox::CollisionPoolMap pools(engine);
  nox::CollisionPool* ground = pools.AddDefinition("Ground", 0, false);
  nox::CollisionPool* boxes = pools.AddDefinition("Boxes", 0, true);
  nox::CollisionPool* bodies = pools.AddDefinition("Bodies", 0, false);
  pools.SetInteraction(HashString("Boxes"), HashString("Ground"), InteractionType::eResolve);
  pools.SetInteraction(HashString("Boxes"), HashString("Boxes"), InteractionType::eResolveAndNotify);
  pools.SetInteraction(HashString("Bodies"), HashString("Ground"), InteractionType::eResolveAndNotify);
  pools.SetInteraction(HashString("Bodies"), HashString("Boxes"), InteractionType::eResolve);

  Box floor(200, 200, 400, 20, true);
  ground->addHull(&floor.hull);
  std::vector<std::unique_ptr<Box>> pile;
  for (int i = 0; i < 8; ++i) {
    pile.emplace_back(new Box(40 + (i % 4) * 30, 180 - (i / 4) * 20, 20, 20));
    boxes->addHull(&pile.back()->hull);
    engine.AddParticle(&pile.back()->particle);
  }
  Recorder recorder;
  recorder.Attach(pile[0]->hull);
  nox::Rig rig(&engine);
  auto* p = new nox::Particle(V3(300, 150));
  auto* q = new nox::Particle(V3(320, 150));
  rig.addParticle(p);
  rig.addParticle(q);
  rig.addConstraint(new nox::StickConstraint(p, q));
  rig.addHull(new nox::RectangleHull(p, Real(10), Real(10), Real(), Real(), nullptr, &floor.self, Real(2)),
              bodies);
  rig.enlist();

  auto frame = [&](int i) {
    engine.addScaledForce(Vector3(Real(), Raw(0x8000), Real()));
    engine.step(1);
    if (i % 10 == 0) {
      boxes->removeHull(&pile[7]->hull);
      rig.delist();
    } else if (i % 10 == 5) {
      boxes->addHull(&pile[7]->hull);
      rig.enlist();
    }
  };
  for (int i = 0; i < 20; ++i) frame(i);
  s_Allocations = 0;
  s_Counting = true;
  for (int i = 20; i < 220; ++i) frame(i);
  s_Counting = false;
  EXPECT_EQ(s_Allocations, 0);
  EXPECT_GT(recorder.count, 0);
}
