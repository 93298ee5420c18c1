// A set of states by id with one current state. Switching is immediate, not
// queued: the current state's OnExit, then the new state's OnEnter, so a state that
// switches inside its OnUpdate runs the rest of that OnUpdate after the new state
// has entered. Switching to the current id does nothing. An id the machine does not
// hold is answered by the default state, if one is set.
//
// The machine owns the states in its table and deletes them with itself; a state
// taken out by RemoveState belongs to the caller again. The default state is
// borrowed: usually it is one of the table's. Used as a member or a base of the
// object whose behaviour the states are. Switching and updating allocate nothing.
//
// Bad calls do no harm: switching to an unknown id with no default state, or
// updating with no current state, changes nothing.
#pragma once
#include <map>

#include "core/NoCopy.h"

namespace nox {

class StateBase;

class StateMachine : public NoCopy {
 public:
  StateMachine() = default;
  // Deletes every state in the table.
  virtual ~StateMachine();

  // Stores `state` under its id. A former state of that id is deleted; if it was
  // current or the default, the new state takes its place there without OnExit or
  // OnEnter. Null is ignored.
  void AddState(StateBase* state);
  // The same as AddState: a later state of an id replaces the earlier one.
  void AddStateIfAbsent(StateBase* state) { AddState(state); }
  // Takes the state out of the table and returns it, or null. A current or default
  // state taken out leaves the machine without one.
  StateBase* RemoveState(unsigned long id);
  // RemoveState, and deletes it.
  void DeleteState(unsigned long id);
  // Null when absent.
  StateBase* GetState(unsigned long id) const;
  bool ContainsState(unsigned long id) const { return GetState(id) != nullptr; }
  // The state of `id`, or the default state if there is none.
  StateBase* DispatchState(unsigned long id) const;

  void SetDefaultState(StateBase* state) { m_pDefaultState = state; }
  StateBase* GetDefaultState() const { return m_pDefaultState; }

  // Makes the state current and calls its OnEnter; a former state gets no OnExit.
  // The pointer form adds a state that is not in the table. False (nothing done)
  // for null or an id nothing answers.
  bool InitStateMachine(StateBase* state);
  bool InitStateMachine(unsigned long id);
  bool ExecuteStateOnEnter(StateBase* state) { return InitStateMachine(state); }
  bool ExecuteStateOnEnter(unsigned long id) { return InitStateMachine(id); }

  // The current state's OnExit, then the new state's OnEnter. True when the machine
  // is in the state asked for (or its stand-in) afterwards.
  bool SwitchToState(unsigned long id);
  // The current state's OnUpdate.
  void Update(unsigned long dt);

  StateBase* GetCurrentState() const { return m_pCurrent; }
  // The current state's id; 0xFFFFFFFF with none.
  unsigned long GetCurrentStateId() const;
  unsigned long GetStateCount() const { return static_cast<unsigned long>(m_States.size()); }

 private:
  StateBase* m_pCurrent = nullptr;
  std::map<unsigned long, StateBase*> m_States;  // owned
  StateBase* m_pDefaultState = nullptr;          // borrowed
};

}  // namespace nox
