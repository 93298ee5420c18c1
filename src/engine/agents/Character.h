// An entity with a sprite and a physics body: the base of everything in a world
// scene that walks, falls or is pushed.
//
// The body is one particle embedded here, with one RectangleHull on it whose
// notifier calls OnCollision. Each frame the sprite leads and the body follows:
// PrePhysics sizes the hull to the sprite's collider rectangle (by default the
// series "Collision") and, when that rectangle has moved, puts the body on its
// centre, keeping the body's velocity; the step moves the body; PostPhysics puts
// the sprite at the body plus m_Offset, the distance from the body to the sprite's
// registration point. The registration point is a named point of the sprite
// ("Feet" when it has one) by which the sprite is anchored, so the character's
// position is where that point stands.
//
// The character joins its scene's engines while initialised and enabled: the
// particle goes to the PhysicsEngine and the hull to the character's collision pool
// (SetCollisionPool; with none, the body moves but meets nothing), the sprite to the
// world AnimationEngine. All are reached through the ContextPool, which must outlive
// the character, as must the engines: destroy characters before their scene's
// engines. The character owns its sprite; the sprite's data is borrowed.
#pragma once
#include "agents/Entity.h"
#include "core/HashString.h"
#include "core/Vector2.h"
#include "core/Vector3.h"
#include "physics/CollisionInfo.h"
#include "physics/CollisionNotifier.h"
#include "physics/Particle.h"
#include "physics/RectangleHull.h"

namespace nox {

class CollisionPool;
class PhysicsEngine;
class TileAnimData;
class TileAnimation;

class Character : public Entity {
  NOX_RTTI_DECLARE

 public:
  static constexpr NameHash kCollisionHash = HashString("Collision");  // the default collider
  static constexpr NameHash kFeetHash = HashString("Feet");            // the registration point when present

  // A sprite on `data` (none for null or unloaded data), the collider "Collision",
  // and the registration point "Feet" if the sprite has it; the position is the
  // sprite's.
  Character(ContextPool& pool, TileAnimData* data);
  // Leaves the engines and deletes the sprite.
  ~Character() override;

  // Physics set up afresh (InitializePhysics, the position taken from the sprite),
  // then as Agent.
  void Init() override;
  // Characters act through their states and subclasses; the base does nothing.
  void Update(unsigned long dt) override {}

  // Entity.
  Animation* GetAnimation() const override;
  // Sets the position, marks the body moved, and moves the sprite.
  void SetPosition(const Vector3& position) override;
  Vector3 GetPosition() const override { return m_Position; }
  // While in the engine: the hull follows the sprite's collider rectangle.
  void PrePhysics() override;
  // While in the engine: the sprite follows the body.
  void PostPhysics() override;
  void AddToPhysicsEngine() override;
  void RemoveFromPhysicsEngine() override;

  virtual TileAnimation* GetTileAnimation() const { return m_pAnimation; }
  virtual const Vector3& GetPositionReference() const { return m_Position; }
  // Keeps z.
  virtual void SetPosition(const Vector2& position);
  virtual void SetDepth(Real depth);
  virtual Real GetDepth() const { return m_Position.z; }
  virtual RectangleHull& GetCollisionHull() { return m_Hull; }
  virtual const RectangleHull& GetCollisionHull() const { return m_Hull; }
  // The body's position minus its previous position: units per frame.
  virtual Vector3 GetVelocity() const { return m_Body.getVelocity(); }
  virtual void SetVelocity(const Vector3& velocity);
  // Keeps the z part.
  virtual void SetVelocity(const Vector2& velocity);
  // x and y to 0; z is kept.
  virtual void KillVelocity();
  // Called by the hull's notifier during the step; the base does nothing.
  virtual void OnCollision(const CollisionInfo& info) {}
  // Body, hull and offset back to their start: all at 0, mass 1.0, out of the
  // engine, moved, not fixed; hull of depth 1000.0, friction 1.0, elasticity 1.0.
  virtual void InitializePhysics();
  virtual void AddToAnimationEngine();
  virtual void RemoveFromAnimationEngine();
  // Hull to the collider rectangle of the sprite's current frame; the body onto its
  // centre when that moved. With no such rectangle the hull is disabled.
  virtual void SizeCollisionToAnimRect();

  // Makes the sprite on `data` (after dropping any former one).
  void InitTileAnimation(TileAnimData* data);
  void UnloadTileAnimation();
  // The rectangle series the hull takes.
  void SetCollider(NameHash collider) { m_Collider = collider; }
  NameHash GetCollider() const { return m_Collider; }
  // The point of the sprite by which it is held at the position; an unknown point
  // leaves the sprite unanchored.
  void SetRegistration(NameHash point);
  NameHash GetRegistration() const { return m_Registration; }
  // The pool the hull joins while in the engine; null for none. Moves a hull that is
  // in the engine already. The NameHash form looks the pool up in the scene's map.
  void SetCollisionPool(CollisionPool* pool);
  void SetCollisionPool(NameHash pool);
  CollisionPool* GetCollisionPool() const { return m_pCollisionPool; }
  // Whether the hull meets others (while the sprite has a collider rectangle).
  void SetCollide(bool collide);
  bool GetCollide() const { return m_bCollide; }

  Particle& GetBody() { return m_Body; }
  const Particle& GetBody() const { return m_Body; }
  const Vector3& GetOffset() const { return m_Offset; }
  bool IsInPhysicsEngine() const { return m_bInEngine; }
  bool IsInAnimationEngine() const { return m_bInAnimationEngine; }
  // Fixed in place: not moved by integration, collisions or constraints.
  void SetPinned(bool pinned) { m_Body.m_bFixed = pinned; }
  bool IsPinned() const { return m_Body.m_bFixed; }

 protected:
  void EnableImpl() override;
  void DisableImpl() override;

  PhysicsEngine* GetPhysicsEngine() const;

  Particle m_Body;  // m_bMoved is the dirty flag, m_bFixed the pinned flag
  bool m_bInEngine = false;
  Vector3 m_Position;  // world pixels; where the registration point stands
  RectangleHull m_Hull;
  CollisionNotifier m_Notifier;           // calls OnCollision
  Vector3 m_Offset;                       // from the body to the registration point
  TileAnimation* m_pAnimation = nullptr;  // owned
  NameHash m_Collider = 0;
  NameHash m_Registration = 0;
  bool m_bCollide = true;
  bool m_bInAnimationEngine = false;
  CollisionPool* m_pCollisionPool = nullptr;  // borrowed from the scene's pool map
};

}  // namespace nox
