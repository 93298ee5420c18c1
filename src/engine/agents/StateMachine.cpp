#include "agents/StateMachine.h"

#include "agents/StateBase.h"

namespace nox {

StateMachine::~StateMachine() {
  for (auto& entry : m_States) delete entry.second;
}

void StateMachine::AddState(StateBase* state) {
  if (!state) return;
  StateBase*& slot = m_States[state->GetId()];
  StateBase* former = slot;
  slot = state;
  if (!former || former == state) return;
  if (m_pCurrent == former) m_pCurrent = state;
  if (m_pDefaultState == former) m_pDefaultState = state;
  delete former;
}

StateBase* StateMachine::RemoveState(unsigned long id) {
  const auto it = m_States.find(id);
  if (it == m_States.end()) return nullptr;
  StateBase* state = it->second;
  m_States.erase(it);
  if (m_pCurrent == state) m_pCurrent = nullptr;
  if (m_pDefaultState == state) m_pDefaultState = nullptr;
  return state;
}

void StateMachine::DeleteState(unsigned long id) {
  delete RemoveState(id);
}

StateBase* StateMachine::GetState(unsigned long id) const {
  const auto it = m_States.find(id);
  return it == m_States.end() ? nullptr : it->second;
}

StateBase* StateMachine::DispatchState(unsigned long id) const {
  StateBase* state = GetState(id);
  return state ? state : m_pDefaultState;
}

bool StateMachine::InitStateMachine(StateBase* state) {
  if (!state) return false;
  if (GetState(state->GetId()) != state && state != m_pDefaultState) AddState(state);
  m_pCurrent = state;
  state->OnEnter();
  return true;
}

bool StateMachine::InitStateMachine(unsigned long id) {
  StateBase* state = DispatchState(id);
  if (!state) return false;
  m_pCurrent = state;
  state->OnEnter();
  return true;
}

bool StateMachine::SwitchToState(unsigned long id) {
  if (m_pCurrent && m_pCurrent->GetId() == id) return true;
  StateBase* next = DispatchState(id);
  if (!next) return false;
  if (m_pCurrent) m_pCurrent->OnExit();
  m_pCurrent = next;
  next->OnEnter();
  return true;
}

void StateMachine::Update(unsigned long dt) {
  if (m_pCurrent) m_pCurrent->OnUpdate(dt);
}

unsigned long StateMachine::GetCurrentStateId() const {
  return m_pCurrent ? m_pCurrent->GetId() : 0xFFFFFFFFul;
}

}  // namespace nox
