// Real arithmetic on raw values: conversions, wrapping, and the roundings of * and /
// against an int64 reference that uses floor and truncating division rather than
// shifts.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "core/Real.h"

using nox::Real;

namespace {

int32_t Low32(int64_t v) {
  const uint32_t u = static_cast<uint32_t>(static_cast<uint64_t>(v));
  return u < 0x80000000u ? static_cast<int32_t>(u)
                         : static_cast<int32_t>(static_cast<int64_t>(u) - (int64_t{1} << 32));
}

int64_t FloorDiv(int64_t a, int64_t b) {
  int64_t q = a / b;
  if ((a % b != 0) && ((a < 0) != (b < 0))) --q;
  return q;
}

int32_t ReferenceMul(int32_t a, int32_t b) {
  return Low32(FloorDiv(int64_t{a} * b, 65536));
}

int32_t ReferenceDiv(int32_t a, int32_t b) {
  // a * 2^32 needs 96 bits in the worst case only for the quotient by +-1.
  const __int128 q = (static_cast<__int128>(a) * (static_cast<__int128>(1) << 32)) / b;
  const int64_t q64 = static_cast<int64_t>(static_cast<uint64_t>(static_cast<unsigned __int128>(q)));
  return Low32(FloorDiv(q64, 65536));
}

// Raw values around every place where rounding or wrapping changes: signs, the unit,
// the half, the ends of the range.
std::vector<int32_t> InterestingRaws() {
  std::vector<int32_t> v = {0,          1,
                            -1,         2,
                            -2,         3,
                            -3,         0x7FFF,
                            0x8000,     -0x8000,
                            0x8001,     -0x8001,
                            0xFFFF,     0x10000,
                            -0x10000,   0x10001,
                            -0x10001,   0x18000,
                            -0x18000,   0x7FFFFFFF,
                            INT32_MIN,  INT32_MIN + 1,
                            0x7FFF0000, -0x7FFF0000,
                            0x12345678, -0x12345678,
                            0x00FF00FF, -0x00FF00FF};
  for (int32_t k = 1; k < 300; k += 7) {
    v.push_back(k * 4099);
    v.push_back(-k * 4099);
  }
  return v;
}

uint32_t g_Lcg = 12345;
int32_t NextRaw() {
  g_Lcg = g_Lcg * 1664525u + 1013904223u;
  return static_cast<int32_t>(g_Lcg);
}

}  // namespace

TEST(Real, WholeNumbersShiftLeftAndWrapWithoutSaturating) {
  EXPECT_EQ(Real(1).Raw(), 0x10000);
  EXPECT_EQ(Real(-3).Raw(), -0x30000);
  EXPECT_EQ(Real(32767).Raw(), 0x7FFF0000);
  EXPECT_EQ(Real(32768).Raw(), INT32_MIN);
  EXPECT_LT(Real(40000), Real(0));
  EXPECT_EQ(Real(40000).ToInt(), 40000 - 65536);
  // Only the low 32 bits of a wide integer count, as with the device's 32-bit long.
  EXPECT_EQ(Real(0x100000001LL).Raw(), 0x10000);
}

TEST(Real, ToIntRoundsTowardsMinusInfinityButFloatsTruncateTowardsZero) {
  EXPECT_EQ(Real::FromRaw(0x18000).ToInt(), 1);
  EXPECT_EQ(Real::FromRaw(-1).ToInt(), -1);
  EXPECT_EQ(Real::FromRaw(-0x18000).ToInt(), -2);
  EXPECT_EQ(Real::FromRaw(INT32_MIN).ToInt(), -32768);

  EXPECT_EQ(Real(0.5f).Raw(), 0x8000);
  EXPECT_EQ(Real(-1.5f).Raw(), -0x18000);
  EXPECT_EQ(Real(-0.00001f).Raw(), 0);  // -0.65 raw truncates to 0
  EXPECT_EQ(Real(1.00001f).Raw(), 0x10000);
  // Out of range saturates instead of being undefined.
  EXPECT_EQ(Real(1e10f).Raw(), INT32_MAX);
  EXPECT_EQ(Real(-1e10f).Raw(), INT32_MIN);
  EXPECT_EQ(Real(1e300).Raw(), INT32_MAX);
  EXPECT_EQ(Real(0.1).Raw(), Real(0.1f).Raw());
  EXPECT_EQ(Real::FromRaw(0x8000).ToFloat(), 0.5f);
  EXPECT_EQ(Real::FromRaw(-0x10000).ToFloat(), -1.0f);
}

