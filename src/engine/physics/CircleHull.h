// A circle of a radius around its particle.
#pragma once
#include "physics/AbstractHull.h"

namespace nox {

class CircleHull : public AbstractHull {
 public:
  CircleHull() = default;
  CircleHull(Particle* particle, Real radius, Real elasticity, Real friction, CollisionNotifier* notifier,
             RTTIBase* owner, Real depth, bool sameRTTI);

  Interval getProjection(const Vector2& axis) const override;
  Real GetHeight() const override { return m_Radius + m_Radius; }
  Real GetWidth() const override { return m_Radius + m_Radius; }
  void Draw(const Vector2& offset, unsigned long colour) override;

  CollisionInfo collide(AbstractHull& other) override;
  CollisionInfo collide(RectangleHull& other) override;
  CollisionInfo collide(CircleHull& other) override;
  CollisionInfo collide(PolyHull& other) override;
  // Rays pass through circles.
  bool intersectsRay(Vector3 origin, Vector3 destination, Vector3& hit) override { return false; }

  // The diameter, as GetWidth.
  virtual Real GetWidtht() const { return m_Radius + m_Radius; }

  Real getRadius() const { return m_Radius; }
  void setRadius(Real radius);
  Interval getIntervalX() const;
  Interval getIntervalY() const;

 private:
  Real m_Radius;
};

}  // namespace nox
