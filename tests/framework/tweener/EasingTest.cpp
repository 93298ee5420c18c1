// The easing curves against a reference kept here in raw 64-bit integer arithmetic,
// following each curve's formula with products taken left to right, each one
// floored; and the exponentials' one step through float.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "core/RealMath.h"
#include "core/Trig.h"
#include "tweener/Easing.h"
#include "tweener/Tweener.h"

namespace {

using nox::Real;
typedef int32_t Raw;
const Raw kOne = 65536;

Raw Mul(Raw a, Raw b) {
  return static_cast<Raw>((static_cast<int64_t>(a) * b) >> 16);
}
Raw Div(Raw a, Raw b) {
  return static_cast<Raw>(((static_cast<int64_t>(a) * kOne * kOne) / b) >> 16);
}
Raw Half(Raw a) {
  return Mul(a, 0x8000);
}
Raw W(int whole) {
  return whole * kOne;
}
// x * t * t ... with n factors of t, left to right.
Raw Chain(Raw x, Raw t, int n) {
  for (int i = 0; i < n; ++i) x = Mul(x, t);
  return x;
}
Raw Pow2(Raw x) {
  return static_cast<Raw>(powf(2.0f, static_cast<float>(x) / 65536.0f) * 65536.0f);
}
Raw Sin(Raw deg) {
  return nox::sin(Real::FromRaw(deg)).Raw();
}
Raw Cos(Raw deg) {
  return nox::cos(Real::FromRaw(deg)).Raw();
}
Raw Sqrt(Raw x) {
  return nox::sqrt(Real::FromRaw(x)).Raw();
}

// Quad (n = 2), Cubic, Quart, Quint. Quad's out and in-out have their own forms.
Raw Power(int n, int mode, Raw t, Raw b, Raw c, Raw d) {
  const bool odd = n % 2 == 1;
  if (mode == 0) return Chain(c, Div(t, d), n) + b;
  if (mode == 1) {
    t = Div(t, d);
    if (n == 2) return Mul(Mul(-c, t), t - W(2)) + b;
    t -= kOne;
    return odd ? Mul(c, Chain(t, t, n - 1) + kOne) + b : Mul(-c, Chain(t, t, n - 1) - kOne) + b;
  }
  t = Div(t, Half(d));
  if (t < kOne) return Chain(Half(c), t, n) + b;
  if (n == 2) {
    t -= kOne;
    return Mul(-Half(c), Mul(t, t - W(2)) - kOne) + b;
  }
  t -= W(2);
  return odd ? Mul(Half(c), Chain(t, t, n - 1) + W(2)) + b : Mul(-Half(c), Chain(t, t, n - 1) - W(2)) + b;
}

Raw BounceOut(Raw t, Raw b, Raw c, Raw d) {
  static const Raw kLimit[] = {23830, 47661, 59577}, kCentre[] = {0, 35746, 53620, 62557},
                   kLift[] = {0, 49152, 61440, 64512};
  t = Div(t, d);
  int i = 0;
  while (i < 3 && t > kLimit[i]) ++i;
  t -= kCentre[i];
  return Mul(c, Mul(Mul(0x79000, t), t) + kLift[i]) + b;
}

Raw Reference(int function, int mode, Raw t, Raw b, Raw c, Raw d) {
  switch (function) {
    case noxfw::kTweenLinear:
      return Mul(c, Div(t, d)) + b;
    case noxfw::kTweenQuad:
      return Power(2, mode, t, b, c, d);
    case noxfw::kTweenCubic:
      return Power(3, mode, t, b, c, d);
    case noxfw::kTweenQuart:
      return Power(4, mode, t, b, c, d);
    case noxfw::kTweenQuint:
      return Power(5, mode, t, b, c, d);
    case noxfw::kTweenSine:
      if (mode == 0) return Mul(-c, Cos(Mul(W(90), Div(t, d)))) + c + b;
      if (mode == 1) return Mul(c, Sin(Mul(W(90), Div(t, d)))) + b;
      return Mul(-Half(c), Cos(Mul(W(180), Div(t, d))) - kOne) + b;
    case noxfw::kTweenCirc:
      if (mode == 0) return Mul(-c, Sqrt(kOne - Chain(Div(t, d), Div(t, d), 1)) - kOne) + b;
      if (mode == 1) return Mul(c, Sqrt(kOne - Chain(Div(t, d) - kOne, Div(t, d) - kOne, 1))) + b;
      t = Div(t, Half(d));
      if (t < kOne) return Mul(-Half(c), Sqrt(kOne - Mul(t, t)) - kOne) + b;
      t -= W(2);
      return Mul(Half(c), Sqrt(kOne - Mul(t, t)) + kOne) + b;
    case noxfw::kTweenBack:
      if (mode == 0) return Mul(Chain(c, Div(t, d), 2), Mul(177050, Div(t, d)) - 111514) + b;
      if (mode == 1) {
        t = Div(t, d) - kOne;
        return Mul(c, Mul(Mul(t, t), Mul(177050, t) + 111514) + kOne) + b;
      }
      t = Div(t, Half(d));
      if (t < kOne) return Mul(Chain(Half(c), t, 2), Mul(235594, t) - 170058) + b;
      t -= W(2);
      return Mul(Half(c), Mul(Mul(t, t), Mul(235594, t) + 170058) + W(2)) + b;
    case noxfw::kTweenBounce:
      if (mode == 0) return c - BounceOut(d - t, 0, c, d) + b;
      if (mode == 1) return BounceOut(t, b, c, d);
      if (t < Half(d)) return Half(c - BounceOut(d - t * 2, 0, c, d)) + b;
      return Half(BounceOut(t * 2 - d, 0, c, d)) + Half(c) + b;
    case noxfw::kTweenExpo:
      if (mode != 1 && t == 0) return b;
      if (mode != 0 && t == d) return b + c;
      if (mode == 0) return Mul(c, Pow2(Mul(W(10), Div(t, d) - kOne))) + b;
      if (mode == 1) return Mul(c, kOne - Pow2(Mul(W(-10), Div(t, d)))) + b;
      t = Div(t, Half(d));
      if (t < kOne) return Mul(Half(c), Pow2(Mul(W(10), t - kOne))) + b;
      return Mul(Half(c), W(2) - Pow2(Mul(W(-10), t) - kOne)) + b;
    case noxfw::kTweenElastic: {
      if (t == 0) return b;
      t = Div(t, mode == 2 ? Half(d) : d);
      if (t == (mode == 2 ? W(2) : kOne)) return b + c;
      const Raw p = Mul(d, mode == 2 ? 29490 : 19660), s = Div(p, W(4));
      const bool low = mode == 0 || (mode == 2 && t < kOne);
      if (mode != 1) t -= kOne;
      const Raw wave = Mul(Mul(c, Pow2(Mul(W(low ? 10 : -10), t))), Sin(Div(Mul(Mul(t, d) - s, W(360)), p)));
      if (mode == 0) return b - wave;
      if (mode == 1) return b + c + wave;
      return low ? b - Half(wave) : b + c + Half(wave);
    }
  }
  return 0;
}

Raw Ease(int function, int mode, Raw t, Raw b, Raw c, Raw d) {
  const noxfw::Tweener tweener;
  const Real r = tweener.runEquation(function, mode, Real::FromRaw(t), Real::FromRaw(b), Real::FromRaw(c),
                                     Real::FromRaw(d));
  return r.Raw();
}

TEST(EasingTest, EveryCurveAndModeMatchesTheRawReference) {
  // Whole times, as the tweener passes them; odd raw b and c so that the order of
  // halving and negation shows; c of both signs; a millisecond and a frame duration.
  for (int function = 0; function < noxfw::kTweenFunctionCount; ++function) {
    for (int mode = 0; mode < 3; ++mode) {
      for (int d : {500, 30}) {
        for (int t : {0, 1, d / 5, d / 3, d / 2 - 1, d / 2, d / 2 + 1, d * 2 / 3, d - 1, d}) {
          for (Raw b : {0, 671745, -W(3) + 7}) {
            for (Raw c : {W(100), -W(100), 2457601, -2457601}) {
              ASSERT_EQ(Ease(function, mode, W(t), b, c, W(d)), Reference(function, mode, W(t), b, c, W(d)))
                  << "function " << function << " mode " << mode << " t " << t << " d " << d << " b " << b
                  << " c " << c;
            }
          }
        }
      }
    }
  }
}

TEST(EasingTest, HandComputedValuesAnchorTheReference) {
  EXPECT_EQ(Ease(noxfw::kTweenLinear, 0, W(125), 0, W(100), W(500)), W(25));
  EXPECT_EQ(Ease(noxfw::kTweenCubic, 1, W(250), 0, W(100), W(500)), W(175) / 2);  // 1 - 1/8
  // Quad in-out, change 3 raw, t = d: the half is taken before the negation,
  // -(1 raw) * (1 * (1 - 2) - 1) = 2 raw; negating first would give 4 raw.
  EXPECT_EQ(Ease(noxfw::kTweenQuad, 2, W(500), 0, 3, W(500)), 2);
  EXPECT_EQ(Ease(noxfw::kTweenExpo, 0, W(500), W(5), W(100), W(500)), W(105));  // c * 2^0
}

TEST(EasingTest, ExponentialsTakeOneStepThroughFloat) {
  EXPECT_EQ(noxfw::EasePow2(Real(-10)).Raw(), 64);
  // Float truncates these to 56941 and 141016, double to 56940 and 141015.
  EXPECT_EQ(noxfw::EasePow2(Real::FromRaw(-13292)).Raw(), 56941);
  EXPECT_EQ(noxfw::EasePow2(Real::FromRaw(72450)).Raw(), 141016);
  EXPECT_EQ(static_cast<Raw>(std::pow(2.0, 72450 / 65536.0) * 65536.0), 141015);
}

TEST(EasingTest, ExpoInOutJumpsAtHalfTimeAndBounceOutLandsOnTheEnd) {
  // At half time the upper branch's exponent -10t - 1 = -11 already gives nearly c.
  EXPECT_LT(Ease(noxfw::kTweenExpo, 2, W(249), 0, W(100), W(500)), W(50));
  EXPECT_EQ(Ease(noxfw::kTweenExpo, 2, W(250), 0, W(100), W(500)), Mul(W(50), W(2) - 32));
  for (Raw c : {W(100), -W(100), W(7)}) {
    EXPECT_LE(std::abs(Ease(noxfw::kTweenBounce, 1, W(500), W(3), c, W(500)) - (W(3) + c)), 8) << c;
  }
}

TEST(EasingTest, UnknownModeOrFunctionGivesZeroAndSetFunctionStopsAtEleven) {
  EXPECT_EQ(Ease(noxfw::kTweenQuad, 3, W(1), W(5), W(10), W(2)), 0);
  EXPECT_EQ(Ease(noxfw::kTweenQuad, -1, W(1), W(5), W(10), W(2)), 0);
  EXPECT_EQ(Ease(11, 0, W(1), W(5), W(10), W(2)), 0);
  noxfw::Tweener tweener;
  tweener.setFunction(11);
  tweener.setFunction(12);
  EXPECT_EQ(tweener.GetFunction(), 11);
}

}  // namespace
