#include "tweener/Easing.h"

#include "core/RealMath.h"
#include "core/Trig.h"
#include "tweener/EasingConstants.h"

namespace noxfw {

using nox::Real;
using namespace easing;

namespace {

// Back's overshoot s = 1.70158 and s * 1.525 = 2.59491, each also with one added.
const Real kBackIn = Real::FromRaw(177050);     // 2.70158
const Real kBackS = Real::FromRaw(111514);      // 1.70158
const Real kBackInOut = Real::FromRaw(235594);  // 3.59491
const Real kBackS2 = Real::FromRaw(170058);     // 2.59491

const Real kBounceScale = Real::FromRaw(0x79000);  // 7.5625

}  // namespace

// Linear

Real Linear::easeNone(Real t, Real b, Real c, Real d) const {
  return c * (t / d) + b;
}
Real Linear::easeIn(Real t, Real b, Real c, Real d) const {
  return c * (t / d) + b;
}
Real Linear::easeOut(Real t, Real b, Real c, Real d) const {
  return c * (t / d) + b;
}
Real Linear::easeInOut(Real t, Real b, Real c, Real d) const {
  return c * (t / d) + b;
}

// Quad

Real Quad::easeIn(Real t, Real b, Real c, Real d) const {
  t = t / d;
  return c * t * t + b;
}
Real Quad::easeOut(Real t, Real b, Real c, Real d) const {
  t = t / d;
  return -c * t * (t - kTwo) + b;
}
Real Quad::easeInOut(Real t, Real b, Real c, Real d) const {
  t = t / Half(d);
  if (t < kOne) return Half(c) * t * t + b;
  t = t - kOne;
  return -Half(c) * (t * (t - kTwo) - kOne) + b;
}

// Cubic

Real Cubic::easeIn(Real t, Real b, Real c, Real d) const {
  t = t / d;
  return c * t * t * t + b;
}
Real Cubic::easeOut(Real t, Real b, Real c, Real d) const {
  t = t / d - kOne;
  return c * (t * t * t + kOne) + b;
}
Real Cubic::easeInOut(Real t, Real b, Real c, Real d) const {
  t = t / Half(d);
  if (t < kOne) return Half(c) * t * t * t + b;
  t = t - kTwo;
  return Half(c) * (t * t * t + kTwo) + b;
}

// Quart

Real Quart::easeIn(Real t, Real b, Real c, Real d) const {
  t = t / d;
  return c * t * t * t * t + b;
}
Real Quart::easeOut(Real t, Real b, Real c, Real d) const {
  t = t / d - kOne;
  return -c * (t * t * t * t - kOne) + b;
}
Real Quart::easeInOut(Real t, Real b, Real c, Real d) const {
  t = t / Half(d);
  if (t < kOne) return Half(c) * t * t * t * t + b;
  t = t - kTwo;
  return -Half(c) * (t * t * t * t - kTwo) + b;
}

// Quint

Real Quint::easeIn(Real t, Real b, Real c, Real d) const {
  t = t / d;
  return c * t * t * t * t * t + b;
}
Real Quint::easeOut(Real t, Real b, Real c, Real d) const {
  t = t / d - kOne;
  return c * (t * t * t * t * t + kOne) + b;
}
Real Quint::easeInOut(Real t, Real b, Real c, Real d) const {
  t = t / Half(d);
  if (t < kOne) return Half(c) * t * t * t * t * t + b;
  t = t - kTwo;
  return Half(c) * (t * t * t * t * t + kTwo) + b;
}

// Sine: quarter and half turns in degrees.

Real Sine::easeIn(Real t, Real b, Real c, Real d) const {
  return -c * nox::cos(Real(90) * (t / d)) + c + b;
}
Real Sine::easeOut(Real t, Real b, Real c, Real d) const {
  return c * nox::sin(Real(90) * (t / d)) + b;
}
Real Sine::easeInOut(Real t, Real b, Real c, Real d) const {
  return -Half(c) * (nox::cos(Real(180) * (t / d)) - kOne) + b;
}

// Circ

Real Circ::easeIn(Real t, Real b, Real c, Real d) const {
  t = t / d;
  return -c * (nox::sqrt(kOne - t * t) - kOne) + b;
}
Real Circ::easeOut(Real t, Real b, Real c, Real d) const {
  t = t / d - kOne;
  return c * nox::sqrt(kOne - t * t) + b;
}
Real Circ::easeInOut(Real t, Real b, Real c, Real d) const {
  t = t / Half(d);
  if (t < kOne) return -Half(c) * (nox::sqrt(kOne - t * t) - kOne) + b;
  t = t - kTwo;
  return Half(c) * (nox::sqrt(kOne - t * t) + kOne) + b;
}

// Back

Real Back::easeIn(Real t, Real b, Real c, Real d) const {
  t = t / d;
  return c * t * t * (kBackIn * t - kBackS) + b;
}
Real Back::easeOut(Real t, Real b, Real c, Real d) const {
  t = t / d - kOne;
  return c * (t * t * (kBackIn * t + kBackS) + kOne) + b;
}
Real Back::easeInOut(Real t, Real b, Real c, Real d) const {
  t = t / Half(d);
  if (t < kOne) return Half(c) * t * t * (kBackInOut * t - kBackS2) + b;
  t = t - kTwo;
  return Half(c) * (t * t * (kBackInOut * t + kBackS2) + kTwo) + b;
}

// Bounce: four parabolas, the thresholds and centres being 1/2.75, 2/2.75, 2.5/2.75
// and 1.5/2.75, 2.25/2.75, 2.625/2.75 as raw fractions.

Real Bounce::easeOut(Real t, Real b, Real c, Real d) const {
  t = t / d;
  if (t.Raw() <= 23830) return c * (kBounceScale * t * t) + b;
  if (t.Raw() < 47662) {
    t = t - Real::FromRaw(35746);
    return c * (kBounceScale * t * t + Real::FromRaw(49152)) + b;  // 0.75
  }
  if (t.Raw() <= 59577) {
    t = t - Real::FromRaw(53620);
    return c * (kBounceScale * t * t + Real::FromRaw(61440)) + b;  // 0.9375
  }
  t = t - Real::FromRaw(62557);
  return c * (kBounceScale * t * t + Real::FromRaw(64512)) + b;  // 0.984375
}
Real Bounce::easeIn(Real t, Real b, Real c, Real d) const {
  return c - easeOut(d - t, Real(), c, d) + b;
}
Real Bounce::easeInOut(Real t, Real b, Real c, Real d) const {
  if (t < Half(d)) return Half(easeIn(t * kTwo, Real(), c, d)) + b;
  return Half(easeOut(t * kTwo - d, Real(), c, d)) + Half(c) + b;
}

}  // namespace noxfw
