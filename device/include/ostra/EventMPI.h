// Event delivery: services post messages to registered listeners.
#pragma once
#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {

class IEventMessage {
 public:
  explicit IEventMessage(tEventType type) : m_Type(type) {}
  virtual ~IEventMessage() {}
  tEventType GetEventType() const { return m_Type; }

 private:
  tEventType m_Type;
};

class IEventListener {
 public:
  explicit IEventListener(tEventType group = kAllEvents) : m_Group(group) {}
  virtual ~IEventListener() {}
  // Returns kNoErr when the message was handled.
  virtual tErrType Notify(const IEventMessage& msg) = 0;
  tEventType GetEventGroup() const { return m_Group; }

 private:
  tEventType m_Group;
};

class CEventMPI {
 public:
  tErrType RegisterEventListener(IEventListener* listener);
  tErrType UnregisterEventListener(IEventListener* listener);
  // Delivers a message to every listener whose group matches the message's service.
  tErrType PostEvent(const IEventMessage& msg);
};

}  // namespace Ostra
}  // namespace Hollin
