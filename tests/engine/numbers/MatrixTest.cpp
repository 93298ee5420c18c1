// Matrix4's element order and product, the look-at matrix, Quaternion and the cubic
// spline's coefficients.
#include <gtest/gtest.h>

#include "core/CubicSpline.h"
#include "core/Matrix4.h"
#include "core/Quaternion.h"

using nox::CubicSpline;
using nox::Matrix4;
using nox::Quaternion;
using nox::Real;
using nox::Vector3;

namespace {

Real Raw(int32_t raw) {
  return Real::FromRaw(raw);
}

Matrix4 Counting() {
  Matrix4 m;
  for (int i = 0; i < 16; ++i) m[i] = Real(i + 1);
  return m;
}

}  // namespace

TEST(Matrix4, ElementsRunColumnByColumn) {
  Matrix4 m = Counting();
  EXPECT_EQ(m.GetColumn(1), Vector3(Real(5), Real(6), Real(7)));
  EXPECT_EQ(m.GetRow(1), Vector3(Real(2), Real(6), Real(10)));
  EXPECT_EQ(m.GetTranslationPortion(), Vector3(Real(13), Real(14), Real(15)));
  EXPECT_EQ(m.GetScalePortion(), Vector3(Real(1), Real(6), Real(11)));
  m.SetRow(2, Vector3(Real(-1), Real(-2), Real(-3)), Real(-4));
  EXPECT_EQ(m[2], Real(-1));
  EXPECT_EQ(m[6], Real(-2));
  EXPECT_EQ(m[10], Real(-3));
  EXPECT_EQ(m[14], Real(-4));
  m.SetColumn(0, Vector3(Real(7), Real(8), Real(9)), Real(10));
  EXPECT_EQ(m[3], Real(10));

  Matrix4 t;
  Counting().Transpose(t);
  EXPECT_EQ(t[1], Real(5));
  EXPECT_EQ(t[4], Real(2));
  EXPECT_EQ(t[15], Real(16));

  const Real* none = nullptr;
  EXPECT_EQ(Matrix4(none), Matrix4());
  EXPECT_EQ(Matrix4(Counting().Data()), Counting());
  EXPECT_EQ((Counting() - Counting()), Matrix4());
  EXPECT_EQ((Counting() + Counting())[15], Real(32));
}

TEST(Matrix4, ProductAppliesTheRightHandMatrixFirst) {
  Matrix4 move;
  move.CreateTranslation(Vector3(Real(1), Real(2), Real(3)));
  Matrix4 grow;
  grow.CreateScale(Vector3(Real(2), Real(2), Real(2)));
  const Vector3 p(Real(1), Real(1), Real(1));
  EXPECT_EQ((move * grow).FastTransformPoint(p), Vector3(Real(3), Real(4), Real(5)));
  EXPECT_EQ((grow * move).FastTransformPoint(p), Vector3(Real(4), Real(6), Real(8)));
  Matrix4 id;
  id.SetIdentity();
  EXPECT_EQ(id * Counting(), Counting());
  EXPECT_EQ(Counting() * id, Counting());
}

TEST(Matrix4, ProductShiftsEachTermOnItsOwn) {
  Matrix4 a;
  Matrix4 b;
  for (int i = 0; i < 16; ++i) {
    a[i] = Raw(1);
    b[i] = Raw(0x8000);
  }
  // Four products of 1/131072 each shift to 0; one shift of the sum would give 2.
  EXPECT_EQ((a * b), Matrix4());
  for (int i = 0; i < 16; ++i) a[i] = Raw(-1);
  EXPECT_EQ((a * b)[0].Raw(), -4);
}

