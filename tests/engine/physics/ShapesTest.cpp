// The shapes and the narrow phase: projections, the separating-axis search with its
// tie rules, the corner case of boxes against circles, the double dispatch that
// orders each pair, contact points, and the ray tests.
#include <gtest/gtest.h>

#include "PhysicsTestSupport.h"
#include "physics/CircleHull.h"
#include "physics/CollisionDetector.h"
#include "physics/PolyHull.h"
#include "physics/RotateRectHull.h"
#include "physics/TumbleRectangleHull.h"

using namespace physics_test;
using nox::CircleHull;
using nox::CollisionDetector;
using nox::CollisionInfo;
using nox::Interval;
using nox::Particle;
using nox::PolyHull;

namespace {

Interval I(int lo, int hi) {
  return Interval(Real(lo), Real(hi));
}

Vector2 V2(int x, int y) {
  return Vector2(Real(x), Real(y));
}

struct Circle {
  Circle(int x, int y, int radius)
      : particle(V3(x, y)), hull(&particle, Real(radius), Real(), Real(), nullptr, nullptr, Real(2), false) {}
  Particle particle;
  CircleHull hull;
};

// A square of side 10 around its particle, wound so that the normals point out.
struct Square {
  Square(int x, int y)
      : particle(V3(x, y)), hull(&particle, Real(), Real(), nullptr, nullptr, Real(2), false) {
    hull.SetVertices({V2(-5, -5), V2(5, -5), V2(5, 5), V2(-5, 5)});
  }
  Particle particle;
  PolyHull hull;
};

void ExpectContact(const CollisionInfo& info, const nox::AbstractHull& first, Vector2 normal,
                   int32_t depthRaw) {
  EXPECT_TRUE(info.m_bCollided);
  EXPECT_EQ(info.m_pHull, &first);
  EXPECT_EQ(info.m_Normal, Vector3(normal));
  EXPECT_EQ(info.m_Depth.Raw(), depthRaw);
}

void ExpectNoContact(const CollisionInfo& info, const nox::AbstractHull& first) {
  EXPECT_FALSE(info.m_bCollided);
  EXPECT_EQ(info.m_pHull, &first);
  EXPECT_EQ(info.m_pOwnHull, &first);
  EXPECT_EQ(info.m_Normal, Vector3());
  EXPECT_EQ(info.m_Depth, Real());
}

}  // namespace

TEST(Intervals, ResultIsTheShorterWayOutAndZeroWhenApart) {
  EXPECT_EQ(CollisionDetector::testIntervals(I(0, 1), I(1, 2)), Real());  // touching counts as apart
  EXPECT_EQ(CollisionDetector::testIntervals(I(0, 1), I(2, 3)), Real());
  EXPECT_EQ(CollisionDetector::testIntervals(I(0, 10), I(9, 19)), Real(-1));
  EXPECT_EQ(CollisionDetector::testIntervals(I(9, 19), I(0, 10)), Real(1));
  // On a tie the first difference, b.min - a.max, is taken.
  EXPECT_EQ(CollisionDetector::testIntervals(I(0, 4), I(1, 3)), Real(-3));
}

