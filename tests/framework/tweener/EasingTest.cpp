// The easing curves against a reference written here in raw 64-bit integer
// arithmetic, following each curve's formula with products taken left to right and
// truncated (floor) after each one; a few hand-computed values anchor the reference
// itself. The exponential curves are checked to take their one step through float.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <functional>

#include "core/RealMath.h"
#include "core/Trig.h"
#include "tweener/Easing.h"
#include "tweener/Tweener.h"

namespace {

using nox::Real;
typedef int32_t Raw;

const Raw kOne = 65536;

// Raw Q16.16 operations of the reference.
Raw Mul(Raw a, Raw b) {
  return static_cast<Raw>((static_cast<int64_t>(a) * b) >> 16);
}
Raw Div(Raw a, Raw b) {
  const int64_t q = (static_cast<int64_t>(a) * 65536 * 65536) / b;
  return static_cast<Raw>(q >> 16);
}
Raw Half(Raw a) {
  return Mul(a, 0x8000);
}
Raw W(int whole) {
  return whole * kOne;
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
Raw Pow2(Raw x) {
  return static_cast<Raw>(powf(2.0f, static_cast<float>(x) / 65536.0f) * 65536.0f);
}

// Reference curves: f(t, b, c, d) on raw values, in the tweener's index order.
typedef std::function<Raw(Raw, Raw, Raw, Raw)> Curve;

Raw LinearRef(Raw t, Raw b, Raw c, Raw d) {
  return Mul(c, Div(t, d)) + b;
}

Raw BounceOutRef(Raw t, Raw b, Raw c, Raw d) {
  const Raw k = 0x79000;
  t = Div(t, d);
  if (t <= 23830) return Mul(c, Mul(Mul(k, t), t)) + b;
  if (t < 47662) {
    t -= 35746;
    return Mul(c, Mul(Mul(k, t), t) + 49152) + b;
  }
  if (t <= 59577) {
    t -= 53620;
    return Mul(c, Mul(Mul(k, t), t) + 61440) + b;
  }
  t -= 62557;
  return Mul(c, Mul(Mul(k, t), t) + 64512) + b;
}
Raw BounceInRef(Raw t, Raw b, Raw c, Raw d) {
  return c - BounceOutRef(d - t, 0, c, d) + b;
}

Raw ElasticPhase(Raw t, Raw d, Raw s, Raw p) {
  return Div(Mul(Mul(t, d) - s, W(360)), p);
}

const Curve kRef[11][3] = {
    // 0 Linear
    {LinearRef, LinearRef, LinearRef},
    // 1 Sine
    {[](Raw t, Raw b, Raw c, Raw d) { return Mul(-c, Cos(Mul(W(90), Div(t, d)))) + c + b; },
     [](Raw t, Raw b, Raw c, Raw d) { return Mul(c, Sin(Mul(W(90), Div(t, d)))) + b; },
     [](Raw t, Raw b, Raw c, Raw d) { return Mul(-Half(c), Cos(Mul(W(180), Div(t, d))) - kOne) + b; }},
    // 2 Quint
    {[](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d);
       return Mul(Mul(Mul(Mul(Mul(c, t), t), t), t), t) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d) - kOne;
       return Mul(c, Mul(Mul(Mul(Mul(t, t), t), t), t) + kOne) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, Half(d));
       if (t < kOne) return Mul(Mul(Mul(Mul(Mul(Half(c), t), t), t), t), t) + b;
       t -= W(2);
       return Mul(Half(c), Mul(Mul(Mul(Mul(t, t), t), t), t) + W(2)) + b;
     }},
    // 3 Quart
    {[](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d);
       return Mul(Mul(Mul(Mul(c, t), t), t), t) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d) - kOne;
       return Mul(-c, Mul(Mul(Mul(t, t), t), t) - kOne) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, Half(d));
       if (t < kOne) return Mul(Mul(Mul(Mul(Half(c), t), t), t), t) + b;
       t -= W(2);
       return Mul(-Half(c), Mul(Mul(Mul(t, t), t), t) - W(2)) + b;
     }},
    // 4 Quad
    {[](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d);
       return Mul(Mul(c, t), t) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d);
       return Mul(Mul(-c, t), t - W(2)) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, Half(d));
       if (t < kOne) return Mul(Mul(Half(c), t), t) + b;
       t -= kOne;
       return Mul(-Half(c), Mul(t, t - W(2)) - kOne) + b;
     }},
    // 5 Expo
    {[](Raw t, Raw b, Raw c, Raw d) { return t == 0 ? b : Mul(c, Pow2(Mul(W(10), Div(t, d) - kOne))) + b; },
     [](Raw t, Raw b, Raw c, Raw d) { return t == d ? b + c : Mul(c, kOne - Pow2(Mul(W(-10), Div(t, d)))) + b; },
     [](Raw t, Raw b, Raw c, Raw d) {
       if (t == 0) return b;
       if (t == d) return b + c;
       t = Div(t, Half(d));
       if (t < kOne) return Mul(Half(c), Pow2(Mul(W(10), t - kOne))) + b;
       return Mul(Half(c), W(2) - Pow2(Mul(W(-10), t) - kOne)) + b;
     }},
    // 6 Elastic
    {[](Raw t, Raw b, Raw c, Raw d) {
       if (t == 0) return b;
       t = Div(t, d);
       if (t == kOne) return b + c;
       const Raw p = Mul(d, 19660), s = Div(p, W(4));
       t -= kOne;
       return b - Mul(Mul(c, Pow2(Mul(W(10), t))), Sin(ElasticPhase(t, d, s, p)));
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       if (t == 0) return b;
       t = Div(t, d);
       if (t == kOne) return b + c;
       const Raw p = Mul(d, 19660), s = Div(p, W(4));
       return b + c + Mul(Mul(c, Pow2(Mul(W(-10), t))), Sin(ElasticPhase(t, d, s, p)));
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       if (t == 0) return b;
       t = Div(t, Half(d));
       if (t == W(2)) return b + c;
       const Raw p = Mul(d, 29490), s = Div(p, W(4));
       const bool low = t < kOne;
       t -= kOne;
       const Raw wave = Sin(ElasticPhase(t, d, s, p));
       if (low) return b - Half(Mul(Mul(c, Pow2(Mul(W(10), t))), wave));
       return b + c + Half(Mul(Mul(c, Pow2(Mul(W(-10), t))), wave));
     }},
    // 7 Cubic
    {[](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d);
       return Mul(Mul(Mul(c, t), t), t) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d) - kOne;
       return Mul(c, Mul(Mul(t, t), t) + kOne) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, Half(d));
       if (t < kOne) return Mul(Mul(Mul(Half(c), t), t), t) + b;
       t -= W(2);
       return Mul(Half(c), Mul(Mul(t, t), t) + W(2)) + b;
     }},
    // 8 Circ
    {[](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d);
       return Mul(-c, Sqrt(kOne - Mul(t, t)) - kOne) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d) - kOne;
       return Mul(c, Sqrt(kOne - Mul(t, t))) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, Half(d));
       if (t < kOne) return Mul(-Half(c), Sqrt(kOne - Mul(t, t)) - kOne) + b;
       t -= W(2);
       return Mul(Half(c), Sqrt(kOne - Mul(t, t)) + kOne) + b;
     }},
    // 9 Bounce
    {BounceInRef, BounceOutRef,
     [](Raw t, Raw b, Raw c, Raw d) {
       if (t < Half(d)) return Half(BounceInRef(t * 2, 0, c, d)) + b;
       return Half(BounceOutRef(t * 2 - d, 0, c, d)) + Half(c) + b;
     }},
    // 10 Back
    {[](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d);
       return Mul(Mul(Mul(c, t), t), Mul(177050, t) - 111514) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, d) - kOne;
       return Mul(c, Mul(Mul(t, t), Mul(177050, t) + 111514) + kOne) + b;
     },
     [](Raw t, Raw b, Raw c, Raw d) {
       t = Div(t, Half(d));
       if (t < kOne) return Mul(Mul(Mul(Half(c), t), t), Mul(235594, t) - 170058) + b;
       t -= W(2);
       return Mul(Half(c), Mul(Mul(t, t), Mul(235594, t) + 170058) + W(2)) + b;
     }},
};