TEST(Matrix4, TransformsIgnoreTheFourthRow) {
  Matrix4 m = Counting();
  const Vector3 v(Real(1), Real(0), Real(-1));
  // x' = m0 - m8 + m12 = 1 - 9 + 13
  EXPECT_EQ(m.FastTransformPoint(v), Vector3(Real(5), Real(6), Real(7)));
  EXPECT_EQ(m.FastTransformNormal(v), Vector3(Real(-8), Real(-8), Real(-8)));
  const unsigned char bytes[3] = {1, 0, 255};
  Vector3 out;
  m.FastTransformPoint(bytes, out);
  EXPECT_EQ(out, Vector3(Real(1 + 9 * 255 + 13), Real(2 + 10 * 255 + 14), Real(3 + 11 * 255 + 15)));
}

TEST(Matrix4, OrthogonalInverseNegatesTheTranslationWithoutTurningIt) {
  Matrix4 m = Counting();
  Matrix4 inv;
  m.OrthogonalInverse(inv);
  EXPECT_EQ(inv.GetColumn(0), Vector3(Real(1), Real(5), Real(9)));
  EXPECT_EQ(inv.GetColumn(2), Vector3(Real(3), Real(7), Real(11)));
  EXPECT_EQ(inv.GetTranslationPortion(), Vector3(Real(-13), Real(-14), Real(-15)));
  EXPECT_EQ(inv.GetRow(3), Vector3());
  EXPECT_EQ(inv[15], Real(1));

  Matrix4 r = m.GetRotation();
  EXPECT_EQ(r.GetColumn(1), Vector3(Real(5), Real(6), Real(7)));
  EXPECT_EQ(r.GetTranslationPortion(), Vector3());
  EXPECT_EQ(r.GetRow(3), Vector3());
  EXPECT_EQ(r[15], Real(1));
}

TEST(Matrix4, LookAtStoresAxesInRowsAndTheNegatedEyeInTheFourthRow) {
  Real m[16];
  nox::CreateLookAtMatrix(m, Vector3(Real(2), Real(3), Real(5)), Vector3(Real(2), Real(3), Real(4)),
                          Vector3(Real(0), Real(1), Real(0)));
  const int32_t expected[16] = {1, 0, 0, -2, 0, 1, 0, -3, 0, 0, 1, -5, 0, 0, 0, 1};
  for (int i = 0; i < 16; ++i) EXPECT_EQ(m[i], Real(expected[i])) << i;
}

TEST(Quaternion, AxisAngleUsesHalfTheAngleOnAnUnnormalizedAxis) {
  EXPECT_EQ(Quaternion(), Quaternion(Real(0), Real(0), Real(0), Real(1)));
  const Quaternion q(Vector3(Real(0), Real(0), Real(2)), Real(90));
  // sin(45) and cos(45) are both 46341; the axis is not normalized.
  EXPECT_EQ(q, Quaternion(Real(0), Real(0), Raw(92682), Raw(46341)));
  const Quaternion r(Vector3(Real(0), Real(0), Real(1)), Real(90));
  EXPECT_EQ(r.Norm().Raw(), 65536);
  EXPECT_EQ(r.Conjugate(), Quaternion(Real(0), Real(0), Raw(-46341), Raw(46341)));
  EXPECT_EQ(r.Pure(), Quaternion(Real(0), Real(0), Raw(46341), Real(0)));
  // A quarter turn about z takes x to y; the rounding happens to cancel here.
  EXPECT_EQ(r.Transform(Vector3(Real(1), Real(0), Real(0))), Vector3(Real(0), Real(1), Real(0)));
  EXPECT_EQ(r.GetAxis(), Vector3());
  EXPECT_EQ(r.GetAngle(), Real(0));
}

TEST(Quaternion, ProductInverseAndTheTurnBetweenTwoVectors) {
  const Quaternion r(Vector3(Real(0), Real(0), Real(1)), Real(90));
  const Quaternion rr = r * r;
  EXPECT_EQ(rr, Quaternion(Real(0), Real(0), Real(1), Real(0)));
  // Negative products floor, so the turn and its inverse leave a raw unit behind.
  EXPECT_EQ(r * r.Inverse(), Quaternion(Real(0), Real(0), Raw(-1), Raw(65537)));
  const Quaternion i(Real(1), Real(0), Real(0), Real(0));
  const Quaternion j(Real(0), Real(1), Real(0), Real(0));
  EXPECT_EQ(i * j, Quaternion(Real(0), Real(0), Real(1), Real(0)));
  EXPECT_EQ(j * i, Quaternion(Real(0), Real(0), Real(-1), Real(0)));

  // x to y: (0, 0, 1, 1) over sqrt(2) = 92681.
  const Quaternion between(Vector3(Real(1), Real(0), Real(0)), Vector3(Real(0), Real(1), Real(0)));
  EXPECT_EQ(between, Quaternion(Real(0), Real(0), Raw(46341), Raw(46341)));
}

