// The easing curves of the tweener, in Q16.16 throughout. Each curve maps a time t
// in 0..d onto a value from b to b + c (c is the change, not the end). Products
// are taken left to right as written and each truncates; "half" is multiplication
// by 0.5. Angles are degrees, as the engine's sin and cos take them. The
// exponential curves leave Real for exactly one step: the exponent goes to float,
// through powf(2, x), and back by truncating the product with 65536.0f.
//
// The curves are stateless. Every translation unit that includes this header gets
// its own eleven constant objects (fLinear ... fBack); the tweener's table points
// at those of its own unit.
#pragma once
#include "core/Real.h"

namespace noxfw {

class Easing {
 public:
  virtual nox::Real easeIn(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const = 0;
  virtual nox::Real easeOut(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const = 0;
  virtual nox::Real easeInOut(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const = 0;

 protected:
  ~Easing() = default;
};

#define NOXFW_EASING_CURVE(Name)                                                            \
  class Name : public Easing {                                                              \
   public:                                                                                  \
    nox::Real easeIn(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const override;    \
    nox::Real easeOut(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const override;   \
    nox::Real easeInOut(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const override; \
  }

// c * (t / d) + b in every form.
class Linear : public Easing {
 public:
  nox::Real easeNone(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const;
  nox::Real easeIn(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const override;
  nox::Real easeOut(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const override;
  nox::Real easeInOut(nox::Real t, nox::Real b, nox::Real c, nox::Real d) const override;
};

NOXFW_EASING_CURVE(Quad);
NOXFW_EASING_CURVE(Cubic);
NOXFW_EASING_CURVE(Quart);
NOXFW_EASING_CURVE(Quint);
NOXFW_EASING_CURVE(Sine);
// The upper half of easeInOut uses the exponent -10t - 1 with t still in 1..2, so the
// curve jumps from about half the change to nearly all of it at half time. The
// game's motion was tuned with that jump; it is kept.
NOXFW_EASING_CURVE(Expo);
NOXFW_EASING_CURVE(Circ);
NOXFW_EASING_CURVE(Elastic);
NOXFW_EASING_CURVE(Back);
// easeIn and easeInOut go through this object's own easeOut/easeIn and take t as
// given, not divided by d.
NOXFW_EASING_CURVE(Bounce);

#undef NOXFW_EASING_CURVE

// 2^x through float: (float)raw / 65536, powf, then truncation of result * 65536.0f.
nox::Real EasePow2(nox::Real x);

static const Linear fLinear{};
static const Quad fQuad{};
static const Cubic fCubic{};
static const Quart fQuart{};
static const Quint fQuint{};
static const Sine fSine{};
static const Expo fExpo{};
static const Circ fCirc{};
static const Elastic fElastic{};
static const Back fBack{};
static const Bounce fBounce{};

}  // namespace noxfw
