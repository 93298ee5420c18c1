#include "physics/Rig.h"

#include "physics/AbstractConstraint.h"
#include "physics/AbstractHull.h"
#include "physics/CollisionPool.h"
#include "physics/Particle.h"
#include "physics/PhysicsEngine.h"

namespace nox {

Rig::~Rig() {
  deleteTracked();
}

void Rig::setVelocity(const Vector3& velocity) {
  for (Particle* p : m_Particles) p->m_PreviousPosition = p->m_Position - velocity;
}

void Rig::addForce(const Vector3& force) {
  for (Particle* p : m_Particles) p->m_Force += force;
}

void Rig::setFixed(bool fixed) {
  for (Particle* p : m_Particles) p->m_bFixed = fixed;
}

void Rig::setFriction(Real friction) {
  for (HullEntry& entry : m_Hulls) entry.first->setFriction(friction);
}

void Rig::setElasticity(Real elasticity) {
  for (HullEntry& entry : m_Hulls) entry.first->setElasticity(elasticity);
}

void Rig::enlist() {
  if (m_bEnlisted) return;
  for (Particle* p : m_Particles) m_pEngine->AddParticle(p);
  for (AbstractConstraint* c : m_Constraints) m_pEngine->AddConstraint(c);
  for (HullEntry& entry : m_Hulls) {
    if (entry.second) entry.second->addHull(entry.first);
  }
  m_bEnlisted = true;
}

void Rig::delist() {
  if (!m_bEnlisted) return;
  for (Particle* p : m_Particles) m_pEngine->RemoveParticle(p);
  for (AbstractConstraint* c : m_Constraints) m_pEngine->RemoveConstraint(c);
  for (HullEntry& entry : m_Hulls) {
    if (entry.second) entry.second->removeHull(entry.first);
  }
  m_bEnlisted = false;
}

void Rig::deleteTracked() {
  delist();
  for (AbstractConstraint* c : m_Constraints) delete c;
  for (HullEntry& entry : m_Hulls) delete entry.first;
  for (Particle* p : m_Particles) delete p;
  m_Constraints.clear();
  m_Hulls.clear();
  m_Particles.clear();
}

void Rig::setPool(AbstractHull* hull, CollisionPool* pool) {
  for (HullEntry& entry : m_Hulls) {
    if (entry.first != hull) continue;
    if (m_bEnlisted && entry.second) entry.second->removeHull(hull);
    entry.second = pool;
    if (m_bEnlisted && pool) pool->addHull(hull);
    return;
  }
  addHull(hull, pool);
}

void Rig::addParticle(Particle* particle) {
  m_Particles.push_back(particle);
  if (m_bEnlisted) m_pEngine->AddParticle(particle);
}

void Rig::addConstraint(AbstractConstraint* constraint) {
  m_Constraints.push_back(constraint);
  if (m_bEnlisted) m_pEngine->AddConstraint(constraint);
}

void Rig::addHull(AbstractHull* hull, CollisionPool* pool) {
  m_Hulls.push_back(HullEntry(hull, pool));
  if (m_bEnlisted && pool) pool->addHull(hull);
}

CollisionPool* Rig::getPool(const AbstractHull* hull) const {
  for (const HullEntry& entry : m_Hulls) {
    if (entry.first == hull) return entry.second;
  }
  return nullptr;
}

}  // namespace nox