Raw Ease(int function, int mode, Raw t, Raw b, Raw c, Raw d) {
  noxfw::Tweener tweener;
  return tweener
      .runEquation(function, mode, Real::FromRaw(t), Real::FromRaw(b), Real::FromRaw(c), Real::FromRaw(d))
      .Raw();
}

TEST(EasingTest, EveryCurveAndModeMatchesTheRawReferenceAtChosenPoints) {
  // Whole times, as the tweener passes them; odd raw b and c so that halving and
  // negation order show; c of both signs; a millisecond and a frame duration.
  const Raw begins[] = {0, 671745 /* 10.25 */, -3 * kOne + 7};
  const Raw changes[] = {W(100), -W(100), 2457601 /* 37.5 + 1 raw */, -2457601};
  const int durations[] = {500, 30};
  for (int function = 0; function < noxfw::kTweenFunctionCount; ++function) {
    for (int mode = 0; mode < 3; ++mode) {
      for (int dWhole : durations) {
        const int times[] = {0,
                             1,
                             dWhole / 5,
                             dWhole / 3,
                             dWhole / 2 - 1,
                             dWhole / 2,
                             dWhole / 2 + 1,
                             (dWhole * 2) / 3,
                             dWhole - 1,
                             dWhole};
        for (int tWhole : times) {
          for (Raw b : begins) {
            for (Raw c : changes) {
              const Raw expected = kRef[function][mode](W(tWhole), b, c, W(dWhole));
              ASSERT_EQ(Ease(function, mode, W(tWhole), b, c, W(dWhole)), expected)
                  << "function " << function << " mode " << mode << " t " << tWhole << " d " << dWhole
                  << " b " << b << " c " << c;
            }
          }
        }
      }
    }
  }
}

