#include "physics/CollisionDetector.h"

#include "physics/CircleHull.h"
#include "physics/CollisionResolver.h"
#include "physics/Particle.h"
#include "physics/PolyHull.h"
#include "physics/RectangleHull.h"

namespace nox {
namespace {

constexpr int32_t kNoAxisYet = 0x7FFFFFFF;
constexpr Real kEpsilon = Real::FromRaw(1);

// |a| < |b|, with magnitudes as unsigned so that the most negative value has one.
bool SmallerInMagnitude(Real a, Real b) {
  return UnsignedAbs(a.Raw()) < UnsignedAbs(b.Raw());
}

// The running best of a separating-axis search.
class AxisSearch {
 public:
  // False when the axis separates the intervals.
  bool Offer(const Interval& a, const Interval& b, const Vector2& axis) {
    return Offer(CollisionDetector::testIntervals(a, b), axis);
  }

  bool Offer(Real r, const Vector2& axis) {
    if (r == Real()) return false;
    // The first axis is taken without comparison, unless it is the starting mark.
    const bool take = m_bFirst ? UnsignedAbs(r.Raw()) != kNoAxisYet : SmallerInMagnitude(r, m_Best);
    m_bFirst = false;
    if (take) {
      m_Best = r;
      m_Axis = axis;
    }
    return true;
  }

