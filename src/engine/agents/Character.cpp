#include "agents/Character.h"

#include "agents/ContextPool.h"
#include "graphics/AnimationEngine.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "physics/CollisionPool.h"
#include "physics/CollisionPoolMap.h"
#include "physics/PhysicsEngine.h"

namespace nox {

NOX_RTTI_DEFINE(Character, Entity);

namespace {

const Real kHullDepth = Real(1000);
const Real kHullFriction = Real(1);
const Real kHullElasticity = Real(1);

}  // namespace

Character::Character(ContextPool& pool, TileAnimData* data)
    : Entity(pool), m_Notifier(this, &HullCallback<Character, &Character::OnCollision>) {
  InitializePhysics();
  InitTileAnimation(data);
  SetCollider(kCollisionHash);
  if (m_pAnimation && m_pAnimation->HasPoint(kFeetHash)) SetRegistration(kFeetHash);
  if (m_pAnimation) m_Position = m_pAnimation->GetPosition();
}

Character::~Character() {
  // Agent's destructor disables through the base only: leave the engines here,
  // while the members they point at still exist.
  RemoveFromPhysicsEngine();
  UnloadTileAnimation();
}

void Character::Init() {
  const Vector3 position = m_pAnimation ? m_pAnimation->GetPosition() : m_Position;
  InitializePhysics();
  SetPosition(position);
  Entity::Init();
}

Animation* Character::GetAnimation() const {
  return m_pAnimation;
}

void Character::InitializePhysics() {
  if (m_bInEngine) RemoveFromPhysicsEngine();
  m_Body = Particle();
  m_Position = Vector3();
  m_Offset = Vector3();
  m_bInEngine = false;
  m_Hull.Initialize(&m_Body, Real(), Real(), kHullElasticity, kHullFriction, &m_Notifier, this, kHullDepth);
  // Off until it is sized to the sprite's collider.
  m_Hull.setEnabled(false);
}

void Character::InitTileAnimation(TileAnimData* data) {
  const bool shown = m_bInAnimationEngine;
  UnloadTileAnimation();
  if (data) m_pAnimation = data->CreateCellAnimation();
  if (!m_pAnimation) return;
  m_pAnimation->SetPosition(m_Position);
  if (m_Registration != 0) SetRegistration(m_Registration);
  // A sprite given to a character at play shows at once.
  if (shown || (m_bInitialised && m_bEnabled)) AddToAnimationEngine();
}

void Character::UnloadTileAnimation() {
  RemoveFromAnimationEngine();
  delete m_pAnimation;
  m_pAnimation = nullptr;
}

void Character::SetRegistration(NameHash point) {
  m_Registration = point;
  if (m_pAnimation) m_pAnimation->SetAnchor(point);
}

void Character::SetPosition(const Vector3& position) {
  m_Position = position;
  m_Body.m_bMoved = true;
  if (m_pAnimation) m_pAnimation->SetPosition(position);
}

void Character::SetPosition(const Vector2& position) {
  SetPosition(Vector3(position, m_Position.z));
}

void Character::SetDepth(Real depth) {
  SetPosition(Vector3(m_Position.x, m_Position.y, depth));
}

void Character::SetVelocity(const Vector3& velocity) {
  m_Body.m_PreviousPosition = m_Body.m_Position - velocity;
}

void Character::SetVelocity(const Vector2& velocity) {
  m_Body.m_PreviousPosition.x = m_Body.m_Position.x - velocity.x;
  m_Body.m_PreviousPosition.y = m_Body.m_Position.y - velocity.y;
}

void Character::KillVelocity() {
  m_Body.m_PreviousPosition.x = m_Body.m_Position.x;
  m_Body.m_PreviousPosition.y = m_Body.m_Position.y;
}

void Character::SetCollide(bool collide) {
  m_bCollide = collide;
  // A hull without a rectangle stays off; the next sizing turns it on.
  if (!collide || m_Hull.GetWidth() > Real() || m_Hull.GetHeight() > Real()) m_Hull.setEnabled(collide);
}

void Character::SizeCollisionToAnimRect() {
  const Rectangle rect = m_pAnimation ? m_pAnimation->GetRect(m_Collider) : Rectangle();
  const bool hasRect = rect != Rectangle();
  // Without a collider in this frame the body stands at the position.
  const Vector3 centre =
      hasRect ? Vector3((rect.left + rect.right) / Real(2), (rect.top + rect.bottom) / Real(2), m_Position.z)
              : m_Position;
  if (centre != m_Body.m_Position) {
    // Moved with its previous position, so that the body keeps its velocity.
    const Vector3 shift = centre - m_Body.m_Position;
    m_Body.m_Position = centre;
    m_Body.m_PreviousPosition += shift;
    m_Body.m_bMoved = true;
  }
  m_Offset = m_Position - centre;
  if (!hasRect) {
    m_Hull.setEnabled(false);
    return;
  }
  const Real halfWidth = (rect.right - rect.left) / Real(2);
  const Real halfHeight = (rect.bottom - rect.top) / Real(2);
  if (halfWidth != m_Hull.getHalfWidth() || halfHeight != m_Hull.getHalfHeight()) {
    m_Hull.setHalfSize(halfWidth, halfHeight);
  }
  if (m_bCollide && !m_Hull.isEnabled()) m_Hull.setEnabled(true);
}

void Character::PrePhysics() {
  if (m_bInEngine) SizeCollisionToAnimRect();
}

void Character::PostPhysics() {
  if (m_bInEngine) SetPosition(m_Body.m_Position + m_Offset);
}

PhysicsEngine* Character::GetPhysicsEngine() const {
  const PhysicsContext* context = m_pContextPool->m_pPhysicsContext;
  return context ? context->m_pPhysicsEngine : nullptr;
}

void Character::AddToPhysicsEngine() {
  if (m_bInEngine) return;
  PhysicsEngine* engine = GetPhysicsEngine();
  if (!engine) return;
  m_bInEngine = true;
  SizeCollisionToAnimRect();
  engine->AddParticle(&m_Body);
  if (m_pCollisionPool) m_pCollisionPool->addHull(&m_Hull);
}

void Character::RemoveFromPhysicsEngine() {
  if (!m_bInEngine) return;
  m_bInEngine = false;
  if (PhysicsEngine* engine = GetPhysicsEngine()) engine->RemoveParticle(&m_Body);
  if (m_pCollisionPool) m_pCollisionPool->removeHull(&m_Hull);
}

void Character::SetCollisionPool(CollisionPool* pool) {
  if (pool == m_pCollisionPool) return;
  if (m_bInEngine && m_pCollisionPool) m_pCollisionPool->removeHull(&m_Hull);
  m_pCollisionPool = pool;
  if (m_bInEngine && m_pCollisionPool) m_pCollisionPool->addHull(&m_Hull);
}

void Character::SetCollisionPool(NameHash pool) {
  const PhysicsContext* context = m_pContextPool->m_pPhysicsContext;
  const CollisionPoolMap* map = context ? context->m_pCollisionPoolMap : nullptr;
  SetCollisionPool(map ? map->GetPool(pool) : nullptr);
}

void Character::AddToAnimationEngine() {
  if (m_bInAnimationEngine || !m_pAnimation) return;
  const AnimationContext* context = m_pContextPool->m_pAnimationContext;
  if (!context || !context->m_pWorldEngine) return;
  context->m_pWorldEngine->AddAnimation(m_pAnimation);
  m_bInAnimationEngine = true;
}

void Character::RemoveFromAnimationEngine() {
  if (!m_bInAnimationEngine) return;
  m_bInAnimationEngine = false;
  const AnimationContext* context = m_pContextPool->m_pAnimationContext;
  if (context && context->m_pWorldEngine) context->m_pWorldEngine->RemoveAnimation(m_pAnimation);
}

void Character::EnableImpl() {
  Entity::EnableImpl();
  AddToAnimationEngine();
}

void Character::DisableImpl() {
  Entity::DisableImpl();
  RemoveFromAnimationEngine();
}

}  // namespace nox