TEST(Real, AdditionSubtractionAndNegationWrapIn32Bits) {
  EXPECT_EQ((Real::FromRaw(INT32_MAX) + Real::FromRaw(1)).Raw(), INT32_MIN);
  EXPECT_EQ((Real::FromRaw(INT32_MIN) - Real::FromRaw(1)).Raw(), INT32_MAX);
  EXPECT_EQ((-Real::FromRaw(INT32_MIN)).Raw(), INT32_MIN);
  Real r(32767);
  r += Real(2);
  EXPECT_EQ(r.ToInt(), -32767);
  EXPECT_TRUE(Real::FromRaw(-1) < Real(0));
  EXPECT_TRUE(Real(2) >= Real::FromRaw(0x20000));
}

TEST(Real, MultiplicationRoundsTowardsMinusInfinityOnNegativeOperands) {
  EXPECT_EQ((Real::FromRaw(1) * Real::FromRaw(1)).Raw(), 0);
  EXPECT_EQ((Real::FromRaw(-1) * Real::FromRaw(1)).Raw(), -1);
  EXPECT_EQ((Real::FromRaw(-3) * Real::FromRaw(0x8000)).Raw(), -2);
  EXPECT_EQ((Real::FromRaw(3) * Real::FromRaw(-0x8000)).Raw(), -2);
  EXPECT_EQ((Real::FromRaw(-3) * Real::FromRaw(-0x8000)).Raw(), 1);
  EXPECT_EQ((Real(-2) * Real(3)).Raw(), -0x60000);
  // The high bits of the product are dropped: 256.0 * 256.0 wraps to 0.
  EXPECT_EQ((Real(256) * Real(256)).Raw(), 0);
  EXPECT_EQ((Real(200) * Real(200)).Raw(), Low32(int64_t{40000} << 16));
}

TEST(Real, MultiplicationMatchesTheReferenceOverASweep) {
  const std::vector<int32_t> raws = InterestingRaws();
  for (int32_t a : raws) {
    for (int32_t b : raws) {
      ASSERT_EQ(Real::Mul(a, b), ReferenceMul(a, b)) << a << " * " << b;
    }
  }
  for (int i = 0; i < 200000; ++i) {
    const int32_t a = NextRaw();
    const int32_t b = NextRaw() >> (i % 24);
    ASSERT_EQ((Real::FromRaw(a) * Real::FromRaw(b)).Raw(), ReferenceMul(a, b)) << a << " * " << b;
  }
}

TEST(Real, DivisionTruncatesThenShiftsTowardsMinusInfinity) {
  EXPECT_EQ((Real(1) / Real(3)).Raw(), 21845);
  // -1431655765 (truncated) shifted right 16 floors to -21846: not the negation of 1/3.
  EXPECT_EQ((Real(-1) / Real(3)).Raw(), -21846);
  EXPECT_EQ((Real::FromRaw(1) / Real(3)).Raw(), 0);
  // The 64-bit quotient truncates to -21845, and the shift then floors it to -1.
  EXPECT_EQ((Real::FromRaw(-1) / Real(3)).Raw(), -1);
  EXPECT_EQ((Real::FromRaw(-1) / Real(2)).Raw(), -1);
  EXPECT_EQ((Real(7) / Real(-2)).Raw(), -0x38000);
  // Quotients past the range keep their low 32 bits.
  EXPECT_EQ((Real(1) / Real::FromRaw(1)).Raw(), 0);
  EXPECT_EQ((Real::FromRaw(INT32_MIN) / Real::FromRaw(-1)).Raw(), 0);
  EXPECT_EQ((Real::FromRaw(INT32_MIN) / Real::FromRaw(-0x10000)).Raw(), INT32_MIN);
}

TEST(Real, DivisionMatchesTheReferenceOverASweep) {
  const std::vector<int32_t> raws = InterestingRaws();
  for (int32_t a : raws) {
    for (int32_t b : raws) {
      if (b == 0) continue;
      ASSERT_EQ(Real::Div(a, b), ReferenceDiv(a, b)) << a << " / " << b;
    }
  }
  for (int i = 0; i < 200000; ++i) {
    const int32_t a = NextRaw() >> (i % 31);
    int32_t b = NextRaw() >> (i % 29);
    if (b == 0) b = 1;
    ASSERT_EQ((Real::FromRaw(a) / Real::FromRaw(b)).Raw(), ReferenceDiv(a, b)) << a << " / " << b;
  }
}

TEST(RealDeathTest, DivisionByZeroEndsInTheDivisionHandler) {
  EXPECT_DEATH(
      {
        Real a(1);
        a /= Real(0);
      },
      "");
}
