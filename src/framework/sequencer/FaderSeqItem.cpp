#include "sequencer/FaderSeqItem.h"

#include "menu/ScreenTransition.h"

namespace noxfw {

void FaderSeqItem::Initialize() {
  ScreenTransition* transition = ScreenTransition::sm_pInstance;
  if (!transition) return;
  if (m_bFadeIn) {
    transition->FadeIn(m_DurationMs);
  } else {
    transition->FadeOut(m_DurationMs);
  }
}

int FaderSeqItem::Update(unsigned long ms) {
  ScreenTransition* transition = ScreenTransition::sm_pInstance;
  return transition && !transition->IsTransitionComplete();
}

}  // namespace noxfw
