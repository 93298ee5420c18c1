// Fades a tile animation's alpha from a start to an end value over a duration, on
// a tweener of its own (linear). The animation shows the start alpha from the
// step's first frame and each stepped value after it; like every tween, the fade
// ends on its last stepped value, just short of the end alpha.
//
// The animation is borrowed and must outlive the step.
#pragma once
#include "core/Real.h"
#include "sequencer/SequencerItem.h"
#include "tweener/Tweener.h"
#include "tweener/TweenerListener.h"
#include "tweener/TweenerParam.h"

namespace nox {
class TileAnimation;
}

namespace noxfw {

class TweenTileAnimAlphaSeqItem : public SequencerItem, public TweenerListener {
 public:
  // Alphas from 0 to 1.0; `durationMs` in milliseconds.
  TweenTileAnimAlphaSeqItem(nox::TileAnimation* animation, nox::Real startAlpha, nox::Real endAlpha,
                            unsigned long durationMs = 500, unsigned long id = 0);

  void Initialize() override;
  int Update(unsigned long ms) override;

  void onStart(TweenerParam& param) override;
  void onComplete(TweenerParam& param) override;

 private:
  nox::TileAnimation* m_pAnimation;  // borrowed
  nox::Real m_StartAlpha;
  nox::Real m_EndAlpha;
  nox::Real m_Current;  // driven by the tweener
  Tweener m_Tweener;
  TweenerParam m_Param;
  bool m_bTweenStarted;
  bool m_bTweenCompleted;
};

}  // namespace noxfw