TEST(EasingTest, HandComputedValuesAnchorTheReference) {
  // Linear, a quarter of the way: 25.0.
  EXPECT_EQ(Ease(noxfw::kTweenLinear, noxfw::kEaseIn, W(125), 0, W(100), W(500)), W(25));
  // Quad in at half time: c / 4. Cubic out at half time: c * (1 - 1/8).
  EXPECT_EQ(Ease(noxfw::kTweenQuad, noxfw::kEaseIn, W(250), 0, W(100), W(500)), W(25));
  EXPECT_EQ(Ease(noxfw::kTweenCubic, noxfw::kEaseOut, W(250), 0, W(100), W(500)), W(175) / 2);
  // Quad in-out with a change of 3 raw at t = d: the half is taken before the
  // negation, -(3/2 -> 1 raw) * (1 * (1 - 2) - 1) = -1 raw * -2.0 = 2 raw. Negating
  // first would give (-3/2 -> -2 raw) * -2.0 = 4 raw.
  EXPECT_EQ(Ease(noxfw::kTweenQuad, noxfw::kEaseInOut, W(500), 0, 3, W(500)), 2);
  // Back in overshoots below b: 0.1 of the way, c = 100: 100 * t * t * (2.70158 t - 1.70158).
  EXPECT_LT(Ease(noxfw::kTweenBack, noxfw::kEaseIn, W(50), 0, W(100), W(500)), 0);
  // Expo in at t = d is c * 2^0 exactly; Expo out at t = 0 is b exactly.
  EXPECT_EQ(Ease(noxfw::kTweenExpo, noxfw::kEaseIn, W(500), W(5), W(100), W(500)), W(105));
  EXPECT_EQ(Ease(noxfw::kTweenExpo, noxfw::kEaseOut, 0, W(5), W(100), W(500)), W(5));
  // The t = 0 and t = d guards of Expo and Elastic.
  EXPECT_EQ(Ease(noxfw::kTweenExpo, noxfw::kEaseIn, 0, W(7), W(100), W(500)), W(7));
  EXPECT_EQ(Ease(noxfw::kTweenExpo, noxfw::kEaseOut, W(500), W(7), W(100), W(500)), W(107));
  for (int mode = 0; mode < 3; ++mode) {
    EXPECT_EQ(Ease(noxfw::kTweenElastic, mode, 0, W(7), W(100), W(500)), W(7));
    EXPECT_EQ(Ease(noxfw::kTweenElastic, mode, W(500), W(7), W(100), W(500)), W(107));
  }
}

