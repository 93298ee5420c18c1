#include "input/ListenerList.h"

namespace Hollin {
namespace Ostra {
namespace {

bool Covers(tEventType group, tEventType type) {
  return group == kAllEvents || (group & 0xFFFF0000u) == (type & 0xFFFF0000u);
}

}  // namespace

tErrType ListenerList::Add(IEventListener* listener) {
  if (!listener) return kErr;
  std::lock_guard<std::mutex> lock(m_Mutex);
  for (int i = 0; i < m_Count; ++i) {
    if (m_Listeners[i] == listener) return kNoErr;
  }
  if (m_Count == kCapacity) return kErr;
  m_Listeners[m_Count++] = listener;
  return kNoErr;
}

tErrType ListenerList::Remove(IEventListener* listener) {
  std::lock_guard<std::mutex> lock(m_Mutex);
  for (int i = 0; i < m_Count; ++i) {
    if (m_Listeners[i] == listener) {
      for (int j = i + 1; j < m_Count; ++j) m_Listeners[j - 1] = m_Listeners[j];
      --m_Count;
      return kNoErr;
    }
  }
  return kErr;
}

void ListenerList::Post(const IEventMessage& msg) {
  IEventListener* snapshot[kCapacity];
  int count;
  {
    std::lock_guard<std::mutex> lock(m_Mutex);
    count = m_Count;
    for (int i = 0; i < count; ++i) snapshot[i] = m_Listeners[i];
  }
  for (int i = 0; i < count; ++i) {
    if (Covers(snapshot[i]->GetEventGroup(), msg.GetEventType())) snapshot[i]->Notify(msg);
  }
}

void ListenerList::Clear() {
  std::lock_guard<std::mutex> lock(m_Mutex);
  m_Count = 0;
}

ListenerList& GlobalListeners() {
  static ListenerList s_List;
  return s_List;
}

tErrType CEventMPI::RegisterEventListener(IEventListener* listener) {
  return GlobalListeners().Add(listener);
}

tErrType CEventMPI::UnregisterEventListener(IEventListener* listener) {
  return GlobalListeners().Remove(listener);
}

tErrType CEventMPI::PostEvent(const IEventMessage& msg) {
  GlobalListeners().Post(msg);
  return kNoErr;
}

}  // namespace Ostra
}  // namespace Hollin
