// The audio module's own thread and what it does: deliver done messages. The mixer and
// StopAudio queue a message (to a sound's own listener, or to whoever is the default
// listener when it is delivered); Flush wakes the thread, and with `wait` returns only
// after everything queued before the call went out, which is how a headless run gets its
// messages at a fixed frame.
//
// The thread starts with the first Flush and ends with Stop (or the destructor).
// Listeners are called one at a time under the delivery lock, so that after
// SetDefaultListener returns the previous listener is never called again.
#pragma once
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "ostra/AudioMPI.h"

namespace Hollin {
namespace Ostra {

class DoneMessages {
 public:
  DoneMessages() = default;
  ~DoneMessages() { Stop(); }
  DoneMessages(const DoneMessages&) = delete;
  DoneMessages& operator=(const DoneMessages&) = delete;

  // Any thread; no delivery until the next Flush.
  void Push(const tAudioMsgAudioCompleted& message, IEventListener* listener);
  void Flush(bool wait);
  // Delivers what is queued, then ends the thread.
  void Stop();

  void SetDefaultListener(IEventListener* listener);
  IEventListener* GetDefaultListener() const;

 private:
  struct Entry {
    tAudioMsgAudioCompleted message;
    IEventListener* listener;  // borrowed; null: the default listener
  };
  void Run();
  void StartLocked();

  mutable std::mutex m_QueueLock;  // guards everything below but m_DeliveryLock
  std::condition_variable m_Wake;
  std::condition_variable m_Delivered;
  std::deque<Entry> m_Queue;
  U64 m_PushedCount = 0;
  U64 m_ReleasedCount = 0;   // pushed messages handed to the thread by Flush
  U64 m_DeliveredCount = 0;  // of those, done
  bool m_bRunning = false;
  bool m_bStopping = false;
  std::thread m_Thread;

  // Held while a listener runs; recursive, as a listener may change the default listener.
  std::recursive_mutex m_DeliveryLock;
  std::atomic<IEventListener*> m_pDefaultListener{nullptr};  // borrowed; set under m_DeliveryLock
};

}  // namespace Ostra
}  // namespace Hollin
