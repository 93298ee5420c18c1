// Base of the collision shapes. A hull sits on a particle it does not own and is
// flat: every test is made in x and y, and z counts only as the band that
// GetProjectionZ reports. Hulls live in one CollisionPool at a time; the pool's
// broad phase decides which pairs reach the shape tests, and the double dispatch of
// collide() picks the test for the concrete pair. Whoever creates a hull deletes it,
// after taking it out of its pool.
//
// Flags: a disabled hull is skipped everywhere (the interfaces of rigs call this
// collidable); dirty asks the pool to re-project it; resolved says that it touched
// something in the present relaxation iteration.
#pragma once
#include "core/RTTIBase.h"
#include "core/Real.h"
#include "core/Vector2.h"
#include "core/Vector3.h"
#include "physics/CollisionInfo.h"
#include "physics/CollisionNotifier.h"
#include "physics/Interval.h"

namespace nox {

class Particle;
class RectangleHull;
class CircleHull;
class PolyHull;

class AbstractHull {
 public:
  AbstractHull() = default;
  AbstractHull(const AbstractHull&) = delete;
  AbstractHull& operator=(const AbstractHull&) = delete;
  virtual ~AbstractHull() = default;

  // Stores everything, enables the hull, and marks it dirty if it was disabled.
  // `notifier` becomes the head of the list as it is (it may be shared between
  // hulls); `depth` is the full z extent.
  virtual void Initialize(Particle* particle, Real elasticity, Real friction, CollisionNotifier* notifier,
                          RTTIBase* owner, Real depth, bool sameRTTI);

  virtual Interval getProjection(const Vector2& axis) const { return Interval(); }
  virtual Interval GetProjectionX() const { return getProjection(Vector2(Real(1), Real())); }
  virtual Interval GetProjectionY() const { return getProjection(Vector2(Real(), Real(1))); }
  virtual Interval GetProjectionZ() const;
  virtual Real GetHeight() const { return Real(1); }
  virtual Real GetWidth() const { return Real(1); }
  virtual void SetResolveHandler(ResolveHandler* handler) { m_pResolveHandler = handler; }
  virtual Vector3 getPosition() const;
  // Brings derived state (axes, size) up to date from the particles.
  virtual void update() {}
  virtual void Draw(const Vector2& offset, unsigned long colour) = 0;

  // Moves the particle by `offset` and gives it `velocity`; a fixed particle stays.
  virtual void resolveCollision(Vector3 offset, Vector3 velocity, Vector3 normal, Real depth, Real sign);

  // The shape test between this hull and `other`: `other` is asked to test itself
  // against this hull's concrete type. The record is from this hull's side.
  virtual CollisionInfo collide(AbstractHull& other) = 0;
  virtual CollisionInfo collide(RectangleHull& other) = 0;
  virtual CollisionInfo collide(CircleHull& other) = 0;
  virtual CollisionInfo collide(PolyHull& other) = 0;

  // True when the segment from `origin` to `destination` hits the hull, with the
  // point in `hit`.
  virtual bool intersectsRay(Vector3 origin, Vector3 destination, Vector3& hit) = 0;

  virtual Real GetLeft() const;
  virtual Real GetTop() const;
  virtual Real GetRight() const;
  virtual Real GetBottom() const;

  // Head insertion: the last added runs first.
  void AddNotifier(CollisionNotifier* notifier);
  // Unlinks the first node that is `notifier`; an absent one is ignored.
  void RemoveNotifier(CollisionNotifier* notifier);
  CollisionNotifier* GetNotifiers() const { return m_pNotifiers; }

  Particle* getParticle() const { return m_pParticle; }
  void setParticle(Particle* particle) { m_pParticle = particle; }
  bool isEnabled() const { return m_bEnabled; }
  // Turning a hull on marks it dirty, so that its projections are fresh.
  void setEnabled(bool enabled);
  Real getFriction() const { return m_Friction; }
  void setFriction(Real friction) { m_Friction = friction; }
  Real getElasticity() const { return m_Elasticity; }
  void setElasticity(Real elasticity) { m_Elasticity = elasticity; }
  Real getHalfDepth() const { return m_HalfDepth; }
  void setHalfDepth(Real halfDepth) { m_HalfDepth = halfDepth; }
  RTTIBase* getOwner() const { return m_pOwner; }
  void setOwner(RTTIBase* owner) { m_pOwner = owner; }
  ResolveHandler* getResolveHandler() const { return m_pResolveHandler; }
  bool isDirty() const { return m_bDirty; }
  void setDirty(bool dirty) { m_bDirty = dirty; }
  bool isResolved() const { return m_bResolved; }
  void setResolved(bool resolved) { m_bResolved = resolved; }
  bool isInCallback() const { return m_bInCallback; }
  void setInCallback(bool inCallback) { m_bInCallback = inCallback; }
  bool canCollideWithSameRTTI() const { return m_bSameRTTI; }
  void setCollideWithSameRTTI(bool sameRTTI) { m_bSameRTTI = sameRTTI; }

 protected:
  Particle* m_pParticle = nullptr;  // borrowed
  bool m_bEnabled = false;
  Real m_Friction;                              // multiplied between two hulls at contact
  Real m_Elasticity;                            // added between two hulls at contact
  Real m_HalfDepth;                             // half the z extent
  CollisionNotifier* m_pNotifiers = nullptr;    // head of the list; nodes borrowed
  RTTIBase* m_pOwner = nullptr;                 // the agent; hulls of one owner skip each other
  ResolveHandler* m_pResolveHandler = nullptr;  // borrowed
  bool m_bDirty = false;
  bool m_bResolved = false;
  bool m_bInCallback = false;
  bool m_bSameRTTI = false;  // may collide with hulls of its own owner
};

// Real helpers the shape code shares.
inline Real AbsReal(Real r) {
  return r < Real() ? -r : r;
}

inline Real ClampReal(Real r, Real lo, Real hi) {
  return r < lo ? lo : (r > hi ? hi : r);
}

}  // namespace nox
