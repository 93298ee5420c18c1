// Steps that call a member function through a plain function pointer and an object
// pointer, for scripts that call back into their owner. The pointers are made by
// ClassFunc / ClassFuncWithParam, which cast the void* back to the class:
//
//   new ClassFuncSeqItem(&ClassFunc<Scene, &Scene::OpenDoor>, this);
//   new ClassFuncSeqItemWithParam<int>(&ClassFuncWithParam<Scene, int, &Scene::SetScore>, this, 3);
//   new ClassCheckBoolFuncSeqItem(&ClassFunc<Scene, &Scene::IsDoorOpen>, this, true);
//
// The call happens in Update, which returns at once, so each step costs one frame.
// The object is borrowed and must outlive the step.
#pragma once
#include "sequencer/SequencerItem.h"

namespace noxfw {

template <class C, void (C::*Method)()>
void ClassFunc(void* object) {
  (static_cast<C*>(object)->*Method)();
}
template <class C, void (C::*Method)() const>
void ClassFunc(void* object) {
  (static_cast<const C*>(object)->*Method)();
}
template <class C, bool (C::*Method)()>
bool ClassFunc(void* object) {
  return (static_cast<C*>(object)->*Method)();
}
template <class C, bool (C::*Method)() const>
bool ClassFunc(void* object) {
  return (static_cast<const C*>(object)->*Method)();
}

template <class C, class T, void (C::*Method)(T)>
void ClassFuncWithParam(void* object, T argument) {
  (static_cast<C*>(object)->*Method)(argument);
}

class ClassFuncSeqItem : public SequencerItem {
 public:
  typedef void (*Function)(void*);
  ClassFuncSeqItem(Function function, void* object, unsigned long id = 0)
      : SequencerItem(id), m_pFunction(function), m_pObject(object) {}

  int Update(unsigned long ms) override {
    m_pFunction(m_pObject);
    return 0;
  }

 private:
  Function m_pFunction;
  void* m_pObject;  // borrowed
};

// T may be a reference type; otherwise the item keeps its own copy of the argument.
template <class T>
class ClassFuncSeqItemWithParam : public SequencerItem {
 public:
  typedef void (*Function)(void*, T);
  ClassFuncSeqItemWithParam(Function function, void* object, T argument, unsigned long id = 0)
      : SequencerItem(id), m_pFunction(function), m_pObject(object), m_Argument(argument) {}

  int Update(unsigned long ms) override {
    m_pFunction(m_pObject, m_Argument);
    return 0;
  }

 private:
  Function m_pFunction;
  void* m_pObject;  // borrowed
  T m_Argument;
};

// Calls the function each frame. With wait-for-true it runs until the function
// returns true; otherwise until it returns false.
class ClassCheckBoolFuncSeqItem : public SequencerItem {
 public:
  typedef bool (*Function)(void*);
  ClassCheckBoolFuncSeqItem(Function function, void* object, bool waitForTrue, unsigned long id = 0)
      : SequencerItem(id), m_pFunction(function), m_pObject(object), m_bWaitForTrue(waitForTrue) {}

  int Update(unsigned long ms) override {
    const bool result = m_pFunction(m_pObject);
    return m_bWaitForTrue ? !result : result;
  }

 private:
  Function m_pFunction;
  void* m_pObject;  // borrowed
  bool m_bWaitForTrue;
};

}  // namespace noxfw