TEST(Quaternion, ToMatrixFollowsItsTableIncludingTheSignsOfTheOffDiagonals) {
  Matrix4 m;
  m[12] = Real(9);
  Quaternion().ToMatrix(m);
  Matrix4 id;
  id.SetIdentity();
  EXPECT_EQ(m, id);

  const Quaternion r(Vector3(Real(0), Real(0), Real(1)), Real(90));
  r.ToMatrix(m);
  // 2 * 46341 * 46341 >> 16 twice over: 65536 - 65536 = 0 on the diagonal for x and y.
  EXPECT_EQ(m[0].Raw(), 0);
  EXPECT_EQ(m[5].Raw(), 0);
  EXPECT_EQ(m[10].Raw(), 65536);
  EXPECT_EQ(m[1].Raw(), -65536);  // x2 y - w2 z
  EXPECT_EQ(m[4].Raw(), 65536);   // w2 z + x2 y
  EXPECT_EQ(m[15], Real(1));
  EXPECT_EQ(m[12], Real(0));
}

TEST(CubicSpline, OpenCurveTangentsAndCoefficientsPassThroughEveryPoint) {
  const Vector3 points[3] = {Vector3(Real(0), Real(0), Real(0)), Vector3(Real(1), Real(2), Real(0)),
                             Vector3(Real(3), Real(0), Real(1))};
  CubicSpline s;
  s.Initialize(points, 3, false);
  EXPECT_EQ(s.GetSegmentCount(), 2u);
  // Ends use themselves as the missing neighbour, and no factor of one half.
  EXPECT_EQ(s.GetPoint(0).D, Vector3(Real(3), Real(6), Real(0)));
  EXPECT_EQ(s.GetPoint(1).D, Vector3(Real(9), Real(0), Real(3)));
  EXPECT_EQ(s.GetPoint(2).D, Vector3(Real(6), Real(-6), Real(3)));
  EXPECT_EQ(s.GetPoint(0).C, Vector3(Real(3 - 6 - 9), Real(6 - 12 - 0), Real(0 - 0 - 3)));
  EXPECT_EQ(s.GetPoint(0).E, Vector3(Real(-2 + 3 + 9), Real(-4 + 6 + 0), Real(0 + 0 + 3)));
  for (uint32_t i = 0; i < 2; ++i) {
    EXPECT_EQ(s.Evaluate(i, Real(0)), points[i]);
    EXPECT_EQ(s.Evaluate(i, Real(1)), points[i + 1]);
  }
  // A second Initialize leaves the first curve.
  s.Initialize(points, 2, true);
  EXPECT_EQ(s.GetPointCount(), 3u);
  EXPECT_FALSE(s.IsClosed());
}

TEST(CubicSpline, ClosedCurveWrapsTangentsAndItsLastSegment) {
  const Vector3 points[3] = {Vector3(Real(0), Real(0), Real(0)), Vector3(Real(4), Real(0), Real(0)),
                             Vector3(Real(0), Real(4), Real(0))};
  CubicSpline s;
  s.Initialize(points, 3, true);
  EXPECT_EQ(s.GetSegmentCount(), 3u);
  EXPECT_EQ(s.GetPoint(0).D, Vector3(Real(12), Real(-12), Real(0)));
  EXPECT_EQ(s.Evaluate(2, Real(0)), points[2]);
  EXPECT_EQ(s.Evaluate(2, Real(1)), points[0]);
}
