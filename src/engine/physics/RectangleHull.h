// A box of a half width and half height around its particle. This class itself is
// always axis aligned (IsAABB), and its projections ignore the axes; RotateRectHull
// and the two-particle boxes below it turn the axes U and V.
#pragma once
#include "physics/AbstractHull.h"

namespace nox {

class RectangleHull : public AbstractHull {
 public:
  RectangleHull() = default;
  RectangleHull(Particle* particle, Real width, Real height, Real elasticity, Real friction,
                CollisionNotifier* notifier, RTTIBase* owner, Real depth);

  using AbstractHull::Initialize;
  // Sizes are full sizes; the hull may not collide with its own owner's hulls.
  virtual void Initialize(Particle* particle, Real width, Real height, Real elasticity, Real friction,
                          CollisionNotifier* notifier, RTTIBase* owner, Real depth);

  Interval getProjection(const Vector2& axis) const override;
  Interval GetProjectionX() const override;
  Interval GetProjectionY() const override;
  Real GetHeight() const override { return m_HalfHeight + m_HalfHeight; }
  Real GetWidth() const override { return m_HalfWidth + m_HalfWidth; }
  void Draw(const Vector2& offset, unsigned long colour) override;

  CollisionInfo collide(AbstractHull& other) override;
  CollisionInfo collide(RectangleHull& other) override;
  CollisionInfo collide(CircleHull& other) override;
  CollisionInfo collide(PolyHull& other) override;
  // Against the box in world axes, rotation ignored: x faces, then y, then z.
  bool intersectsRay(Vector3 origin, Vector3 destination, Vector3& hit) override;

  Real GetLeft() const override { return getPosition().x - m_HalfWidth; }
  Real GetTop() const override { return getPosition().y - m_HalfHeight; }
  Real GetRight() const override { return getPosition().x + m_HalfWidth; }
  Real GetBottom() const override { return getPosition().y + m_HalfHeight; }

  virtual void SetWidth(Real width);
  virtual void SetHeight(Real height);
  virtual bool IsAABB() const { return true; }

  Real getHalfWidth() const { return m_HalfWidth; }
  Real getHalfHeight() const { return m_HalfHeight; }
  // Half sizes directly, for code that tracks a box each frame; marks the hull dirty.
  void setHalfSize(Real halfWidth, Real halfHeight);
  const Vector2& getAxisU() const { return m_AxisU; }
  const Vector2& getAxisV() const { return m_AxisV; }

 protected:
  Real m_HalfWidth;
  Real m_HalfHeight;
  Vector2 m_AxisU = Vector2(Real(1), Real());  // the box's x direction, unit length
  Vector2 m_AxisV = Vector2(Real(), Real(1));  // its y direction
};

}  // namespace nox
