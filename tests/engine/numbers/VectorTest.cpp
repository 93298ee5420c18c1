// Vector2 and Vector3: the per-product shifts, the magnitude seams, distance against
// separation, the guarded divisions, normalizing, and the angle helpers.
#include <gtest/gtest.h>

#include "core/Vector2.h"
#include "core/Vector3.h"

using nox::Real;
using nox::Vector2;
using nox::Vector3;

namespace {

Real Raw(int32_t raw) {
  return Real::FromRaw(raw);
}

}  // namespace

TEST(Vector, SumsOfProductsShiftEachProductOnItsOwn) {
  const Vector3 tiny(Raw(1), Raw(1), Raw(1));
  const Vector3 half(Raw(0x8000), Raw(0x8000), Raw(0x8000));
  // Each product is 1/131072 and shifts to 0; shifting the sum once would give 1.
  EXPECT_EQ(tiny.dot(half).Raw(), 0);
  // Negative products floor one by one: -3 where a single shift gives -2.
  EXPECT_EQ((-tiny).dot(half).Raw(), -3);
  EXPECT_EQ(Vector2(Raw(-1), Raw(-1)).dot(Vector2(Raw(0x8000), Raw(0x8000))).Raw(), -2);
  // Vector3::dot(Vector2) reads x and y only.
  EXPECT_EQ(Vector3(Real(2), Real(3), Real(100)).dot(Vector2(Real(4), Real(5))), Real(23));
  EXPECT_EQ(Vector3(Raw(1), Raw(0), Raw(0)).magnitudeSquared().Raw(), 0);
}

TEST(Vector, CrossPerpendicularAndProjectFollowTheirFormulas) {
  EXPECT_EQ(Vector2(Real(2), Real(3)).cross(Vector2(Real(5), Real(7))), Real(-1));
  EXPECT_EQ(Vector2(Real(2), Real(-3)).perpendicular(), Vector2(Real(-3), Real(-2)));
  EXPECT_EQ(Vector3(Real(1), Real(0), Real(0)).cross(Vector3(Real(0), Real(1), Real(0))),
            Vector3(Real(0), Real(0), Real(1)));
  EXPECT_EQ(Vector3(Real(1), Real(2), Real(3)).cross(Vector3(Real(4), Real(5), Real(6))),
            Vector3(Real(-3), Real(6), Real(-3)));
  // project() does not divide by the length of its argument.
  EXPECT_EQ(Vector2(Real(3), Real(4)).project(Vector2(Real(2), Real(0))), Vector2(Real(12), Real(0)));
  EXPECT_EQ(Vector3(Vector2(Real(1), Real(2))), Vector3(Real(1), Real(2), Real(0)));
  EXPECT_EQ(Vector3(Vector2(Real(1), Real(2)), Real(7)).z, Real(7));
}

TEST(Vector, Vector2MagnitudeSwitchesToWholeNumbersAt127) {
  // Below the seam the Real root is exact.
  EXPECT_EQ(Vector2(Real(126.5f), Real(0)).magnitude(), Real(126.5f));
  // The square is floored before the root, which can cost a raw unit.
  EXPECT_EQ(Vector2(Raw(0x7EFFFF), Real(0)).magnitude().Raw(), 0x7EFFFE);
  EXPECT_EQ(Vector2(Real(3), Real(4)).magnitude(), Real(5));
  // From 127.0 on, components are floored to whole numbers first.
  EXPECT_EQ(Vector2(Real(127), Real(0)).magnitude(), Real(127));
  EXPECT_EQ(Vector2(Real(127.5f), Real(0)).magnitude(), Real(127));
  EXPECT_EQ(Vector2(Real(-127.5f), Real(0)).magnitude(), Real(128));
  EXPECT_EQ(Vector2(Real(1.5f), Real(200)).magnitude(), Real(200));
  EXPECT_EQ(Vector2(Real(300), Real(400)).magnitude(), Real(500));
  // Past 32767.0 the whole-number length wraps like any Real.
  EXPECT_EQ(Vector2(Real(30000), Real(30000)).magnitude(), Real(42426));
}

TEST(Vector, Vector3MagnitudeSwitchesToWholeNumbersAt40) {
  EXPECT_EQ(Vector3(Real(40), Real(0), Real(0)).magnitude(), Real(40));
  EXPECT_EQ(Vector3(Real(40.75f), Real(0), Real(0)).magnitude(), Real(40));
  EXPECT_EQ(Vector3(Real(39.75f), Real(0), Real(0)).magnitude(), Real(39.75f));
  // Each component is tested on its own, so this large sum stays on the Real path:
  // the root of 4680.75, not the whole-number 68 or 67.
  EXPECT_EQ(Vector3(Real(39.5f), Real(39.5f), Real(39.5f)).magnitude().Raw(), 4483711);
  EXPECT_EQ(Vector3(Real(2), Real(3), Real(6)).magnitude(), Real(7));
  EXPECT_EQ(Vector3(Real(20), Real(30), Real(60)).magnitude(), Real(70));
}

TEST(Vector, PreciseMagnitudeGoesThroughFloatAndTruncates) {
  EXPECT_EQ(Vector2(Real(127.5f), Real(0)).preciseMagnitude(), Real(127.5f));
  EXPECT_EQ(Vector3(Real(1), Real(1), Real(0)).preciseMagnitude().Raw(), 92681);
  EXPECT_EQ(Vector3(Real(40.75f), Real(0), Real(0)).preciseMagnitude(), Real(40.75f));
}