TEST(Projections, EachShapeProjectsAroundItsPosition) {
  Box box(10, 20, 8, 4);
  EXPECT_EQ(box.hull.GetProjectionX(), I(6, 14));
  EXPECT_EQ(box.hull.GetProjectionY(), I(18, 22));
  EXPECT_EQ(box.hull.GetProjectionZ(), I(-1, 1));
  // An unrotated box on the axis (0.5, 0.5), taken as it is: 0.5 * 4 + 0.5 * 2
  // either side of 15.
  EXPECT_EQ(box.hull.getProjection(Vector2(Raw(0x8000), Raw(0x8000))), I(12, 18));
  EXPECT_EQ(box.hull.GetLeft(), Real(6));
  EXPECT_EQ(box.hull.GetBottom(), Real(22));
  EXPECT_EQ(box.hull.GetWidth(), Real(8));

  Circle circle(3, 4, 2);
  EXPECT_EQ(circle.hull.GetProjectionX(), I(1, 5));
  EXPECT_EQ(circle.hull.getIntervalY(), I(2, 6));
  EXPECT_EQ(circle.hull.GetWidth(), Real(4));
  circle.hull.setDirty(false);
  circle.hull.setRadius(Real(3));
  EXPECT_TRUE(circle.hull.isDirty());

  // A polygon counts its particle as inside: all vertices right of it still
  // project from 0.
  Particle p(V3(100, 0));
  PolyHull poly(&p, Real(), Real(), nullptr, nullptr, Real(2), false);
  poly.SetVertices({V2(2, -1), V2(6, -1), V2(6, 1)});
  EXPECT_EQ(poly.GetProjectionX(), I(100, 106));
  EXPECT_EQ(poly.GetWidtht(), Real(6));
  EXPECT_EQ(poly.GetWidth(), Real(1));
}

TEST(Projections, PolygonKeepsItsXProjectionUntilSomethingMoves) {
  Square square(0, 0);
  EXPECT_EQ(square.hull.GetProjectionX(), I(-5, 5));
  square.particle.m_bMoved = false;
  square.hull.setDirty(false);
  square.hull.EditVertices()[1] = V2(9, -5);
  EXPECT_EQ(square.hull.GetProjectionX(), I(-5, 5));
  square.hull.setDirty(true);
  EXPECT_EQ(square.hull.GetProjectionX(), I(-5, 9));
}

TEST(Projections, PolygonEdgesGetOutwardNormalsAndExtents) {
  Square square(0, 0);
  // normalize() scales by a truncated inverse length: 10 * raw 6553 is raw 65530.
  const Real k = Raw(65530);
  const std::vector<Vector2> normals = {Vector2(-k, Real()), Vector2(Real(), -k), Vector2(k, Real()),
                                        Vector2(Real(), k)};
  EXPECT_EQ(square.hull.GetNormals(), normals);
  EXPECT_EQ(square.hull.GetExtents(), std::vector<Real>(4, Raw(327650)));
  // A repeated point makes a zero-length edge, whose normal is zero.
  std::vector<Vector2> points = {V2(0, 0), V2(4, 0), V2(4, 0)};
  square.hull.ConvertPointsToExtents(points, V2(1, 1));
  EXPECT_EQ(square.hull.GetNormals()[2], Vector2());
  EXPECT_EQ(square.hull.GetExtents()[1], Real(1));  // (0, -1) . ((4, 0) - (1, 1))
}

TEST(BoxVsBox, AlignedBoxesTakeTheSmallerOverlapAndYOnATie) {
  Box a(0, 0, 20, 10);
  Box b(15, 8, 20, 10);
  // x overlaps by 5, y by 2.
  ExpectContact(CollisionDetector::testOBBvsOBB(a.hull, b.hull), a.hull, V2(0, 1), -(2 << 16));
  ExpectContact(CollisionDetector::testOBBvsOBB(b.hull, a.hull), b.hull, V2(0, 1), 2 << 16);
  Box c(17, 8, 20, 10);  // with the height below: 3 in x, 4 in y
  c.hull.SetHeight(Real(14));
  ExpectContact(CollisionDetector::testOBBvsOBB(a.hull, c.hull), a.hull, V2(1, 0), -(3 << 16));
  Box tie(18, 8, 20, 10);  // 2 and 2
  ExpectContact(CollisionDetector::testOBBvsOBB(a.hull, tie.hull), a.hull, V2(0, 1), -(2 << 16));
}

TEST(BoxVsBox, BoxesSharingAnEdgeDoNotTouch) {
  Box a(0, 0, 20, 10);
  Box b(20, 3, 20, 10);
  ExpectNoContact(CollisionDetector::testOBBvsOBB(a.hull, b.hull), a.hull);
  Box c(5, 10, 20, 10);
  ExpectNoContact(CollisionDetector::testOBBvsOBB(a.hull, c.hull), a.hull);
}

