// Typed observer: implemented by whoever wants to hear the events of a
// nox::EventSource<T>. The source holds a borrowed pointer to the listener; a
// listener must be removed from every source before it is destroyed.
#pragma once
#include "core/EventData.h"

namespace nox {

template <class T>
class EventListener {
 public:
  virtual void OnEventOccurred(T* source, const EventData* data) = 0;

 protected:
  ~EventListener() = default;
};

}  // namespace nox
