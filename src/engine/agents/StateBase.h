// One state of a StateMachine: the state pattern on which characters, inventories
// and windows build their behaviour. A state knows its owner (the object whose
// behaviour it is, borrowed) and its id, a NameHash or a small number, and keeps a
// list of the ids that may follow it. The machine never consults that list: callers
// that care ask IsValidTransition before they switch.
//
// OnEnter, OnExit and OnUpdate do nothing here; subclasses fill them in.
#pragma once
#include <vector>

#include "core/RTTIBase.h"

namespace nox {

class StateBase : public RTTIBase {
  NOX_RTTI_DECLARE

 public:
  StateBase(RTTIBase& owner, unsigned long id) : m_Owner(owner), m_Id(id) {}
  ~StateBase() override = default;
  StateBase(const StateBase&) = delete;
  StateBase& operator=(const StateBase&) = delete;

  virtual void OnEnter() {}
  virtual void OnExit() {}
  virtual void OnUpdate(unsigned long dt) {}  // ms
  // Appends, even an id that is listed already.
  virtual void AddTransition(unsigned long id);
  // Takes out the first entry of `id`, if any.
  virtual void RemoveTransition(unsigned long id);
  virtual bool IsValidTransition(unsigned long id) const;
  virtual void ClearAllTransitions() { m_Transitions.clear(); }

  RTTIBase& GetOwner() const { return m_Owner; }
  unsigned long GetId() const { return m_Id; }
  const std::vector<unsigned long>& GetTransitions() const { return m_Transitions; }

 private:
  RTTIBase& m_Owner;  // borrowed
  unsigned long m_Id;
  std::vector<unsigned long> m_Transitions;  // ids that may follow, in order of adding
};

}  // namespace nox
