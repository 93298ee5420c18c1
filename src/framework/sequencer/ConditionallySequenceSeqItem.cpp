#include "sequencer/ConditionallySequenceSeqItem.h"

namespace noxfw {

ConditionallySequenceSeqItem::~ConditionallySequenceSeqItem() {
  if (!m_bChosen) {
    delete m_pIfTrue;
    delete m_pIfFalse;
  }
}

void ConditionallySequenceSeqItem::Initialize() {
  const bool condition = m_Condition();
  SequencerItem* chosen = condition ? m_pIfTrue : m_pIfFalse;
  if (!chosen) return;
  SequencerItem* other = condition ? m_pIfFalse : m_pIfTrue;
  m_Inner.AppendItem(chosen);
  m_bChosen = true;
  delete other;
  m_pIfTrue = nullptr;
  m_pIfFalse = nullptr;
}

int ConditionallySequenceSeqItem::Update(unsigned long ms) {
  m_Inner.Update(ms);
  return !m_Inner.IsEmpty();
}

}  // namespace noxfw
