// The sine table and its folding, the functions built on it, atan2's radians, and the
// two integer roots.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "core/RealMath.h"
#include "core/Trig.h"

using nox::Real;

namespace {

Real Deg(int32_t whole) {
  return Real(whole);
}
Real Raw(int32_t raw) {
  return Real::FromRaw(raw);
}

// floor(sqrt(n)) by binary search on integers.
uint64_t ReferenceIsqrt(uint64_t n) {
  uint64_t lo = 0;
  uint64_t hi = uint64_t{1} << 32;
  while (hi - lo > 1) {
    const uint64_t mid = lo + (hi - lo) / 2;
    if (mid * mid <= n) {
      lo = mid;
    } else {
      hi = mid;
    }
  }
  return lo;
}

}  // namespace

TEST(Trig, EveryQuarterDegreeGivesItsRoundedTableValue) {
  const double kPi = 3.14159265358979323846;
  for (int32_t i = 0; i < 360; ++i) {
    const int64_t expected = std::llround(std::sin(i * 0.25 * kPi / 180.0) * 65536.0);
    ASSERT_EQ(nox::sin(Raw(i << 14)).Raw(), expected) << "entry " << i;
  }
}

TEST(Trig, ListedSineAndCosineValuesAreExact) {
  EXPECT_EQ(nox::sin(Deg(90)).Raw(), 0x10000);
  EXPECT_EQ(nox::sin(Deg(-90)).Raw(), -0x10000);
  EXPECT_EQ(nox::sin(Deg(270)).Raw(), -0x10000);
  EXPECT_EQ(nox::sin(Deg(0)).Raw(), 0);
  EXPECT_EQ(nox::sin(Deg(180)).Raw(), 0);
  EXPECT_EQ(nox::sin(Deg(360)).Raw(), 0);
  EXPECT_EQ(nox::sin(Real(720.25f)), nox::sin(Real(0.25f)));
  EXPECT_EQ(nox::sin(Real(0.25f)).Raw(), 286);
  EXPECT_EQ(nox::cos(Deg(0)).Raw(), 0x10000);
  EXPECT_EQ(nox::cos(Deg(90)).Raw(), 0);
  EXPECT_EQ(nox::cos(Deg(180)).Raw(), -0x10000);
  // Halfway between the first two entries: 0x2000 * 286 >> 14.
  EXPECT_EQ(nox::sin(Raw(0x2000)).Raw(), 143);
  // Just below 90 interpolates from entry 359 (65535) towards 0x10000.
  EXPECT_EQ(nox::sin(Raw(0x5A0000 - 1)).Raw(), 65535);
  EXPECT_EQ(nox::sin(Raw(0x5A0000 - 0x2000)).Raw(), 65535);
  // The most negative angle has no negation and is read as -32678.0 instead, whose
  // sine is that of 82 degrees.
  EXPECT_EQ(nox::sin(Raw(INT32_MIN)), nox::sin(Deg(82)));
  EXPECT_EQ(nox::sin(Raw(INT32_MIN)), nox::sin(Raw(static_cast<int32_t>(0x805A0000u))));
}

TEST(Trig, FirstQuadrantRisesAndStaysWithinTwoRawUnitsOfTheSine) {
  const double kPi = 3.14159265358979323846;
  int32_t previous = 0;
  for (int32_t raw = 0; raw <= 0x5A0000; raw += 3) {
    const int32_t s = nox::sin(Raw(raw)).Raw();
    ASSERT_GE(s, previous) << raw;
    const double exact = std::sin(raw / 65536.0 * kPi / 180.0) * 65536.0;
    ASSERT_LE(std::fabs(s - exact), 2.0) << raw;
    previous = s;
  }
}

TEST(Trig, OtherQuadrantsAndTurnsFoldOntoTheFirstExactly) {
  for (int32_t raw = 1; raw < 0x5A0000; raw += 997) {
    const Real x = Raw(raw);
    const Real s = nox::sin(x);
    ASSERT_EQ(nox::sin(Deg(180) - x), s) << raw;
    ASSERT_EQ(nox::sin(Deg(180) + x), -s) << raw;
    ASSERT_EQ(nox::sin(Deg(360) - x), -s) << raw;
    ASSERT_EQ(nox::sin(-x), -s) << raw;
    ASSERT_EQ(nox::sin(x + Deg(3600)), s) << raw;
    ASSERT_EQ(nox::sin(x - Deg(7200)), s) << raw;
    ASSERT_EQ(nox::cos(x - Deg(90)), s) << raw;
  }
}

