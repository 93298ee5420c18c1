// Shared helpers of the physics tests: raw Real literals, boxes on particles kept
// alive together, and a notifier that records what it was told.
#pragma once
#include <memory>
#include <vector>

#include "physics/CollisionInfo.h"
#include "physics/CollisionNotifier.h"
#include "physics/Particle.h"
#include "physics/RectangleHull.h"

namespace physics_test {

using nox::Real;
using nox::Vector2;
using nox::Vector3;

inline Real Raw(int32_t raw) {
  return Real::FromRaw(raw);
}

inline Vector3 V3(int x, int y, int z = 0) {
  return Vector3(Real(x), Real(y), Real(z));
}

// A particle with a box on it, at rest. Each box is its own owner unless given
// one, since hulls of one owner (null included) never meet.
struct Box {
  Box(int x, int y, int width, int height, bool fixed = false, nox::RTTIBase* owner = nullptr)
      : particle(V3(x, y)),
        hull(&particle, Real(width), Real(height), Real(), Real(), nullptr, owner ? owner : &self, Real(2)) {
    particle.m_bFixed = fixed;
  }
  nox::Particle particle;
  nox::RTTIBase self;
  nox::RectangleHull hull;
};

// Counts the records a hull's notifier receives and keeps the last one.
struct Recorder {
  void OnCollision(const nox::CollisionInfo& info) {
    ++count;
    last = info;
  }
  void Attach(nox::AbstractHull& hull) { hull.AddNotifier(&notifier); }

  int count = 0;
  nox::CollisionInfo last;
  nox::CollisionNotifier notifier{this, &nox::HullCallback<Recorder, &Recorder::OnCollision>};
};

}  // namespace physics_test
