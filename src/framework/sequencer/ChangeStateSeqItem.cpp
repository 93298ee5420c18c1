#include "sequencer/ChangeStateSeqItem.h"

#include "learning/QuestionManager.h"

namespace noxfw {

void ChangeStateSeqItem::Initialize() {
  if (m_pManager) m_pManager->SetState(static_cast<QuestionManager::eState>(m_State));
}

}  // namespace noxfw
