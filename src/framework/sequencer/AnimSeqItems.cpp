#include "sequencer/AnimSeqItems.h"

#include "graphics/TileAnimation.h"

namespace noxfw {

void PlayAnimSequenceSeqItem::Initialize() {
  if (m_pAnimation) m_pAnimation->Play(m_Sequence, static_cast<int>(m_Frame));
}

int PlayAnimSequenceSeqItem::Update(unsigned long ms) {
  if (m_bDontWait || !m_pAnimation) return 0;
  return !m_pAnimation->IsAnimEnded();
}

void HoldAnimSequenceSeqItem::Initialize() {
  if (m_pAnimation) m_pAnimation->Hold(m_Sequence, static_cast<int>(m_Frame), false, false);
}

int WaitOnAnimSeqItem::Update(unsigned long ms) {
  return m_pAnimation ? !m_pAnimation->IsAnimEnded() : 0;
}

void SetTileAnimVisibleSeqItem::Initialize() {
  if (m_pAnimation) m_pAnimation->SetVisible(m_bVisible);
}

}  // namespace noxfw
