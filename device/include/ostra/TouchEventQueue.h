// Touch events in arrival order. The platform appends from its input thread;
// the game reads and removes from the front on its own thread.
#pragma once
#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {

struct tTouchData {
  U16 touchState;  // 0 released, otherwise pressure 1..100
  S16 x;           // device pixels
  S16 y;
  U32 timeMS;      // kernel time of the event
};

class CTouchEventQueue {
 public:
  bool IsEmpty() const;
  // Copies the oldest event into `out`; false when the queue is empty.
  bool Front(tTouchData& out) const;
  void PopFront();
  void Clear();
  // Platform side: appends an event (thread-safe).
  void Push(const tTouchData& data);
};

}  // namespace Ostra
}  // namespace Hollin
