// A fixed set of event listeners (no allocation, so posting is safe in any frame).
// Notify runs outside the lock on a snapshot, so a listener may unregister itself.
#pragma once
#include <mutex>

#include "ostra/EventMPI.h"

namespace Hollin {
namespace Ostra {

class ListenerList {
 public:
  static const int kCapacity = 32;

  tErrType Add(IEventListener* listener);
  tErrType Remove(IEventListener* listener);
  // Delivers `msg` to every listener whose group covers the message's service (the high
  // 16 bits of its type); kAllEvents covers every service.
  void Post(const IEventMessage& msg);
  void Clear();

 private:
  std::mutex m_Mutex;
  IEventListener* m_Listeners[kCapacity] = {};  // not owned
  int m_Count = 0;
};

// The listeners of CEventMPI, who hear every service.
ListenerList& GlobalListeners();

}  // namespace Ostra
}  // namespace Hollin
