// The two curves that pass through powf: Expo and Elastic.
#include <cmath>

#include "core/Trig.h"
#include "tweener/Easing.h"
#include "tweener/EasingConstants.h"

namespace noxfw {

using nox::Real;
using namespace easing;

namespace {

const Real kTen = Real(10);
const Real kMinusTen = Real(-10);
const Real kFullTurn = Real(360);
const Real kElasticPeriod = Real::FromRaw(19660);       // 0.3, truncated
const Real kElasticPeriodInOut = Real::FromRaw(29490);  // 0.45, truncated

// (t * d - s) * 360 / p: the phase of Elastic's oscillation in degrees.
Real ElasticPhase(Real t, Real d, Real s, Real p) {
  return (t * d - s) * kFullTurn / p;
}

}  // namespace

Real EasePow2(Real x) {
  const float exponent = static_cast<float>(x.Raw()) / 65536.0f;
  return Real(::powf(2.0f, exponent));
}

// Expo

Real Expo::easeIn(Real t, Real b, Real c, Real d) const {
  if (t == Real()) return b;
  return c * EasePow2(kTen * (t / d - kOne)) + b;
}
Real Expo::easeOut(Real t, Real b, Real c, Real d) const {
  if (t == d) return b + c;
  return c * (kOne - EasePow2(kMinusTen * (t / d))) + b;
}
Real Expo::easeInOut(Real t, Real b, Real c, Real d) const {
  if (t == Real()) return b;
  if (t == d) return b + c;
  t = t / Half(d);
  if (t < kOne) return Half(c) * EasePow2(kTen * (t - kOne)) + b;
  return Half(c) * (kTwo - EasePow2(kMinusTen * t - kOne)) + b;
}

// Elastic: amplitude c, period 0.3 d (0.45 d in and out), phase shift a quarter
// period.

Real Elastic::easeIn(Real t, Real b, Real c, Real d) const {
  if (t == Real()) return b;
  t = t / d;
  if (t == kOne) return b + c;
  const Real p = d * kElasticPeriod;
  const Real s = p / Real(4);
  t = t - kOne;
  return b - c * EasePow2(kTen * t) * nox::sin(ElasticPhase(t, d, s, p));
}
Real Elastic::easeOut(Real t, Real b, Real c, Real d) const {
  if (t == Real()) return b;
  t = t / d;
  if (t == kOne) return b + c;
  const Real p = d * kElasticPeriod;
  const Real s = p / Real(4);
  return b + c + c * EasePow2(kMinusTen * t) * nox::sin(ElasticPhase(t, d, s, p));
}
Real Elastic::easeInOut(Real t, Real b, Real c, Real d) const {
  if (t == Real()) return b;
  t = t / Half(d);
  if (t == kTwo) return b + c;
  const Real p = d * kElasticPeriodInOut;
  const Real s = p / Real(4);
  const bool firstHalf = t < kOne;
  t = t - kOne;
  const Real wave = nox::sin(ElasticPhase(t, d, s, p));
  if (firstHalf) return b - Half(c * EasePow2(kTen * t) * wave);
  return b + c + Half(c * EasePow2(kMinusTen * t) * wave);
}

}  // namespace noxfw