TEST(EasingTest, ExponentialsTakeOneStepThroughFloat) {
  EXPECT_EQ(noxfw::EasePow2(Real(0)).Raw(), kOne);
  EXPECT_EQ(noxfw::EasePow2(Real(-10)).Raw(), 64);
  EXPECT_EQ(noxfw::EasePow2(Real(-11)).Raw(), 32);
  // 2^(-13292/65536): the float result truncates to 56941, a double computation to
  // 56940. The curves must give the float value.
  EXPECT_EQ(noxfw::EasePow2(Real::FromRaw(-13292)).Raw(), 56941);
  EXPECT_EQ(static_cast<Raw>(std::pow(2.0, -13292 / 65536.0) * 65536.0), 56940);
  // 2^(72450/65536): float 141016, double 141015.
  EXPECT_EQ(noxfw::EasePow2(Real::FromRaw(72450)).Raw(), 141016);
}

TEST(EasingTest, ExpoInOutJumpsAtHalfTime) {
  // Below half time the lower branch gives under half the change; at half time the
  // upper branch's exponent -10t - 1 = -11 already gives (c/2) * (2 - 2^-11).
  const Raw before = Ease(noxfw::kTweenExpo, noxfw::kEaseInOut, W(249), 0, W(100), W(500));
  const Raw at = Ease(noxfw::kTweenExpo, noxfw::kEaseInOut, W(250), 0, W(100), W(500));
  EXPECT_LT(before, W(50));
  EXPECT_EQ(at, Mul(W(50), W(2) - 32));
  EXPECT_GT(at, W(99));
}

TEST(EasingTest, BounceOutEndsAtTheFullChangeWithinTruncation) {
  for (Raw c : {W(100), -W(100), W(7)}) {
    const Raw end = Ease(noxfw::kTweenBounce, noxfw::kEaseOut, W(500), W(3), c, W(500));
    EXPECT_LE(std::abs(end - (W(3) + c)), 8) << c;
  }
  // easeIn mirrors easeOut: at t = 0 it starts at b.
  EXPECT_LE(std::abs(Ease(noxfw::kTweenBounce, noxfw::kEaseIn, 0, W(3), W(100), W(500)) - W(3)), 8);
}

TEST(EasingTest, LinearEaseNoneIsTheSameLine) {
  const noxfw::Linear linear;
  for (int t : {0, 7, 250, 499}) {
    EXPECT_EQ(linear.easeNone(Real(t), Real(3), Real(-40), Real(500)).Raw(),
              LinearRef(W(t), W(3), -W(40), W(500)));
  }
}

TEST(EasingTest, UnknownModeOrFunctionGivesZeroAndSetFunctionStopsAtEleven) {
  noxfw::Tweener tweener;
  EXPECT_EQ(tweener.runEquation(noxfw::kTweenQuad, 3, Real(1), Real(5), Real(10), Real(2)), Real());
  EXPECT_EQ(tweener.runEquation(noxfw::kTweenQuad, -1, Real(1), Real(5), Real(10), Real(2)), Real());
  EXPECT_EQ(tweener.runEquation(11, 0, Real(1), Real(5), Real(10), Real(2)), Real());
  tweener.setFunction(11);
  EXPECT_EQ(tweener.GetFunction(), 11);
  tweener.setFunction(12);
  EXPECT_EQ(tweener.GetFunction(), 11);
}

}  // namespace
