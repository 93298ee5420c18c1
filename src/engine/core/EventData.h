// The small record that travels with an event. What the type word means and what
// the payload points at is documented by each event source; the record itself is
// owned by the sender and lives only for the delivery.
#pragma once
#include <cstdint>

namespace nox {

struct EventData {
  uint32_t m_Type = 0;            // kind of event, numbered by the source
  uint32_t m_Param = 0;           // a small value, if the source has one
  const void* m_pData = nullptr;  // source-specific payload, borrowed
};

}  // namespace nox
