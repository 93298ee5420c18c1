// Callbacks of a hull. A CollisionNotifier is a node of an intrusive list on the
// hull (added at the head, so the last added runs first) that calls a function with
// an object and the hull's contact record; the node belongs to whoever links it.
// A ResolveHandler may veto a contact before anything happens: returning false
// stops both the response and the notifiers (one-way platforms use this).
//
// The adapters turn a member function into the plain function that a node holds:
//   CollisionNotifier n(this, &HullCallback<Walker, &Walker::OnHit>);
#pragma once
#include "physics/CollisionInfo.h"

namespace nox {

typedef void (*CollisionNotifyFunction)(void* object, const CollisionInfo& info);
typedef bool (*ResolveHandlerFunction)(void* object, const CollisionInfo& info);
typedef void (*CollisionRigFunction)(void* owner, int index, const CollisionInfo& info);

struct CollisionNotifier {
  CollisionNotifier() = default;
  CollisionNotifier(void* object, CollisionNotifyFunction function)
      : m_pObject(object), m_pFunction(function) {}

  void* m_pObject = nullptr;  // borrowed; a node without one is skipped
  CollisionNotifyFunction m_pFunction = nullptr;
  CollisionNotifier* m_pNext = nullptr;
};

struct ResolveHandler {
  ResolveHandler() = default;
  ResolveHandler(void* object, ResolveHandlerFunction function) : m_pObject(object), m_pFunction(function) {}

  void* m_pObject = nullptr;  // borrowed
  ResolveHandlerFunction m_pFunction = nullptr;
};

template <class T, void (T::*Method)(const CollisionInfo&)>
void HullCallback(void* object, const CollisionInfo& info) {
  (static_cast<T*>(object)->*Method)(info);
}

template <class T, bool (T::*Method)(const CollisionInfo&)>
bool ResolveHandlerCallback(void* object, const CollisionInfo& info) {
  return (static_cast<T*>(object)->*Method)(info);
}

// For a CollisionRig's owner: the index tells which of the rig's hulls was touched.
template <class T, void (T::*Method)(int, const CollisionInfo&)>
void CollisionRigCallback(void* owner, int index, const CollisionInfo& info) {
  (static_cast<T*>(owner)->*Method)(index, info);
}

}  // namespace nox