TEST(BoxVsBox, TurnedBoxesPreferTheUAxesOnATie) {
  // A turned box at angle 0 has the same axes, but goes through the general
  // search, where V only wins when strictly smaller.
  Particle p(V3(0, 0));
  nox::RotateRectHull a(&p, Real(20), Real(10), Real(), Real(), nullptr, nullptr, Real(2));
  EXPECT_FALSE(a.IsAABB());
  EXPECT_EQ(a.getAxisU(), V2(1, 0));
  EXPECT_EQ(a.getAxisV(), V2(0, 1));
  Box tie(18, 8, 20, 10);
  ExpectContact(CollisionDetector::testOBBvsOBB(a, tie.hull), a, V2(1, 0), -(2 << 16));
  Box b(15, 8, 20, 10);
  ExpectContact(CollisionDetector::testOBBvsOBB(a, b.hull), a, V2(0, 1), -(2 << 16));
}

TEST(BoxVsCircle, NearACornerTheNormalRunsFromTheCornerToTheCentre) {
  Box box(0, 0, 20, 20);
  Circle circle(13, 14, 6);
  // Face overlaps 3 and 2, both under the radius: the corner (10, 10) decides.
  const CollisionInfo info = CollisionDetector::testOBBvsCircle(box.hull, circle.hull);
  ExpectContact(info, box.hull, Vector2(Raw(39321), Raw(52428)), 1 << 16);
  EXPECT_EQ(CollisionDetector::closestVertexOnOBB(V2(13, 14), box.hull), V2(10, 10));
  EXPECT_EQ(CollisionDetector::closestVertexOnOBB(V2(-1, 3), box.hull), V2(-10, 10));
  // Past the corner by more than the radius: nothing.
  Circle far(15, 15, 6);
  ExpectNoContact(CollisionDetector::testOBBvsCircle(box.hull, far.hull), box.hull);
}

TEST(BoxVsCircle, ACircleDeepOnOneAxisTakesThatAxis) {
  Box box(0, 0, 20, 20);
  Circle circle(8, 0, 3);
  ExpectContact(CollisionDetector::testOBBvsCircle(box.hull, circle.hull), box.hull, V2(1, 0), -(5 << 16));
  // From the circle's side the normal turns and the hulls and depth stay.
  const CollisionInfo swapped = circle.hull.collide(static_cast<nox::RectangleHull&>(box.hull));
  ExpectContact(swapped, box.hull, V2(-1, 0), -(5 << 16));
  EXPECT_EQ(swapped.m_pOwnHull, &circle.hull);
}

TEST(CircleVsCircle, DepthIsTheRadiiLessTheDistance) {
  Circle a(0, 0, 5);
  Circle b(6, 8, 6);
  ExpectContact(CollisionDetector::testCirclevsCircle(a.hull, b.hull), a.hull,
                Vector2(Raw(39321), Raw(52428)), 1 << 16);
  Circle apart(6, 8, 5);
  ExpectNoContact(CollisionDetector::testCirclevsCircle(a.hull, apart.hull), a.hull);
  // Same centre: the full sum of the radii, and no direction.
  Circle inner(0, 0, 3);
  ExpectContact(CollisionDetector::testCirclevsCircle(a.hull, inner.hull), a.hull, Vector2(), 8 << 16);
}

TEST(PolyVsPoly, ALaterAxisMustBeStrictlyBetter) {
  Square a(0, 0);
  Square b(8, 3);
  // (-1, 0) comes first with +2; (1, 0) gives -2 later and does not replace it.
  // The normals are raw 65530 long, and the depth shrinks with them.
  ExpectContact(CollisionDetector::testPolyvsPoly(a.hull, b.hull), a.hull, Vector2(Raw(-65530), Real()),
                131060);
  Square apart(10, 0);
  ExpectNoContact(CollisionDetector::testPolyvsPoly(a.hull, apart.hull), a.hull);
  // Without normals nothing separates, and the depth is the starting mark.
  Particle p;
  PolyHull empty(&p, Real(), Real(), nullptr, nullptr, Real(2), false);
  const CollisionInfo info = CollisionDetector::testPolyvsPoly(empty, empty);
  EXPECT_TRUE(info.m_bCollided);
  EXPECT_EQ(info.m_Depth.Raw(), 0x7FFFFFFF);
}