TEST(Vector, DistanceAddsWhileSeparationSubtracts) {
  const Vector2 a(Real(3), Real(4));
  EXPECT_EQ(a.distance(a), Real(10));
  EXPECT_EQ(a.separation(a), Real(0));
  EXPECT_EQ(a.separation(Vector2(Real(0), Real(0))), Real(5));
  const Vector3 b(Real(2), Real(3), Real(6));
  EXPECT_EQ(b.distance(b), Real(14));
  EXPECT_EQ(b.separation(b), Real(0));
  EXPECT_EQ(b.distance(-b), Real(0));
}

TEST(Vector, DividingByZeroDividesByRawOneAndWritesItBack) {
  Vector2 v(Raw(3), Raw(-5));
  Real d(0);
  v /= d;
  EXPECT_EQ(d.Raw(), 1);
  EXPECT_EQ(v, Vector2(Real(3), Real(-5)));

  Vector3 w(Raw(1), Raw(2), Raw(-4));
  Real e(0);
  w /= e;
  EXPECT_EQ(e.Raw(), 1);
  EXPECT_EQ(w, Vector3(Real(1), Real(2), Real(-4)));

  // A constant divisor cannot be written back but is replaced all the same.
  Vector2 c(Raw(7), Raw(0));
  c /= Real(0);
  EXPECT_EQ(c.x, Real(7));
  // A non-zero divisor is left alone.
  Real two(2);
  w /= two;
  EXPECT_EQ(two, Real(2));
  EXPECT_EQ(w, Vector3(Real(0.5f), Real(1), Real(-2)));
}

TEST(Vector, NormalizeMultipliesByTheShiftedInverseOfTheMagnitude) {
  Vector2 v(Real(3), Real(4));
  v.normalize();
  // (2^48 / 5.0) >> 16 is 13107, a little under 0.2.
  EXPECT_EQ(v, Vector2(Raw(39321), Raw(52428)));
  Vector3 w(Real(0), Real(-2), Real(0));
  w.normalize();
  EXPECT_EQ(w, Vector3(Real(0), Real(-1), Real(0)));

  Vector3 out(Real(9), Real(9), Real(9));
  EXPECT_FALSE(Vector3().safeNormalize(out));
  EXPECT_EQ(out, Vector3(Real(9), Real(9), Real(9)));
  Vector2 out2(Real(9), Real(9));
  EXPECT_FALSE(Vector2().safeNormalize(out2));
  EXPECT_EQ(out2, Vector2(Real(9), Real(9)));

  const Vector3 source(Real(0), Real(0), Real(8));
  EXPECT_TRUE(source.safeNormalize(out));
  EXPECT_EQ(out, Vector3(Real(0), Real(0), Real(1)));
  EXPECT_EQ(source, Vector3(Real(0), Real(0), Real(8)));
}

TEST(VectorDeathTest, NormalizingTheZeroVectorEndsInTheDivisionHandler) {
  EXPECT_DEATH(
      {
        Vector3 v;
        v.normalize();
      },
      "");
}

TEST(Vector, YawIsAtan2OfXAndZInDegreesNeverNegative) {
  EXPECT_EQ(nox::GetVectorYaw(Vector3(Real(0), Real(0), Real(1))).Raw(), 0);
  // atan2(-1, 0) is -102943 raw radians; times 57.29582 and plus 360.0: just under 270.
  EXPECT_EQ(nox::GetVectorYaw(Vector3(Real(-1), Real(0), Real(0))).Raw(), 17694756);
  EXPECT_EQ(nox::GetVectorYaw(Vector3(Real(1), Real(0), Real(0))).Raw(), 5898203);
  for (int32_t x = -3; x <= 3; ++x) {
    for (int32_t z = -3; z <= 3; ++z) {
      const Real yaw = nox::GetVectorYaw(Vector3(Real(x), Real(0), Real(z)));
      ASSERT_GE(yaw, Real(0));
      ASSERT_LT(yaw, Real(360));
    }
  }
}

TEST(Vector, PitchKeepsTheLargerOfXAndZAndTheZOnATie) {
  // (1, 1, 1) takes the z branch: (0, 1, 1) normalized, atan2 of equal values.
  EXPECT_EQ(nox::GetVectorPitch(Vector3(Real(1), Real(1), Real(1))).Raw(), 2949073);
  EXPECT_EQ(nox::GetVectorPitch(Vector3(Real(5), Real(5), Real(-1))),
            nox::GetVectorPitch(Vector3(Real(-1), Real(5), Real(5))));
  EXPECT_EQ(nox::GetVectorPitch(Vector3(Real(0), Real(0), Real(-3))).Raw(), 0);
  const Real down = nox::GetVectorPitch(Vector3(Real(0), Real(-2), Real(0)));
  EXPECT_LT(down, Real(-89));
  EXPECT_GE(down, Real(-90));
  EXPECT_EQ(down.Raw(), -5898204);
  // The product floors, so straight up is one raw unit short of the negation.
  EXPECT_EQ(nox::GetVectorPitch(Vector3(Real(0), Real(2), Real(0))).Raw(), 5898203);
}
