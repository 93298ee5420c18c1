#include "physics/PhysicsEngine.h"

#include <algorithm>

#include "core/Settings.h"
#include "physics/AbstractConstraint.h"
#include "physics/CollisionPool.h"
#include "physics/Particle.h"
#include "physics/PhysicsDebugDraw.h"

namespace nox {
namespace {

constexpr size_t kParticleCapacity = 2000;
// Room for registrations made during steps, so that enlisting a rig then does not
// allocate either.
constexpr size_t kPendingCapacity = 64;
constexpr unsigned long kParticleColour = 0x800080C8;
constexpr unsigned long kConstraintColour = 0x00FF00C8;

template <class T>
bool Contains(const std::vector<T*>& v, const T* item) {
  return std::find(v.begin(), v.end(), item) != v.end();
}

template <class T>
void Enqueue(const std::vector<T*>& live, std::vector<T*>& toAdd, T* item) {
  if (!Contains(live, item) && !Contains(toAdd, item)) toAdd.push_back(item);
}

// Removals first, from the back of the queue, keeping the live order; then
// additions, in queue order.
template <class T>
void WorkOff(std::vector<T*>& live, std::vector<T*>& toAdd, std::vector<T*>& toRemove) {
  while (!toRemove.empty()) {
    auto it = std::find(live.begin(), live.end(), toRemove.back());
    if (it != live.end()) live.erase(it);
    toRemove.pop_back();
  }
  for (T* item : toAdd) {
    if (!Contains(live, item)) live.push_back(item);
  }
  toAdd.clear();
}

template <class T>
void Erase(std::vector<T*>& v, const T* item) {
  v.erase(std::remove(v.begin(), v.end(), item), v.end());
}

}  // namespace

PhysicsEngine::PhysicsEngine(Real timeStep, unsigned hullCount) : m_TimeStepSquared(timeStep * timeStep) {
  m_Particles.reserve(kParticleCapacity);
  for (auto* v : {&m_PoolsToAdd, &m_PoolsToRemove}) v->reserve(kPendingCapacity);
  for (auto* v : {&m_ParticlesToAdd, &m_ParticlesToRemove}) v->reserve(kPendingCapacity);
  for (auto* v : {&m_ConstraintsToAdd, &m_ConstraintsToRemove}) v->reserve(kPendingCapacity);
  ProjectedHull* block = m_NodeBlock.Allocate(hullCount);
  m_FreeNodes.reserve(hullCount);
  for (unsigned i = 0; i < hullCount; ++i) m_FreeNodes.push_back(&block[i]);
}

PhysicsEngine::~PhysicsEngine() {
  // Pools that outlive the engine must not touch nodes of the block freed here.
  for (CollisionPool* pool : m_Pools) pool->DetachFromEngine();
  for (CollisionPool* pool : m_PoolsToAdd) {
    if (!Contains(m_Pools, pool)) pool->DetachFromEngine();
  }
}

void PhysicsEngine::step(unsigned char iterations) {
  ProcessAllocation();
  m_bInStep = true;
  applyGlobalForces();
  integrate();
  for (unsigned i = 0; i < iterations; ++i) {
    clearResolveFlags();
    satisfyConstraints();
    checkCollisions();
    checkResolveFlags();
  }
  m_bInStep = false;
  ProcessAllocation();
}

void PhysicsEngine::ProcessAllocation() {
  for (CollisionPool* pool : m_Pools) pool->CollectGarbage();
  WorkOff(m_Pools, m_PoolsToAdd, m_PoolsToRemove);
  WorkOff(m_Particles, m_ParticlesToAdd, m_ParticlesToRemove);
  WorkOff(m_Constraints, m_ConstraintsToAdd, m_ConstraintsToRemove);
}

void PhysicsEngine::applyGlobalForces() {
  // A force with only a z part is not applied, and waits.
  if (m_ScaledForce.x != Real() || m_ScaledForce.y != Real()) {
    for (Particle* p : m_Particles) p->m_Force += m_ScaledForce * p->m_ForceScale;
    m_ScaledForce = Vector3();
  }
  if (m_Force.x != Real() || m_Force.y != Real()) {
    for (Particle* p : m_Particles) p->m_Force += m_Force;
    m_Force = Vector3();
  }
}

void PhysicsEngine::integrate() {
  for (Particle* p : m_Particles) p->update(m_TimeStepSquared, m_Damping);
}

void PhysicsEngine::clearResolveFlags() {
  for (CollisionPool* pool : m_Pools) pool->clearResolveFlags();
}

void PhysicsEngine::satisfyConstraints() {
  for (AbstractConstraint* c : m_Constraints) c->resolve();
}

void PhysicsEngine::checkCollisions() {
  for (CollisionPool* pool : m_Pools) pool->projectPool();
  for (CollisionPool* pool : m_Pools) pool->collide();
  for (CollisionPool* pool : m_Pools) pool->collideWithHeightMap();
}

void PhysicsEngine::checkResolveFlags() {
  for (CollisionPool* pool : m_Pools) pool->checkResolveFlags();
}

void PhysicsEngine::AddPool(CollisionPool* pool) {
  Enqueue(m_Pools, m_PoolsToAdd, pool);
  if (!m_bInStep) ProcessAllocation();
}

void PhysicsEngine::RemovePool(CollisionPool* pool) {
  m_PoolsToRemove.push_back(pool);
  if (!m_bInStep) ProcessAllocation();
}

void PhysicsEngine::AddParticle(Particle* particle) {
  Enqueue(m_Particles, m_ParticlesToAdd, particle);
  if (!m_bInStep) ProcessAllocation();
}

void PhysicsEngine::RemoveParticle(Particle* particle) {
  m_ParticlesToRemove.push_back(particle);
  if (!m_bInStep) ProcessAllocation();
}

void PhysicsEngine::AddConstraint(AbstractConstraint* constraint) {
  Enqueue(m_Constraints, m_ConstraintsToAdd, constraint);
  if (!m_bInStep) ProcessAllocation();
}

void PhysicsEngine::RemoveConstraint(AbstractConstraint* constraint) {
  m_ConstraintsToRemove.push_back(constraint);
  if (!m_bInStep) ProcessAllocation();
}

void PhysicsEngine::ForgetPool(CollisionPool* pool) {
  Erase(m_Pools, pool);
  Erase(m_PoolsToAdd, pool);
  Erase(m_PoolsToRemove, pool);
}

ProjectedHull* PhysicsEngine::TakeNode() {
  if (m_FreeNodes.empty()) return nullptr;
  ProjectedHull* node = m_FreeNodes.back();
  m_FreeNodes.pop_back();
  return node;
}

void PhysicsEngine::ReturnNode(ProjectedHull* node) {
  m_FreeNodes.push_back(node);
}

void PhysicsEngine::Draw() {
  Draw(Vector2());
}

void PhysicsEngine::Draw(const Vector2& offset) {
  if (!PhysicsDebugDraw::IsAvailable()) return;
  const bool wanted =
      m_bDebugDraw || (Settings::s_pSettings && Settings::s_pSettings->GetBoolValue("Draw Physics"));
  if (!wanted) return;
  for (CollisionPool* pool : m_Pools) pool->Draw(offset);
  for (Particle* p : m_Particles) p->Draw(offset, kParticleColour);
  for (AbstractConstraint* c : m_Constraints) c->Draw(offset, kConstraintColour);
}

}  // namespace nox
