// Waits a number of milliseconds: finishes on the first frame at which the summed
// frame times reach the total (exactly the total finishes; 0 finishes at once).
#pragma once
#include <cstdint>

#include "sequencer/SequencerItem.h"

namespace noxfw {

class WaitSeqItem : public SequencerItem {
 public:
  explicit WaitSeqItem(unsigned long totalMs, unsigned long id = 0)
      : SequencerItem(id), m_ElapsedMs(0), m_TotalMs(static_cast<uint32_t>(totalMs)) {}

  void Initialize() override { m_ElapsedMs = 0; }
  int Update(unsigned long ms) override {
    m_ElapsedMs += static_cast<uint32_t>(ms);
    return m_ElapsedMs < m_TotalMs;
  }

 private:
  uint32_t m_ElapsedMs;  // ms since Initialize
  uint32_t m_TotalMs;    // ms
};

}  // namespace noxfw
