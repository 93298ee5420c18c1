#include "physics/CollisionPool.h"

#include "core/Debug.h"
#include "physics/AbstractHull.h"
#include "physics/CollisionDetector.h"
#include "physics/Particle.h"
#include "physics/PhysicsEngine.h"

namespace nox {
namespace {

constexpr size_t kPartnerCapacity = 32;

}  // namespace

CollisionPool::CollisionPool(PhysicsEngine& engine, unsigned long colour, bool stacking)
    : m_bStacking(stacking), m_pEngine(&engine), m_Colour(static_cast<uint32_t>(colour)) {
  m_Sentinel.m_MinX = Real(-32000);
  m_Partners.reserve(kPartnerCapacity);
  m_Interactions.reserve(kPartnerCapacity);
}

CollisionPool::~CollisionPool() {
  if (!m_pEngine) return;
  m_pEngine->ForgetPool(this);
  for (ProjectedHull* node = m_Sentinel.m_pNext; node;) {
    ProjectedHull* next = node->m_pNext;
    m_pEngine->ReturnNode(node);
    node = next;
  }
}

void CollisionPool::DetachFromEngine() {
  m_pEngine = nullptr;
  m_Sentinel.m_pNext = nullptr;
  m_Sentinel.m_pSavedNext = nullptr;
  m_HullCount = 0;
}

void CollisionPool::addHull(AbstractHull* hull) {
  if (!m_pEngine) return;
  ProjectedHull* node = m_pEngine->TakeNode();
  if (!node) {
    AutomationPrintf("CollisionPool: no free hull node, hull not added");
    return;
  }
  node->Clear();
  node->m_pHull = hull;
  hull->update();
  const Interval x = hull->GetProjectionX();
  const Interval y = hull->GetProjectionY();
  node->m_MinX = x.min;
  node->m_MaxX = x.max;
  node->m_MinY = y.min;
  node->m_MaxY = y.max;
  node->m_bParticleFixed = hull->getParticle()->m_bFixed;
  hull->setDirty(true);

  // Into the live list and its saved copy alike, so that a sweep restoring the
  // saved links keeps a node added by one of its callbacks.
  node->m_pPrev = &m_Sentinel;
  node->m_pNext = m_Sentinel.m_pNext;
  if (node->m_pNext) node->m_pNext->m_pPrev = node;
  m_Sentinel.m_pNext = node;
  node->m_pSavedPrev = &m_Sentinel;
  node->m_pSavedNext = m_Sentinel.m_pSavedNext;
  if (node->m_pSavedNext) node->m_pSavedNext->m_pSavedPrev = node;
  m_Sentinel.m_pSavedNext = node;
  ++m_HullCount;
}

void CollisionPool::removeHull(AbstractHull* hull) {
  for (ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext) {
    if (node->m_pHull == hull && !node->m_bDead) {
      node->m_bDead = true;
      break;
    }
  }
  if (m_pEngine && !m_pEngine->IsInStep()) CollectGarbage();
}

void CollisionPool::CollectGarbage() {
  for (ProjectedHull* node = m_Sentinel.m_pNext; node;) {
    ProjectedHull* next = node->m_pNext;
    if (node->m_bDead) {
      node->m_pPrev->m_pNext = next;
      if (next) next->m_pPrev = node->m_pPrev;
      m_pEngine->ReturnNode(node);
      --m_HullCount;
    }
    node = next;
  }
}

bool CollisionPool::ContainsHull(const AbstractHull* hull) const {
  for (const ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext) {
    if (node->m_pHull == hull && !node->m_bDead) return true;
  }
  return false;
}

void CollisionPool::interactsWith(CollisionPool* pool, eInteractionType type) {
  m_Partners.push_back(pool);
  m_Interactions.push_back(type);
}

void CollisionPool::changeInteraction(CollisionPool* pool, eInteractionType type) {
  for (size_t i = 0; i < m_Partners.size(); ++i) {
    if (m_Partners[i] == pool) {
      m_Interactions[i] = type;
      return;
    }
  }
}

void CollisionPool::projectPool() {
  for (ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext) {
    AbstractHull& hull = *node->m_pHull;
    hull.update();
    if (hull.isEnabled() && (hull.getParticle()->m_bMoved || hull.isDirty())) {
      const Interval x = hull.GetProjectionX();
      const Interval y = hull.GetProjectionY();
      node->m_MinX = x.min;
      node->m_MaxX = x.max;
      node->m_MinY = y.min;
      node->m_MaxY = y.max;
      hull.setDirty(false);
    }
  }
  insertion_sort(&m_Sentinel);
  for (ProjectedHull* node = &m_Sentinel; node; node = node->m_pNext) {
    node->m_pSavedNext = node->m_pNext;
    node->m_pSavedPrev = node->m_pPrev;
  }
}

void CollisionPool::collide() {
  // By index: a callback may extend the table (its capacity is reserved).
  for (size_t i = 0; i < m_Partners.size(); ++i) {
    if (m_Partners[i] == this) {
      collideWithSelf(m_Interactions[i]);
    } else {
      collideWithOtherPool(m_Partners[i], m_Interactions[i]);
    }
  }
}

void CollisionPool::collideWithSelf(eInteractionType type) {
  if (type == InteractionType::eNone) return;
  for (ProjectedHull* a = m_Sentinel.m_pNext; a; a = a->m_pNext) {
    if (m_bStacking) {
      ProjectedHull* end = a;
      for (ProjectedHull* j = a->m_pNext; j && j->m_MinX <= a->m_MaxX; j = j->m_pNext) end = j;
      YSortandCollide(a, end, this, this, type);
    } else {
      for (ProjectedHull* j = a->m_pNext; j && a->m_MaxX >= j->m_MinX; j = j->m_pNext) {
        CollisionDetector::test(*a->m_pHull, *j->m_pHull, this, this, type);
      }
    }
  }
}

void CollisionPool::collideWithOtherPool(CollisionPool* other, eInteractionType type) {
  if (type == InteractionType::eNone || m_HullCount == 0 || other->m_HullCount == 0) return;
  for (ProjectedHull* a = m_Sentinel.m_pNext; a; a = a->m_pNext) {
    ProjectedHull* last = nullptr;
    for (ProjectedHull* b = other->m_Sentinel.m_pNext; b; b = b->m_pNext) {
      if (a->m_MaxX < b->m_MinX) break;
      if (a->m_MinX <= b->m_MaxX) {
        if (other->m_bStacking) {
          last = b;
        } else {
          CollisionDetector::test(*a->m_pHull, *b->m_pHull, this, other, type);
        }
      } else {
        // b ends left of a, and so of every later a: out of this sweep.
        b->m_pPrev->m_pNext = b->m_pNext;
        if (b->m_pNext) b->m_pNext->m_pPrev = b->m_pPrev;
      }
    }
    if (last) YSortandCollide(a, last, this, other, type);
  }
  other->RestoreSavedLinks();
}

void CollisionPool::RestoreSavedLinks() {
  for (ProjectedHull* node = &m_Sentinel; node; node = node->m_pSavedNext) {
    node->m_pNext = node->m_pSavedNext;
    node->m_pPrev = node->m_pSavedPrev;
  }
}

void CollisionPool::YSortandCollide(ProjectedHull* a, ProjectedHull* end, CollisionPool* poolA,
                                    CollisionPool* poolB, eInteractionType type) {
  if (a == end) return;
  // The run reaches back from `end` to the list's start, or to `a` in a pool's
  // sweep of itself, where the nodes before a were tested in their own turn.
  ProjectedHull* first = end;
  for (ProjectedHull* n = end; n && n != a && n->m_pHull; n = n->m_pPrev) {
    n->m_pYNext = n->m_pNext;
    n->m_pYPrev = n->m_pPrev;
    first = n;
  }
  ProjectedHull head;
  head.m_pNext = first;
  first->m_pPrev = &head;
  end->m_pNext = nullptr;
  y_insertion_sort(&head);

  Particle& pa = *a->m_pHull->getParticle();
  for (ProjectedHull* b = head.m_pNext; b; b = b->m_pNext) {
    if (a->m_MinY > b->m_MaxY) break;
    if (a->m_MaxY < b->m_MinY) continue;
    Particle& pb = *b->m_pHull->getParticle();
    // y grows down: the body with the larger y is the lower one, and holds still.
    if (pa.m_Position.y < pb.m_Position.y) {
      if (poolB->m_bStacking) pb.m_bFixed = true;
    } else if (poolA->m_bStacking) {
      pa.m_bFixed = true;
    }
    CollisionDetector::test(*a->m_pHull, *b->m_pHull, poolA, poolB, type);
    pa.m_bFixed = a->m_bParticleFixed;
    pb.m_bFixed = b->m_bParticleFixed;
  }

  for (ProjectedHull* n = head.m_pNext; n;) {
    ProjectedHull* next = n->m_pNext;
    n->m_pNext = n->m_pYNext;
    n->m_pPrev = n->m_pYPrev;
    n = next;
  }
}

void CollisionPool::collideWithHeightMap() {
  if (!m_pHeightMap) return;
  for (ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext) {
    CollisionDetector::testHeightMap(*node->m_pHull);
  }
}

bool CollisionPool::collidesWithHull(AbstractHull& hull) {
  projectPool();
  for (ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext) {
    AbstractHull& other = *node->m_pHull;
    if (&other == &hull || !other.isEnabled()) continue;
    if (hull.collide(other).m_bCollided) return true;
  }
  return false;
}

void CollisionPool::clearResolveFlags() {
  for (ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext)
    node->m_pHull->setResolved(false);
}

void CollisionPool::checkResolveFlags() {
  for (ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext) {
    AbstractHull& hull = *node->m_pHull;
    if (!hull.isResolved()) hull.getParticle()->m_LastFreePosition = hull.getParticle()->m_Position;
  }
}

AbstractHull* CollisionPool::Trace(const Vector3& origin, const Vector3& destination, Vector3& out) {
  for (ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext) {
    AbstractHull& hull = *node->m_pHull;
    if (!hull.isEnabled()) continue;
    Vector3 hit;
    if (hull.intersectsRay(origin, destination, hit)) {
      out = hit;
      return &hull;
    }
  }
  out = destination;
  return nullptr;
}

Rectangle CollisionPool::GetBoundingBox() const {
  Rectangle box;
  bool first = true;
  for (const ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext) {
    const Interval x = node->m_pHull->GetProjectionX();
    const Interval y = node->m_pHull->GetProjectionY();
    if (first || x.min < box.left) box.left = x.min;
    if (first || y.min < box.top) box.top = y.min;
    if (first || x.max > box.right) box.right = x.max;
    if (first || y.max > box.bottom) box.bottom = y.max;
    first = false;
  }
  return box;
}

void CollisionPool::Draw(const Vector2& offset) {
  for (ProjectedHull* node = m_Sentinel.m_pNext; node; node = node->m_pNext) {
    if (node->m_pHull->isEnabled()) node->m_pHull->Draw(offset, m_Colour);
  }
}

}  // namespace nox
