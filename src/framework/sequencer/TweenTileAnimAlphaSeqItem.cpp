#include "sequencer/TweenTileAnimAlphaSeqItem.h"

#include "graphics/TileAnimation.h"

namespace noxfw {

TweenTileAnimAlphaSeqItem::TweenTileAnimAlphaSeqItem(nox::TileAnimation* animation, nox::Real startAlpha,
                                                     nox::Real endAlpha, unsigned long durationMs,
                                                     unsigned long id)
    : SequencerItem(id),
      m_pAnimation(animation),
      m_StartAlpha(startAlpha),
      m_EndAlpha(endAlpha),
      m_Current(startAlpha),
      m_Param(nox::Real(durationMs), kTweenLinear, kEaseIn),
      m_bTweenStarted(false),
      m_bTweenCompleted(false) {}

void TweenTileAnimAlphaSeqItem::Initialize() {
  m_Tweener.addListener(this);
  m_Current = m_StartAlpha;
  m_Param.AddProperty(&m_Current, m_EndAlpha, m_StartAlpha);
  m_Tweener.setFunction(kTweenLinear);
  m_Tweener.addTween(m_Param);
  if (m_pAnimation) m_pAnimation->SetAlpha(m_StartAlpha);
}

void TweenTileAnimAlphaSeqItem::onStart(TweenerParam& param) {
  // The tweener passes its own copy: recognise ours by value.
  if (m_Param.SameTween(param)) m_bTweenStarted = true;
}

void TweenTileAnimAlphaSeqItem::onComplete(TweenerParam& param) {
  m_bTweenCompleted = true;
}

int TweenTileAnimAlphaSeqItem::Update(unsigned long ms) {
  m_Tweener.Update(ms);
  if (m_bTweenStarted && !m_bTweenCompleted) {
    if (m_pAnimation) m_pAnimation->SetAlpha(m_Current);
    return 1;
  }
  if (m_bTweenStarted) return 0;
  return !m_bTweenCompleted;
}

}  // namespace noxfw
