// Observer of a Tweener. The param passed is the tweener's own copy, so a listener
// identifies its tween by value (TweenerParam::SameTween), not by address. The
// tweener holds listeners as borrowed pointers and never tells them of its end.
#pragma once

namespace noxfw {

class TweenerParam;

class TweenerListener {
 public:
  virtual ~TweenerListener() = default;
  virtual void onStart(TweenerParam& param) {}
  virtual void onStep(TweenerParam& param) {}
  virtual void onComplete(TweenerParam& param) {}
};

}  // namespace noxfw
