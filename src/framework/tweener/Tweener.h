// Drives Real values over time along the easing curves. An owner embeds a tweener,
// adds params (the tweener keeps deep copies), listens for their events and steps
// the tweener once a frame with the frame's milliseconds. There is no global tween
// engine.
//
// Timing is kept as the game was tuned with it: the first Update after an idle
// period steps with an elapsed time of 0; only whole milliseconds of time and
// duration reach the curves; a run ends without writing its end value, so a driven
// value stops at its last stepped value (owners that need the exact end set it in
// onComplete); and after a tween completes the walk resumes at the list's second
// entry. Event delivery is also kept as it was: dispatchEvent makes one call per
// listener but every call goes to the first listener.
//
// Ownership: the tween copies are owned; listeners and property targets are
// borrowed and must outlive their use here.
#pragma once
#include <cstdint>
#include <list>

#include "core/Real.h"
#include "tweener/TweenerListener.h"
#include "tweener/TweenerParam.h"

namespace noxfw {

class Easing;

enum TweenerEvent { kTweenEventStart = 0, kTweenEventStep = 1, kTweenEventComplete = 2 };

class Tweener {
 public:
  Tweener();
  ~Tweener() = default;
  Tweener(const Tweener&) = delete;
  Tweener& operator=(const Tweener&) = delete;

  // Clears the caller's delay-done flag when it has a delay, zeroes its time, reads
  // each live property's begin value from its target, then appends a copy.
  void addTween(TweenerParam& param);
  // Removes the first tween that TweenerParam::SameTween matches with `param`.
  void removeTween(TweenerParam* param);
  // The same listener may be added twice.
  void addListener(TweenerListener* listener);
  void removeListener(TweenerListener* listener);
  // Accepts values up to 11. Update follows each param's own function index, so
  // this selector has no effect on stepping.
  void setFunction(short function);
  // Mode 0 easeIn, 1 easeOut, 2 easeInOut; any other mode, or a function outside
  // the table, gives 0.
  nox::Real runEquation(int function, int mode, nox::Real t, nox::Real b, nox::Real c, nox::Real d) const;
  // TweenerEvent: 0 onStart, 1 onStep, 2 onComplete.
  void dispatchEvent(TweenerParam* param, short type);
  void Update(unsigned long ms);

  int GetTweenCount() const { return m_Count; }
  bool IsIdle() const { return m_LastUpdate == 0; }
  short GetFunction() const { return m_Function; }

 private:
  typedef std::list<TweenerParam> TweenList;
  typedef std::list<TweenerListener*> ListenerList;

  // Returns true when the tween completed at the end of this run.
  bool EndRun(TweenerParam& param);
  void Complete(TweenerParam& param);
  void StepProperties(TweenerParam& param);

  short m_Function;
  const Easing* m_Easing[kTweenFunctionCount];  // index order of TweenerFunction
  uint32_t m_LastUpdate;                        // ms of the clock at the last Update; 0 when idle
  TweenList m_Tweens;                           // owned copies, in the order added
  TweenList::iterator m_TweenIt;
  ListenerList m_Listeners;  // borrowed
  ListenerList::iterator m_ListenerIt;
  int m_Count;       // live tweens
  uint32_t m_Clock;  // ms summed from Update while running
};

}  // namespace noxfw
