// A box between two particles: centred on their midpoint and turned along the line
// from the first to the second, so that it tumbles as they move. update() brings
// the axes up to date, and every collide() calls it first. The second particle is
// borrowed like the first.
//
// SpringRectangleHull also stretches: its width is always the distance between the
// two particles, so SetWidth does nothing.
#pragma once
#include "physics/RotateRectHull.h"

namespace nox {

class TumbleRectangleHull : public RotateRectHull {
 public:
  TumbleRectangleHull() = default;
  TumbleRectangleHull(Particle* first, Particle* second, Real width, Real height, Real elasticity,
                      Real friction, CollisionNotifier* notifier, RTTIBase* owner, Real depth);

  // The midpoint of the two particles.
  Vector3 getPosition() const override;
  void update() override;
  // Moves both particles (unless fixed) and gives them `velocity`; sets no moved flag.
  void resolveCollision(Vector3 offset, Vector3 velocity, Vector3 normal, Real depth, Real sign) override;

  CollisionInfo collide(AbstractHull& other) override;
  CollisionInfo collide(RectangleHull& other) override;
  CollisionInfo collide(CircleHull& other) override;
  using RectangleHull::collide;
  // Rays pass through tumbling boxes.
  bool intersectsRay(Vector3 origin, Vector3 destination, Vector3& hit) override { return false; }

  // Radians of the line from the first particle to the second.
  virtual Real getZRotation() const;
  // The angle always follows the particles.
  virtual void setZRotation(Real radians) {}
  virtual void getDelta(Vector2& delta) const;
  virtual void getDelta(Vector3& delta) const;

  Particle* getSecondParticle() const { return m_pSecond; }

 protected:
  Particle* m_pSecond = nullptr;  // borrowed
};

class SpringRectangleHull : public TumbleRectangleHull {
 public:
  SpringRectangleHull() = default;
  SpringRectangleHull(Particle* first, Particle* second, Real width, Real height, Real elasticity,
                      Real friction, CollisionNotifier* notifier, RTTIBase* owner, Real depth);

  void update() override;
  void SetWidth(Real width) override {}
};

}  // namespace nox
