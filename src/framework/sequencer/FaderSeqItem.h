// Fades the whole screen through the screen transition and waits for the fade to end.
// Without a transition (tests, a title that has none) the step ends at once.
#pragma once
#include <cstdint>

#include "sequencer/SequencerItem.h"

namespace noxfw {

class FaderSeqItem : public SequencerItem {
 public:
  FaderSeqItem(unsigned short ms, bool fadeIn, unsigned long id = 0)
      : SequencerItem(id), m_DurationMs(ms), m_bFadeIn(fadeIn) {}

  void Initialize() override;
  int Update(unsigned long ms) override;

 private:
  uint16_t m_DurationMs;  // ms
  bool m_bFadeIn;
};

}  // namespace noxfw