  Real m_Best = Real::FromRaw(kNoAxisYet);
  Vector2 m_Axis;
  bool m_bFirst = true;
};

CollisionInfo NoContact(AbstractHull& first) {
  CollisionInfo info;
  info.m_pHull = &first;
  info.m_pOwnHull = &first;
  return info;
}

CollisionInfo Contact(AbstractHull& first, AbstractHull& second, const Vector2& axis, Real depth) {
  CollisionInfo info;
  info.m_pHull = &first;
  info.m_pOwnHull = &second;
  info.m_Normal = Vector3(axis);
  info.m_Axis = axis;
  info.m_Depth = depth;
  info.m_bCollided = true;
  return info;
}

Vector2 XY(const Vector3& v) {
  return Vector2(v.x, v.y);
}

void Notify(AbstractHull& hull, const CollisionInfo& info) {
  hull.setInCallback(true);
  for (CollisionNotifier* n = hull.GetNotifiers(); n;) {
    // A notifier may unlink itself while it runs.
    CollisionNotifier* next = n->m_pNext;
    if (n->m_pObject && n->m_pFunction) n->m_pFunction(n->m_pObject, info);
    n = next;
  }
  hull.setInCallback(false);
}

bool Allowed(AbstractHull& hull, const CollisionInfo& info) {
  const ResolveHandler* handler = hull.getResolveHandler();
  if (!handler || !handler->m_pFunction) return true;
  return handler->m_pFunction(handler->m_pObject, info);
}

}  // namespace

Real CollisionDetector::testIntervals(const Interval& a, const Interval& b) {
  if (b.min > a.max || a.min > b.max) return Real();
  const Real d1 = b.min - a.max;
  const Real d2 = b.max - a.min;
  return SmallerInMagnitude(d2, d1) ? d2 : d1;
}

void CollisionDetector::test(AbstractHull& a, AbstractHull& b, CollisionPool* poolA, CollisionPool* poolB,
                             InteractionType::eInteractionType type) {
  if (!a.isEnabled() || !b.isEnabled()) return;
  if (!(a.canCollideWithSameRTTI() && b.canCollideWithSameRTTI()) && a.getOwner() == b.getOwner()) return;
  if (testIntervals(b.GetProjectionY(), a.GetProjectionY()) == Real()) return;
  const CollisionInfo raw = b.collide(a);
  if (!raw.m_bCollided) return;
  a.setResolved(true);
  b.setResolved(true);

  const bool negative = raw.m_Depth < Real();
  const Particle& pa = *a.getParticle();
  const Particle& pb = *b.getParticle();
  CollisionInfo infoA;
  infoA.m_pHull = &b;
  infoA.m_pOwnHull = &a;
  infoA.m_pPool = poolB;
  infoA.m_pOwnPool = poolA;
  infoA.m_Velocity = pa.m_Position - pa.m_PreviousPosition;
  infoA.m_Normal = negative ? raw.m_Normal : -raw.m_Normal;
  CollisionInfo infoB;
  infoB.m_pHull = &a;
  infoB.m_pOwnHull = &b;
  infoB.m_pPool = poolA;
  infoB.m_pOwnPool = poolB;
  infoB.m_Velocity = pb.m_Position - pb.m_PreviousPosition;
  infoB.m_Normal = negative ? -raw.m_Normal : raw.m_Normal;
  for (CollisionInfo* info : {&infoA, &infoB}) {
    info->m_Axis = XY(raw.m_Normal);
    info->m_Depth = raw.m_Depth;
    info->m_bCollided = true;
    info->m_Type = type;
  }

  if (!Allowed(a, infoA) || !Allowed(b, infoB)) return;
  if (type == InteractionType::eResolve || type == InteractionType::eResolveAndNotify) {
    CollisionResolver::resolve(a, b, raw.m_Normal, raw.m_Depth);
  }
  if (type == InteractionType::eNotify || type == InteractionType::eResolveAndNotify) {
    Notify(a, infoA);
    Notify(b, infoB);
  }
}

CollisionInfo CollisionDetector::testOBBvsOBB(RectangleHull& a, RectangleHull& b) {
  if (a.IsAABB() && b.IsAABB()) {
    const Real rx = testIntervals(a.GetProjectionX(), b.GetProjectionX());
    if (rx == Real()) return NoContact(a);
    const Real ry = testIntervals(a.GetProjectionY(), b.GetProjectionY());
    if (ry == Real()) return NoContact(a);
    // On a tie y wins: bodies resting on one another are pushed up, not aside.
    if (SmallerInMagnitude(rx, ry)) return Contact(a, b, Vector2(Real(1), Real()), rx);
    return Contact(a, b, Vector2(Real(), Real(1)), ry);
  }
  const Vector2& au = a.getAxisU();
  const Vector2& bu = b.getAxisU();
  const Vector2& av = a.getAxisV();
  const Vector2& bv = b.getAxisV();
  const Real rau = testIntervals(a.getProjection(au), b.getProjection(au));
  if (rau == Real()) return NoContact(a);
  const Real rbu = testIntervals(a.getProjection(bu), b.getProjection(bu));
  if (rbu == Real()) return NoContact(a);
  const Real rav = testIntervals(a.getProjection(av), b.getProjection(av));
  if (rav == Real()) return NoContact(a);
  const Real rbv = testIntervals(a.getProjection(bv), b.getProjection(bv));
  if (rbv == Real()) return NoContact(a);
  // The U axes: a's on a tie. The V axes: b's on a tie, and only if strictly better.
  Real best = SmallerInMagnitude(rbu, rau) ? rbu : rau;
  Vector2 axis = SmallerInMagnitude(rbu, rau) ? bu : au;
  const Real bestV = SmallerInMagnitude(rav, rbv) ? rav : rbv;
  if (SmallerInMagnitude(bestV, best)) {
    best = bestV;
    axis = SmallerInMagnitude(rav, rbv) ? av : bv;
  }
  return Contact(a, b, axis, best);
}

CollisionInfo CollisionDetector::testOBBvsPoly(RectangleHull& rect, PolyHull& poly) {
  AxisSearch search;
  if (!rect.IsAABB()) {
    const Vector2& u = rect.getAxisU();
    const Vector2& v = rect.getAxisV();
    if (!search.Offer(rect.getProjection(u), poly.getProjection(u), u)) return NoContact(rect);
    if (!search.Offer(rect.getProjection(v), poly.getProjection(v), v)) return NoContact(rect);
  } else {
    if (!search.Offer(rect.GetProjectionY(), poly.GetProjectionY(), Vector2(Real(), Real(1)))) {
      return NoContact(rect);
    }
    if (!search.Offer(rect.GetProjectionX(), poly.GetProjectionX(), Vector2(Real(1), Real()))) {
      return NoContact(rect);
    }
  }
  for (const Vector2& n : poly.GetNormals()) {
    if (!search.Offer(rect.getProjection(n), poly.getProjection(n), n)) return NoContact(rect);
  }
  return Contact(rect, poly, search.m_Axis, search.m_Best);
}

CollisionInfo CollisionDetector::testPolyvsPoly(PolyHull& a, PolyHull& b) {
  AxisSearch search;
  for (const Vector2& n : a.GetNormals()) {
    if (!search.Offer(a.getProjection(n), b.getProjection(n), n)) return NoContact(a);
  }
  for (const Vector2& n : b.GetNormals()) {
    if (!search.Offer(a.getProjection(n), b.getProjection(n), n)) return NoContact(a);
  }
  return Contact(a, b, search.m_Axis, search.m_Best);
}

CollisionInfo CollisionDetector::testOBBvsCircle(RectangleHull& rect, CircleHull& circle) {
  AxisSearch search;
  const Vector2& u = rect.getAxisU();
  const Vector2& v = rect.getAxisV();
  const Real ru = testIntervals(rect.getProjection(u), circle.getProjection(u));
  if (!search.Offer(ru, u)) return NoContact(rect);
  const Real rv = testIntervals(rect.getProjection(v), circle.getProjection(v));
  if (!search.Offer(rv, v)) return NoContact(rect);
  const Real radius = circle.getRadius();
  if (SmallerInMagnitude(ru, radius) && SmallerInMagnitude(rv, radius)) {
    // The centre lies off a corner: the corner decides, not the faces.
    const Vector2 centre = XY(circle.getPosition());
    Vector2 d = centre - closestVertexOnOBB(centre, rect);
    Real length = d.magnitude();
    const Real depth = radius - length;
    if (depth < kEpsilon) return NoContact(rect);
    d /= length;
    return Contact(rect, circle, d, depth);
  }
  return Contact(rect, circle, search.m_Axis, search.m_Best);
}

CollisionInfo CollisionDetector::testCirclevsCircle(CircleHull& a, CircleHull& b) {
  if (testIntervals(a.getIntervalX(), b.getIntervalX()) == Real()) return NoContact(a);
  if (testIntervals(a.getIntervalY(), b.getIntervalY()) == Real()) return NoContact(a);
  Vector2 d = XY(b.getPosition()) - XY(a.getPosition());
  Real length = d.magnitude();
  const Real depth = a.getRadius() + b.getRadius() - length;
  if (depth < kEpsilon) return NoContact(a);
  // Concentric circles divide by raw 1 instead of 0, which leaves a zero normal.
  d /= length;
  return Contact(a, b, d, depth);
}

CollisionInfo CollisionDetector::testCirclevsPoly(CircleHull& circle, PolyHull& poly) {
  AxisSearch search;
  for (const Vector2& n : poly.GetNormals()) {
    if (!search.Offer(poly.getProjection(n), circle.getProjection(n), n)) return NoContact(circle);
  }
  // The vertex axes take the vertices as stored, relative to the polygon's particle,
  // so they only mean something for polygons whose particle sits at the origin.
  const Vector2 centre = XY(circle.getPosition());
  for (const Vector2& vertex : poly.GetVertices()) {
    Vector2 axis;
    (vertex - centre).safeNormalize(axis);
    if (!search.Offer(poly.getProjection(axis), circle.getProjection(axis), axis)) return NoContact(circle);
  }
  return Contact(circle, poly, search.m_Axis, -search.m_Best);
}

Vector2 CollisionDetector::closestVertexOnOBB(const Vector2& p, const RectangleHull& rect) {
  const Vector2 centre = XY(rect.getPosition());
  const Vector2 d = p - centre;
  Vector2 result = centre;
  const Real hw = rect.getHalfWidth();
  const Real hh = rect.getHalfHeight();
  result += rect.getAxisU() * (d.dot(rect.getAxisU()) < Real() ? -hw : hw);
  result += rect.getAxisV() * (d.dot(rect.getAxisV()) < Real() ? -hh : hh);
  return result;
}

Vector3 CollisionDetector::getPointOfIntersection(const CollisionInfo& info) {
  const AbstractHull& first = *info.m_pHull;
  const AbstractHull& second = *info.m_pOwnHull;
  const Vector2 n = info.m_Axis;
  const Vector2 m = n.perpendicular();
  Real coordinate[2];
  const Vector2 axes[2] = {m, n};
  for (int i = 0; i < 2; ++i) {
    const Interval a = first.getProjection(axes[i]);
    const Real d = testIntervals(a, second.getProjection(axes[i]));
    coordinate[i] = (d > Real() ? a.min : a.max) + d / Real(2);
  }
  const Vector3 pa = first.getPosition();
  const Vector3 pb = second.getPosition();
  const Vector2 point = m * coordinate[0] + n * coordinate[1];
  return Vector3(point, pa.z > pb.z ? pa.z : pb.z);
}

}  // namespace nox