TEST(BoxVsPoly, AlignedBoxTestsYThenXThenThePolygonNormals) {
  Box box(0, 0, 10, 10);
  Square square(8, 3);
  // x gives -2 (raw -131072); the polygon's first normal, a little short of unit
  // length, gives +131060, which is strictly smaller and wins.
  ExpectContact(CollisionDetector::testOBBvsPoly(box.hull, square.hull), box.hull,
                Vector2(Raw(-65530), Real()), 131060);
  // From the polygon's side only the normal turns.
  const CollisionInfo swapped = square.hull.collide(static_cast<nox::RectangleHull&>(box.hull));
  ExpectContact(swapped, box.hull, Vector2(Raw(65530), Real()), 131060);
}

TEST(CircleVsPoly, TheDepthIsNegatedSoTheSignMatchesTheOtherTests) {
  Square square(0, 0);
  Circle circle(7, 0, 3);
  // The polygon lies along -x from the circle, overlapping by 1.
  ExpectContact(CollisionDetector::testCirclevsPoly(circle.hull, square.hull), circle.hull,
                Vector2(Raw(-65530), Real()), -65548);
  const CollisionInfo swapped = square.hull.collide(static_cast<CircleHull&>(circle.hull));
  ExpectContact(swapped, circle.hull, Vector2(Raw(65530), Real()), -65548);
  Circle apart(9, 0, 3);
  ExpectNoContact(CollisionDetector::testCirclevsPoly(apart.hull, square.hull), apart.hull);
}

TEST(Dispatch, EachPairReachesItsTestWithTheCallerFirst) {
  Box box(0, 0, 20, 10);
  Box other(15, 8, 20, 10);
  // collide(AbstractHull&) asks the other hull to test itself against this one.
  const CollisionInfo info = other.hull.collide(static_cast<nox::AbstractHull&>(box.hull));
  ExpectContact(info, box.hull, V2(0, 1), -(2 << 16));
  EXPECT_EQ(info.m_pOwnHull, &other.hull);
}

TEST(ContactPoint, LiesInTheMiddleOfTheOverlap) {
  Box a(0, 0, 20, 10);
  Box b(15, 8, 20, 10);
  a.particle.m_Position.z = Real(3);
  const CollisionInfo info = CollisionDetector::testOBBvsOBB(a.hull, b.hull);
  // The overlap is x 5..10 and y 3..5.
  EXPECT_EQ(CollisionDetector::getPointOfIntersection(info), Vector3(Raw(0x78000), Real(4), Real(3)));
}

TEST(TwoParticleBoxes, FollowTheLineBetweenTheirParticles) {
  Particle p(V3(0, 0));
  Particle q(V3(0, 20));
  nox::TumbleRectangleHull tumble(&p, &q, Real(10), Real(4), Real(), Real(), nullptr, nullptr, Real(2));
  EXPECT_EQ(tumble.getPosition(), V3(0, 10));
  Vector2 delta;
  tumble.getDelta(delta);
  EXPECT_EQ(delta, V2(0, 20));
  // Turned a quarter: about 4 wide and 10 high, to within the sine table.
  const Interval x = tumble.GetProjectionX();
  const Interval y = tumble.GetProjectionY();
  EXPECT_NEAR((x.max - x.min).Raw(), 4 << 16, 64);
  EXPECT_NEAR((y.max - y.min).Raw(), 10 << 16, 64);

  nox::SpringRectangleHull spring(&p, &q, Real(10), Real(4), Real(), Real(), nullptr, nullptr, Real(2));
  EXPECT_EQ(spring.GetWidth(), Real(20));
  spring.SetWidth(Real(3));
  EXPECT_EQ(spring.GetWidth(), Real(20));
  q.m_Position = V3(0, 30);
  spring.update();
  EXPECT_EQ(spring.GetWidth(), Real(30));
}

