#include "tweener/Tweener.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "tweener/Easing.h"

namespace noxfw {

using nox::Real;

Tweener::Tweener()
    : m_Function(0),
      m_Easing{&fLinear,  &fSine,  &fQuint, &fQuart,  &fQuad, &fExpo,
               &fElastic, &fCubic, &fCirc,  &fBounce, &fBack},
      m_LastUpdate(0),
      m_TweenIt(m_Tweens.end()),
      m_ListenerIt(m_Listeners.end()),
      m_Count(0),
      m_Clock(0) {}

void Tweener::addTween(TweenerParam& param) {
  if (param.m_Delay > Real()) param.m_bDelayDone = false;
  param.m_Time = Real();
  // A count beyond the vector would step past its end.
  param.m_PropertyCount = std::min(param.m_PropertyCount, static_cast<int>(param.m_Properties.size()));
  for (int i = 0; i < param.m_PropertyCount; ++i) {
    TweenerProperty& property = param.m_Properties[i];
    if (property.m_pTarget) property.m_Begin = *property.m_pTarget;
  }
  m_Tweens.push_back(param);
  m_Count = static_cast<int>(m_Tweens.size());
}

void Tweener::removeTween(TweenerParam* param) {
  for (TweenList::iterator it = m_Tweens.begin(); it != m_Tweens.end(); ++it) {
    if (param->SameTween(*it)) {
      // `param` may be the very entry erased here; it is not read afterwards.
      m_Tweens.erase(it);
      --m_Count;
      return;
    }
  }
}

void Tweener::addListener(TweenerListener* listener) {
  m_Listeners.push_back(listener);
}

void Tweener::removeListener(TweenerListener* listener) {
  ListenerList::iterator it = std::find(m_Listeners.begin(), m_Listeners.end(), listener);
  if (it == m_Listeners.end()) return;
  m_Listeners.erase(it);
  std::fputs("\n-Listener removed", stdout);
  m_ListenerIt = m_Listeners.begin();
}

void Tweener::setFunction(short function) {
  if (function <= 11) m_Function = function;
}

Real Tweener::runEquation(int function, int mode, Real t, Real b, Real c, Real d) const {
  if (function < 0 || function >= kTweenFunctionCount) return Real();
  const Easing* easing = m_Easing[function];
  switch (mode) {
    case kEaseIn:
      return easing->easeIn(t, b, c, d);
    case kEaseOut:
      return easing->easeOut(t, b, c, d);
    case kEaseInOut:
      return easing->easeInOut(t, b, c, d);
    default:
      return Real();
  }
}

void Tweener::dispatchEvent(TweenerParam* param, short type) {
  if (type < kTweenEventStart || type > kTweenEventComplete) {
    std::fputs("Event not found!!", stdout);
    return;
  }
  // One call per listener, each to the head of the list (see the header). A listener
  // that removes itself moves the head on; an emptied list ends the delivery.
  const size_t count = m_Listeners.size();
  m_ListenerIt = m_Listeners.begin();
  for (size_t i = 0; i < count && m_ListenerIt != m_Listeners.end(); ++i) {
    TweenerListener* listener = *m_ListenerIt;
    if (type == kTweenEventStart) {
      listener->onStart(*param);
    } else if (type == kTweenEventStep) {
      listener->onStep(*param);
    } else {
      listener->onComplete(*param);
    }
  }
}

void Tweener::StepProperties(TweenerParam& param) {
  // Only whole milliseconds (or frames) reach the curve.
  const Real t = Real(param.m_Time.ToInt());
  const Real d = Real(param.m_Duration.ToInt());
  const int count = std::min(param.m_PropertyCount, static_cast<int>(param.m_Properties.size()));
  for (int i = 0; i < count; ++i) {
    TweenerProperty& property = param.m_Properties[i];
    if (!property.m_pTarget) continue;
    *property.m_pTarget = runEquation(param.m_Function, param.m_Mode, t, property.m_Begin,
                                      property.m_End - property.m_Begin, d);
  }
}

bool Tweener::EndRun(TweenerParam& param) {
  int32_t& first = param.m_FirstRepeat;
  int32_t& second = param.m_SecondRepeat;
  if (first < 0 && second < 0) return true;

  param.m_Time = Real();
  param.m_bStarted = false;
  const int count = std::min(param.m_PropertyCount, static_cast<int>(param.m_Properties.size()));
  for (int i = 0; i < count; ++i) {
    TweenerProperty& property = param.m_Properties[i];
    if (param.m_bSwapOnRepeat) std::swap(property.m_Begin, property.m_End);
    if (property.m_pTarget) *property.m_pTarget = property.m_Begin;
  }
  // One of the two is at least 0 here, so neither decrement can overflow.
  if (first < second) {
    --second;
  } else {
    --first;
  }
  return first < 0;
}

void Tweener::Complete(TweenerParam& param) {
  dispatchEvent(&param, kTweenEventComplete);
  if (param.m_pfnComplete) param.m_pfnComplete();
  param.m_pfnComplete = nullptr;
  param.m_pfnStep = nullptr;
  removeTween(&param);
  m_TweenIt = m_Tweens.begin();
  if (m_Count == 0) {
    m_Clock = 0;
    m_LastUpdate = 0;
  }
}

void Tweener::Update(unsigned long ms) {
  m_Clock += static_cast<uint32_t>(ms);
  if (m_LastUpdate == 0) m_LastUpdate = m_Clock;
  const Real elapsed = Real(m_Clock - m_LastUpdate);

  m_Count = static_cast<int>(m_Tweens.size());
  m_TweenIt = m_Tweens.begin();
  while (m_TweenIt != m_Tweens.end()) {
    TweenerParam& param = *m_TweenIt;
    if (!param.m_bStarted) {
      dispatchEvent(&param, kTweenEventStart);
      param.m_bStarted = true;
    }
    dispatchEvent(&param, kTweenEventStep);
    if (param.m_pfnStep) param.m_pfnStep();
    param.m_Time += param.m_bTimeBased ? elapsed : Real(1);

    if (!param.m_bDelayDone) {
      // The frame that ends the delay restarts the clock of the run and writes nothing.
      if (param.m_Time > param.m_Delay) {
        param.m_bDelayDone = true;
        param.m_Time = Real();
      }
      ++m_TweenIt;
      continue;
    }

    if (param.m_Duration.ToInt() <= param.m_Time.ToInt() || param.m_PropertyCount < 1) {
      if (EndRun(param)) {
        // Complete leaves the iterator at the head, so the walk goes on at the
        // second entry: the head is passed over for this frame.
        Complete(param);
        if (m_TweenIt != m_Tweens.end()) ++m_TweenIt;
        continue;
      }
    } else if (param.m_Time < param.m_Duration) {
      StepProperties(param);
    }
    ++m_TweenIt;
  }

  if (m_LastUpdate != 0) m_LastUpdate = m_Clock;
}

}  // namespace noxfw
