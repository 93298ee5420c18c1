// The narrow phase. test() takes a pair that the broad phase found, applies the
// filters (disabled, same owner, y overlap), runs the shape test through the hulls'
// double dispatch, and then the handlers, the response and the notifiers.
//
// The shape tests search separating axes: each candidate axis projects both hulls
// and compares the intervals with testIntervals; a zero result separates and ends
// the test, otherwise the smallest result in magnitude is the contact, its axis the
// normal and the result, with its sign, the depth. A record without contact has
// both hull fields set to the first hull and everything else clear.
#pragma once
#include "physics/CollisionInfo.h"
#include "physics/Interval.h"

namespace nox {

class AbstractHull;
class RectangleHull;
class CircleHull;
class PolyHull;
class CollisionPool;

class CollisionDetector {
 public:
  // The whole contact pipeline for hulls a and b of poolA and poolB.
  static void test(AbstractHull& a, AbstractHull& b, CollisionPool* poolA, CollisionPool* poolB,
                   InteractionType::eInteractionType type);

  // 0 when the intervals do not overlap (touching counts as apart). Otherwise the
  // shorter way out, signed: b.min - a.max (not above 0) or b.max - a.min (not
  // below 0), the first on a tie.
  static Real testIntervals(const Interval& a, const Interval& b);

  // Height maps are not used; there is nothing to test.
  static CollisionInfo testHeightMap(AbstractHull& hull) { return CollisionInfo(); }

  static CollisionInfo testOBBvsOBB(RectangleHull& a, RectangleHull& b);
  static CollisionInfo testOBBvsPoly(RectangleHull& rect, PolyHull& poly);
  static CollisionInfo testOBBvsCircle(RectangleHull& rect, CircleHull& circle);
  static CollisionInfo testCirclevsCircle(CircleHull& a, CircleHull& b);
  static CollisionInfo testCirclevsPoly(CircleHull& circle, PolyHull& poly);
  static CollisionInfo testPolyvsPoly(PolyHull& a, PolyHull& b);

  // The corner of `rect` nearest to `p`.
  static Vector2 closestVertexOnOBB(const Vector2& p, const RectangleHull& rect);
  // A point of the contact: the middle of the overlap along the axis and across it,
  // at the larger z of the two hulls.
  static Vector3 getPointOfIntersection(const CollisionInfo& info);
};

}  // namespace nox
