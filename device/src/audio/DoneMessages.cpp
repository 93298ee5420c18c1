#include "audio/DoneMessages.h"

namespace Hollin {
namespace Ostra {

void DoneMessages::Push(const tAudioMsgAudioCompleted& message, IEventListener* listener) {
  std::lock_guard<std::mutex> lock(m_QueueLock);
  m_Queue.push_back(Entry{message, listener});
  ++m_PushedCount;
}

void DoneMessages::StartLocked() {
  m_bRunning = true;
  m_bStopping = false;
  m_Thread = std::thread(&DoneMessages::Run, this);
}

void DoneMessages::Flush(bool wait) {
  std::unique_lock<std::mutex> lock(m_QueueLock);
  m_ReleasedCount = m_PushedCount;
  if (m_ReleasedCount == m_DeliveredCount) return;
  if (!m_bRunning) StartLocked();
  m_Wake.notify_one();
  if (!wait || std::this_thread::get_id() == m_Thread.get_id()) return;
  const U64 target = m_ReleasedCount;
  m_Delivered.wait(lock, [&] { return m_DeliveredCount >= target; });
}

void DoneMessages::Stop() {
  std::unique_lock<std::mutex> lock(m_QueueLock);
  m_ReleasedCount = m_PushedCount;
  if (!m_bRunning) {
    if (m_ReleasedCount == m_DeliveredCount) return;
    StartLocked();
  }
  m_bStopping = true;
  m_Wake.notify_one();
  lock.unlock();
  if (m_Thread.get_id() != std::this_thread::get_id()) m_Thread.join();
  lock.lock();
  m_bRunning = false;
  m_bStopping = false;
}

void DoneMessages::SetDefaultListener(IEventListener* listener) {
  std::lock_guard<std::recursive_mutex> delivery(m_DeliveryLock);
  m_pDefaultListener = listener;
}

IEventListener* DoneMessages::GetDefaultListener() const {
  return m_pDefaultListener;
}

void DoneMessages::Run() {
  std::unique_lock<std::mutex> lock(m_QueueLock);
  for (;;) {
    m_Wake.wait(lock, [&] { return m_bStopping || m_DeliveredCount < m_ReleasedCount; });
    if (m_DeliveredCount == m_ReleasedCount) break;  // stopping, and everything is out
    Entry entry = m_Queue.front();
    m_Queue.pop_front();
    lock.unlock();
    {
      std::lock_guard<std::recursive_mutex> delivery(m_DeliveryLock);
      IEventListener* listener = entry.listener ? entry.listener : m_pDefaultListener.load();
      if (listener) listener->Notify(CAudioEventMessage(entry.message));
    }
    lock.lock();
    ++m_DeliveredCount;
    m_Delivered.notify_all();
  }
}

}  // namespace Ostra
}  // namespace Hollin
