// One tween: the Real values it drives, the curve and mode, its duration and delay,
// repeats and callbacks. The owner fills a param and hands it to
// Tweener::addTween, which keeps a deep copy; the owner's param may then be reused
// or dropped. Listeners receive the tweener's copy, so they recognise a tween by its
// values (SameTween), never by its address.
#pragma once
#include <cstdint>
#include <vector>

#include "core/Real.h"

namespace noxfw {

// Indices into the tweener's easing table.
enum TweenerFunction {
  kTweenLinear = 0,
  kTweenSine = 1,
  kTweenQuint = 2,
  kTweenQuart = 3,
  kTweenQuad = 4,
  kTweenExpo = 5,
  kTweenElastic = 6,
  kTweenCubic = 7,
  kTweenCirc = 8,
  kTweenBounce = 9,
  kTweenBack = 10,
  kTweenFunctionCount = 11
};

enum TweenerMode { kEaseIn = 0, kEaseOut = 1, kEaseInOut = 2 };

// One driven value. The begin value is overwritten by Tweener::addTween from the
// target at that moment.
struct TweenerProperty {
  nox::Real* m_pTarget;  // borrowed; must outlive the tween
  nox::Real m_End;
  nox::Real m_Begin;
};

class TweenerParam {
 public:
  typedef void (*Callback)();

  // 500 ms, linear, ease in, time-based, no delay, no repeats, no callbacks.
  TweenerParam();
  // A param of `duration` (ms, or frames when not time-based) on one curve.
  TweenerParam(nox::Real duration, short function, short mode, nox::Real delay = nox::Real());
  virtual ~TweenerParam() = default;

  // Appends a property and sets the property count to the vector's size.
  void AddProperty(nox::Real* target, nox::Real end, nox::Real begin = nox::Real());

  // The match rule of removeTween: same duration, function and mode and, when this
  // param has live properties, the same end and begin value for each of them.
  bool SameTween(const TweenerParam& other) const;

  std::vector<TweenerProperty> m_Properties;
  nox::Real m_Duration;    // whole ms (or frames) in Q16.16; only the whole part counts
  short m_Function;        // TweenerFunction
  short m_Mode;            // TweenerMode
  nox::Real m_Delay;       // same units as the duration
  nox::Real m_Time;        // elapsed in the present phase (delay or run)
  int m_PropertyCount;     // live properties; set it to m_Properties.size() after filling
  bool m_bTimeBased;       // true: time advances by elapsed ms; false: by 1.0 per Update
  bool m_bStarted;         // onStart has been sent for this run
  bool m_bDelayDone;       // the delay has passed
  bool m_bSwapOnRepeat;    // exchange begin and end at the end of each run
  int32_t m_FirstRepeat;   // -1: no repeat
  int32_t m_SecondRepeat;  // -1: no repeat
  Callback m_pfnComplete;  // called once at completion, then cleared
  Callback m_pfnStep;      // called on each Update, cleared at completion
};

}  // namespace noxfw