TEST(Trig, TangentAndReciprocalsAreRealQuotientsOfTheSine) {
  EXPECT_EQ(nox::tan(Deg(45)).Raw(), 0x10000);
  EXPECT_EQ(nox::tan(Deg(0)).Raw(), 0);
  EXPECT_EQ(nox::csc(Deg(90)).Raw(), 0x10000);
  EXPECT_EQ(nox::sec(Deg(180)).Raw(), -0x10000);
  EXPECT_EQ(nox::csc(Deg(30)), Real(1) / nox::sin(Deg(30)));
  EXPECT_EQ(nox::cot(Deg(30)), Real(1) / nox::tan(Deg(30)));
  // sin(30) is 32768 in the table, so csc(30) is exactly 2.0.
  EXPECT_EQ(nox::csc(Deg(30)).Raw(), 0x20000);
}

TEST(Trig, Atan2ReturnsTruncatedRadians) {
  EXPECT_EQ(nox::atan2(Real(1), Real(1)).Raw(), 51471);    // pi/4
  EXPECT_EQ(nox::atan2(Real(0), Real(-1)).Raw(), 205887);  // pi
  EXPECT_EQ(nox::atan2(Real(-1), Real(-1)).Raw(), -154415);
  EXPECT_EQ(nox::atan2(Real(0), Real(0)).Raw(), 0);
  EXPECT_EQ(nox::atan2(Real(5), Real(5)), nox::atan2(Real(1), Real(1)));
}

TEST(Trig, SqrtIsTheFloorRootOfTheRawValueTimes65536) {
  EXPECT_EQ(nox::sqrt(Real(4)).Raw(), 0x20000);
  EXPECT_EQ(nox::sqrt(Real(2)).Raw(), 92681);
  EXPECT_EQ(nox::sqrt(Raw(1)).Raw(), 256);
  EXPECT_EQ(nox::sqrt(Real(0)).Raw(), 0);
  // A negative Real is a large unsigned number: 0xFFFFFFFF gives just under 256.0.
  EXPECT_EQ(nox::sqrt(Raw(-1)).Raw(), 16777215);
  for (uint32_t raw = 0; raw < 0x40000; ++raw) {
    ASSERT_EQ(static_cast<uint32_t>(nox::sqrt(Raw(static_cast<int32_t>(raw))).Raw()),
              ReferenceIsqrt(uint64_t{raw} << 16))
        << raw;
  }
  for (uint64_t raw = 0x40000; raw <= 0xFFFFFFFFu; raw += 65521) {
    ASSERT_EQ(static_cast<uint32_t>(nox::sqrt(Raw(static_cast<int32_t>(raw))).Raw()),
              ReferenceIsqrt(raw << 16))
        << raw;
  }
}

TEST(Trig, U64SqrtIsNewtonsRootStoppingWithinTwo) {
  EXPECT_EQ(nox::u64_sqrt(0), 0u);
  EXPECT_EQ(nox::u64_sqrt(1), 1u);
  EXPECT_EQ(nox::u64_sqrt(2), 1u);
  // Newton from 1 jumps to 2 and stops, one above the floor root.
  EXPECT_EQ(nox::u64_sqrt(3), 2u);
  EXPECT_EQ(nox::u64_sqrt(1600), 40u);
  EXPECT_EQ(nox::u64_sqrt(16129), 127u);
  // Never more than one away from the floor root, over small and large values.
  for (uint64_t v = 0; v < 200000; ++v) {
    const uint64_t r = nox::u64_sqrt(v);
    const uint64_t f = ReferenceIsqrt(v);
    ASSERT_TRUE(r == f || r == f + 1) << v;
  }
  for (uint64_t v = 200000; v < (uint64_t{3} << 30); v += 104729) {
    const uint64_t r = nox::u64_sqrt(v);
    const uint64_t f = ReferenceIsqrt(v);
    ASSERT_TRUE(r == f || r == f + 1) << v;
  }
}

TEST(Trig, RandRealStaysBetweenItsEnds) {
  std::srand(7);
  for (int i = 0; i < 2000; ++i) {
    const Real r = nox::rand_real(Real(-3), Real(5));
    ASSERT_GE(r, Real(-3));
    ASSERT_LE(r, Real(5));
  }
  EXPECT_EQ(nox::rand_real(Real(2), Real(2)), Real(2));
}
