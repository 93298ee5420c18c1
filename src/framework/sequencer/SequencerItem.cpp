#include "sequencer/SequencerItem.h"

namespace noxfw {

SequencerItem::~SequencerItem() {
  if (m_bStarted) {
    m_bStarted = false;
    SequencerItem::Terminate();
  }
}

}  // namespace noxfw
