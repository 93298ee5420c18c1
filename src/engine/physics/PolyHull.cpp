#include "physics/PolyHull.h"

#include "physics/CollisionDetector.h"
#include "physics/Particle.h"
#include "physics/PhysicsDebugDraw.h"

namespace nox {
namespace {

constexpr Real kEpsilon = Real::FromRaw(1);

bool InUnitRange(Real t) {
  return Real() <= t && t <= Real(1);
}

}  // namespace

PolyHull::PolyHull(Particle* particle, Real elasticity, Real friction, CollisionNotifier* notifier,
                   RTTIBase* owner, Real depth, bool sameRTTI) {
  Initialize(particle, elasticity, friction, notifier, owner, depth, sameRTTI);
}

void PolyHull::SetVertices(const std::vector<Vector2>& vertices) {
  m_Vertices = vertices;
  ConvertPointsToExtents(m_Vertices, Vector2());
  m_bDirty = true;
  m_bBoxValid = false;
}

void PolyHull::ConvertPointsToExtents(std::vector<Vector2>& points, Vector2 centre) {
  m_Normals.clear();
  m_Extents.clear();
  if (points.empty()) return;
  Vector2 p = points.back();
  for (const Vector2& q : points) {
    Vector2 normal;
    (q - p).perpendicular().safeNormalize(normal);
    m_Normals.push_back(normal);
    m_Extents.push_back(normal.dot(q - centre));
    p = q;
  }
  m_bBoxValid = false;
}

bool PolyHull::LineIntersect(const Vector2& a, const Vector2& b, const Vector2& c, const Vector2& d,
                             Vector2& out) {
  const Real den = (d.y - c.y) * (b.x - a.x) - (d.x - c.x) * (b.y - a.y);
  const Real numA = (d.x - c.x) * (a.y - c.y) - (d.y - c.y) * (a.x - c.x);
  const Real numB = (b.x - a.x) * (a.y - c.y) - (b.y - a.y) * (a.x - c.x);
  const bool flat = AbsReal(den) < kEpsilon;
  if (flat && AbsReal(numA) < kEpsilon && AbsReal(numB) < kEpsilon) {
    out = (a + b) * Real::FromRaw(0x8000);
    return true;
  }
  if (flat) return false;
  const Real ua = numA / den;
  const Real ub = numB / den;
  if (InUnitRange(ua) && InUnitRange(ub)) {
    out = a + (b - a) * ua;
    return true;
  }
  out = Vector2();
  return false;
}

Interval PolyHull::getProjection(const Vector2& axis) const {
  Real lo;
  Real hi;
  for (const Vector2& v : m_Vertices) {
    const Real d = axis.dot(v);
    if (d < lo) lo = d;
    if (d > hi) hi = d;
  }
  const Real centre = getPosition().dot(axis);
  return Interval(lo + centre, hi + centre);
}

Interval PolyHull::GetProjectionX() const {
  if (!m_bProjectionXValid || m_pParticle->m_bMoved || m_bDirty) {
    m_ProjectionX = getProjection(Vector2(Real(1), Real()));
    m_bProjectionXValid = true;
  }
  return m_ProjectionX;
}

Real PolyHull::GetWidtht() const {
  const Interval x = GetProjectionX();
  return x.max - x.min;
}

void PolyHull::RefreshBoundingBox() {
  const Vector3 p = getPosition();
  m_LastPosition = p;
  m_bBoxValid = true;
  m_BoxMin = Vector3(p.x, p.y, p.z - m_HalfDepth);
  m_BoxMax = Vector3(p.x, p.y, p.z + m_HalfDepth);
  for (size_t k = 0; k < m_Normals.size(); ++k) {
    const Vector2 q = Vector2(p.x, p.y) + m_Normals[k] * m_Extents[k];
    if (k == 0 || q.x < m_BoxMin.x) m_BoxMin.x = q.x;
    if (k == 0 || q.y < m_BoxMin.y) m_BoxMin.y = q.y;
    if (k == 0 || q.x > m_BoxMax.x) m_BoxMax.x = q.x;
    if (k == 0 || q.y > m_BoxMax.y) m_BoxMax.y = q.y;
  }
}

bool PolyHull::intersectsRay(Vector3 origin, Vector3 destination, Vector3& hit) {
  if (!m_bBoxValid || m_pParticle->m_bMoved || m_LastPosition != getPosition()) RefreshBoundingBox();
  const Vector3 segMin(origin.x < destination.x ? origin.x : destination.x,
                       origin.y < destination.y ? origin.y : destination.y,
                       origin.z < destination.z ? origin.z : destination.z);
  const Vector3 segMax(origin.x < destination.x ? destination.x : origin.x,
                       origin.y < destination.y ? destination.y : origin.y,
                       origin.z < destination.z ? destination.z : origin.z);
  if (segMax.x < m_BoxMin.x || segMin.x > m_BoxMax.x || segMax.y < m_BoxMin.y || segMin.y > m_BoxMax.y ||
      segMax.z < m_BoxMin.z || segMin.z > m_BoxMax.z) {
    return false;
  }
  const Vector3 p3 = getPosition();
  const Vector2 p(p3.x, p3.y);
  const Vector2 o(origin.x, origin.y);
  const Vector2 r(destination.x - origin.x, destination.y - origin.y);
  const size_t n = m_Vertices.size();
  for (size_t k = 0; k < n; ++k) {
    const Vector2 a = m_Vertices[k] + p;
    const Vector2 e = m_Vertices[(k + 1) % n] + p - a;
    const Real den = r.cross(e);
    if (den == Real()) continue;  // parallel
    const Vector2 ao = a - o;
    const Real t = ao.cross(e) / den;
    const Real u = ao.cross(r) / den;
    if (!InUnitRange(t) || !InUnitRange(u)) continue;
    hit = Vector3(o + r * t, Real());
    return true;
  }
  return false;
}

void PolyHull::Draw(const Vector2& offset, unsigned long colour) {
  if (!PhysicsDebugDraw::IsAvailable() || m_Vertices.empty()) return;
  const Vector3 p3 = getPosition();
  const Vector2 p = Vector2(p3.x, p3.y) + offset;
  const size_t n = m_Vertices.size();
  for (size_t k = 0; k < n; ++k)
    PhysicsDebugDraw::DrawLine(m_Vertices[k] + p, m_Vertices[(k + 1) % n] + p, colour);
}

CollisionInfo PolyHull::collide(AbstractHull& other) {
  return other.collide(*this);
}

CollisionInfo PolyHull::collide(RectangleHull& other) {
  CollisionInfo info = CollisionDetector::testOBBvsPoly(other, *this);
  info.m_Normal = -info.m_Normal;
  return info;
}

CollisionInfo PolyHull::collide(CircleHull& other) {
  CollisionInfo info = CollisionDetector::testCirclevsPoly(other, *this);
  info.m_Normal = -info.m_Normal;
  return info;
}

CollisionInfo PolyHull::collide(PolyHull& other) {
  return CollisionDetector::testPolyvsPoly(*this, other);
}

}  // namespace nox
