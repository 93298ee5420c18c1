// A list of borrowed listener pointers and the delivery rule. Listeners are called in
// the order they were added. Delivery walks a private copy of the list, so that a
// listener may add or remove listeners (itself included) while it runs: one added
// during a delivery is first called on the next event; one removed during a delivery
// is still called if it had not yet been reached, and must therefore stay alive
// until the delivery ends.
#pragma once
#include <algorithm>
#include <list>
#include "core/EventListener.h"

namespace nox {

template <class T>
class EventSource : public std::list<EventListener<T>*> {
 public:
  typedef EventListener<T> Listener;

  // Appends; the same listener added twice is called twice.
  void AddEventListener(Listener* listener) { this->push_back(listener); }

  // Unlinks the first entry holding this pointer; an absent listener is ignored.
  void RemoveEventListener(Listener* listener) {
    auto it = std::find(this->begin(), this->end(), listener);
    if (it != this->end()) this->erase(it);
  }

  bool HasEventListener(const Listener* listener) const {
    return std::find(this->begin(), this->end(), listener) != this->end();
  }

  void FireEvent(T* source, const EventData* data) const {
    // One node per listener; events are rare and lists short.
    std::list<Listener*> snapshot(this->begin(), this->end());
    for (Listener* listener : snapshot) listener->OnEventOccurred(source, data);
  }
};

}  // namespace nox
