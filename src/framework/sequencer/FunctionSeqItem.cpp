#include "sequencer/FunctionSeqItem.h"

namespace noxfw {

void ConditionalFunctionSeqItem::Initialize() {
  if (m_Condition()) {
    m_IfTrue();
  } else {
    m_IfFalse();
  }
}

}  // namespace noxfw