TEST(TwoParticleBoxes, ResponseMovesBothFreeParticles) {
  Particle p(V3(0, 0));
  Particle q(V3(10, 0));
  q.m_bFixed = true;
  p.m_bMoved = false;
  nox::TumbleRectangleHull tumble(&p, &q, Real(10), Real(4), Real(), Real(), nullptr, nullptr, Real(2));
  tumble.resolveCollision(V3(0, -2), V3(1, 0), V3(0, -1), Real(2), Real(-1));
  EXPECT_EQ(p.m_Position, V3(0, -2));
  EXPECT_EQ(p.m_PreviousPosition, V3(-1, -2));
  EXPECT_FALSE(p.m_bMoved);
  EXPECT_EQ(q.m_Position, V3(10, 0));
}

TEST(Rays, BoxTakesTheNearFaceAndChecksTheOtherAxes) {
  Box box(10, 0, 4, 4);  // half depth 1
  Vector3 hit;
  EXPECT_TRUE(box.hull.intersectsRay(V3(0, 0), V3(20, 0), hit));
  // t = 8 / 20 rounds down to raw 26214.
  EXPECT_EQ(hit, Vector3(Raw(524280), Real(), Real()));
  EXPECT_TRUE(box.hull.intersectsRay(V3(20, 1), V3(0, 1), hit));
  EXPECT_EQ(hit, Vector3(Raw(786440), Real(1), Real()));
  EXPECT_FALSE(box.hull.intersectsRay(V3(0, 5), V3(20, 5), hit));
  EXPECT_FALSE(box.hull.intersectsRay(V3(0, 0, 5), V3(20, 0, 5), hit));
  // The segment's box reaches the hull's, but the line passes the corner.
  EXPECT_FALSE(box.hull.intersectsRay(V3(4, 1), V3(9, -4), hit));
}

TEST(Rays, PolygonAnswersTheFirstEdgeCrossedInItsOwnOrder) {
  Square square(10, 0);
  Vector3 hit;
  // The near edge (x = 5) comes last in the list; the far one (x = 15) first.
  EXPECT_TRUE(square.hull.intersectsRay(V3(0, 0, 1), V3(20, 0, 1), hit));
  EXPECT_EQ(hit, V3(15, 0));
  EXPECT_FALSE(square.hull.intersectsRay(V3(0, 9), V3(20, 9), hit));
}

TEST(Rays, CirclesAndTumblingBoxesLetRaysThrough) {
  Circle circle(10, 0, 5);
  Particle p(V3(5, 0));
  Particle q(V3(15, 0));
  nox::TumbleRectangleHull tumble(&p, &q, Real(10), Real(10), Real(), Real(), nullptr, nullptr, Real(2));
  Vector3 hit;
  EXPECT_FALSE(circle.hull.intersectsRay(V3(0, 0), V3(20, 0), hit));
  EXPECT_FALSE(tumble.intersectsRay(V3(0, 0), V3(20, 0), hit));
}

TEST(Segments, LineIntersectFindsCrossingsAndTreatsOverlapAsTheMidpoint) {
  Vector2 out(Real(9), Real(9));
  EXPECT_TRUE(PolyHull::LineIntersect(V2(0, 0), V2(10, 0), V2(5, -5), V2(5, 5), out));
  EXPECT_EQ(out, V2(5, 0));
  EXPECT_TRUE(PolyHull::LineIntersect(V2(2, 2), V2(8, 6), V2(2, 2), V2(8, 6), out));
  EXPECT_EQ(out, V2(5, 4));
  out = V2(9, 9);
  EXPECT_FALSE(PolyHull::LineIntersect(V2(0, 0), V2(10, 0), V2(0, 1), V2(10, 1), out));
  EXPECT_EQ(out, V2(9, 9));  // parallel: untouched
  EXPECT_FALSE(PolyHull::LineIntersect(V2(0, 0), V2(10, 0), V2(15, -5), V2(15, 5), out));
  EXPECT_EQ(out, Vector2());
}
