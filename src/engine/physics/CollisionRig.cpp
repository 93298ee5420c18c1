#include "physics/CollisionRig.h"

#include "physics/CollisionPool.h"
#include "physics/RectSeriesSource.h"

namespace nox {

CollisionRig::~CollisionRig() {
  Release();
}

void CollisionRig::Release() {
  if (m_pPool) {
    for (int i = 0; i < m_Count; ++i) m_pPool->removeHull(&m_pElements[i].m_Hull);
  }
  delete[] m_pElements;
  delete[] m_pWidths;
  delete[] m_pHeights;
  delete[] m_pExtents;
  m_pElements = nullptr;
  m_pWidths = nullptr;
  m_pHeights = nullptr;
  m_pExtents = nullptr;
  m_Count = 0;
  m_bInitialized = false;
}

void CollisionRig::Initialize(AnimInfo* sprite, const char* prefix, CollisionPool* pool,
                              CollisionRigFunction callback, void* owner, RTTIBase* rtti) {
  m_AnimSource.SetAnimInfo(sprite);
  Initialize(&m_AnimSource, prefix, pool, callback, owner, rtti);
}

void CollisionRig::Initialize(RectSeriesSource* sprite, const char* prefix, CollisionPool* pool,
                              CollisionRigFunction callback, void* owner, RTTIBase* rtti) {
  Release();
  m_pSprite = sprite;
  m_pPool = pool;
  m_pCallback = callback;
  m_pOwner = owner;
  m_Notifier = CollisionNotifier(this, &HullCallback<CollisionRig, &CollisionRig::OnCollision>);

  const NameHash base = HashString(prefix);
  NameHash series[kMaxElements];
  int count = 0;
  while (count < kMaxElements) {
    const NameHash h = HashAppend(base, static_cast<char>('0' + count));
    if (!sprite || !sprite->HasRectSeriesInAnySequence(h)) break;
    series[count++] = h;
  }

  m_Count = count;
  m_pElements = new Element[count];
  m_pWidths = new Real[count]();
  m_pHeights = new Real[count]();
  m_pExtents = new Rectangle[count]();
  for (int i = 0; i < count; ++i) {
    Element& e = m_pElements[i];
    e.m_Particle.m_Mass = Real(1);
    e.m_Particle.m_ForceScale = Real(1);
    e.m_Particle.m_bMoved = true;
    e.m_Hull.Initialize(&e.m_Particle, Real(), Real(), Real(), Real(), &m_Notifier, rtti, Real(1));
    e.m_Series = series[i];
    if (pool) pool->addHull(&e.m_Hull);
    e.m_Hull.setEnabled(false);
  }
  m_bInitialized = true;
}

void CollisionRig::UpdateRig(Real z, Real depth) {
  if (!m_bEnabled) return;
  for (int i = 0; i < m_Count; ++i) {
    Element& e = m_pElements[i];
    const Rectangle r = m_pSprite->GetCurrentRect(e.m_Series);
    if (r == Rectangle()) {
      e.m_Hull.setEnabled(false);
      continue;
    }
    const Vector3 position((r.left + r.right) / Real(2), (r.top + r.bottom) / Real(2), z);
    Particle& p = e.m_Particle;
    if (position != p.m_Position) p.m_bMoved = true;
    // The previous position moves along, so the velocity is kept.
    p.m_PreviousPosition += position - p.m_Position;
    p.m_Position = position;
    e.m_Hull.setHalfDepth(depth / Real(2));
    e.m_Hull.setEnabled(true);
    e.m_Hull.setHalfSize((r.right - r.left) / Real(2), (r.bottom - r.top) / Real(2));
    m_pExtents[i] = r;
    m_pWidths[i] = r.GetWidth();
    m_pHeights[i] = r.GetHeight();
  }
}

void CollisionRig::Enable(Real z, Real depth) {
  if (m_bEnabled) return;
  m_bEnabled = true;
  UpdateRig(z, depth);
}

void CollisionRig::Disable() {
  m_bEnabled = false;
  for (int i = 0; i < m_Count; ++i) m_pElements[i].m_Hull.setEnabled(false);
}

void CollisionRig::SetHullsCollidable(bool collidable) {
  for (int i = 0; i < m_Count; ++i) m_pElements[i].m_Hull.setEnabled(collidable);
}

void CollisionRig::SetHullsCollidableWithSameRTTI(bool same) {
  for (int i = 0; i < m_Count; ++i) m_pElements[i].m_Hull.setCollideWithSameRTTI(same);
}

RectangleHull* CollisionRig::GetHullAtIndex(int index) {
  return index >= 0 && index < m_Count ? &m_pElements[index].m_Hull : nullptr;
}

NameHash CollisionRig::GetSeriesAtIndex(int index) const {
  return index >= 0 && index < m_Count ? m_pElements[index].m_Series : 0;
}

Vector2 CollisionRig::GetMaxWidthHeight() const {
  Vector2 result;
  for (int i = 0; i < m_Count; ++i) {
    if (m_pWidths[i] > result.x) result.x = m_pWidths[i];
    if (m_pHeights[i] > result.y) result.y = m_pHeights[i];
  }
  return result;
}

Vector2 CollisionRig::GetRigWidthHeight(int index) const {
  if (index < 0 || index >= m_Count) return Vector2();
  return Vector2(m_pWidths[index], m_pHeights[index]);
}

Rectangle CollisionRig::GetMaxExtents() const {
  Rectangle result;
  bool first = true;
  for (int i = 0; i < m_Count; ++i) {
    const Rectangle& r = m_pExtents[i];
    if (r == Rectangle()) continue;
    if (first || r.left < result.left) result.left = r.left;
    if (first || r.top < result.top) result.top = r.top;
    if (first || r.right > result.right) result.right = r.right;
    if (first || r.bottom > result.bottom) result.bottom = r.bottom;
    first = false;
  }
  return result;
}

Rectangle CollisionRig::GetRigExtents(int index) const {
  return index >= 0 && index < m_Count ? m_pExtents[index] : Rectangle();
}

void CollisionRig::OnCollision(const CollisionInfo& info) {
  for (int i = 0; i < m_Count; ++i) {
    if (&m_pElements[i].m_Hull == info.m_pOwnHull) {
      if (m_pCallback) m_pCallback(m_pOwner, i, info);
      return;
    }
  }
}

}  // namespace nox
