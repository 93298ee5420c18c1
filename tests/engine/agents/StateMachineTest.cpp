// The state machine: immediate switches and their order (also from inside an
// update), no re-entry, the default state, replacing and taking states out, and the
// transition lists that callers consult.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "agents/StateBase.h"
#include "agents/StateMachine.h"

namespace {

using nox::StateBase;
using nox::StateMachine;

const unsigned long kIdle = 1;
const unsigned long kRun = 2;
const unsigned long kJump = nox::HashString("Jump");

struct Log {
  std::vector<std::string> calls;
};

// Writes "enter Idle", "exit Idle", "update Idle", "delete Idle" into the log.
class LoggingState : public StateBase {
 public:
  LoggingState(nox::RTTIBase& owner, unsigned long id, const char* name, Log& log)
      : StateBase(owner, id), m_Name(name), m_Log(log) {}
  ~LoggingState() override { m_Log.calls.push_back("delete " + m_Name); }
  void OnEnter() override { m_Log.calls.push_back("enter " + m_Name); }
  void OnExit() override { m_Log.calls.push_back("exit " + m_Name); }
  void OnUpdate(unsigned long dt) override {
    m_Log.calls.push_back("update " + m_Name);
    if (m_OnUpdate) m_OnUpdate();
    m_Log.calls.push_back("updated " + m_Name);
  }
  std::function<void()> m_OnUpdate;

 private:
  std::string m_Name;
  Log& m_Log;
};

class StateMachineTest : public ::testing::Test {
 protected:
  LoggingState* Add(unsigned long id, const char* name) {
    LoggingState* state = new LoggingState(m_Owner, id, name, m_Log);
    m_Machine.AddState(state);
    return state;
  }
  std::vector<std::string> Take() {
    std::vector<std::string> calls;
    calls.swap(m_Log.calls);
    return calls;
  }

  using Calls = std::vector<std::string>;
  nox::RTTIBase m_Owner;
  Log m_Log;
  StateMachine m_Machine;
};

TEST_F(StateMachineTest, ASwitchExitsThenEntersAtOnceAndTheCurrentIdIsNoSwitch) {
  Add(kIdle, "Idle");
  Add(kRun, "Run");
  EXPECT_TRUE(m_Machine.InitStateMachine(kIdle));
  EXPECT_EQ(Take(), Calls{"enter Idle"});
  EXPECT_TRUE(m_Machine.SwitchToState(kRun));
  EXPECT_EQ(Take(), (Calls{"exit Idle", "enter Run"}));
  EXPECT_EQ(m_Machine.GetCurrentStateId(), kRun);
  EXPECT_TRUE(m_Machine.SwitchToState(kRun));
  EXPECT_TRUE(Take().empty());
  m_Machine.Update(16);
  EXPECT_EQ(Take(), (Calls{"update Run", "updated Run"}));
}

TEST_F(StateMachineTest, InitialisingARunningMachineEntersWithoutAnExit) {
  Add(kIdle, "Idle");
  Add(kRun, "Run");
  m_Machine.InitStateMachine(kIdle);
  m_Machine.InitStateMachine(kRun);
  EXPECT_EQ(Take(), (Calls{"enter Idle", "enter Run"}));
  m_Machine.ExecuteStateOnEnter(kRun);  // the same operation, and it re-enters
  EXPECT_EQ(Take(), Calls{"enter Run"});
  // The pointer form takes a state the machine did not have into its table.
  LoggingState* jump = new LoggingState(m_Owner, kJump, "Jump", m_Log);
  EXPECT_TRUE(m_Machine.InitStateMachine(jump));
  EXPECT_EQ(m_Machine.GetState(kJump), jump);
  EXPECT_EQ(m_Machine.GetCurrentState(), jump);
  EXPECT_EQ(Take(), Calls{"enter Jump"});
  EXPECT_FALSE(m_Machine.InitStateMachine(nullptr));
  EXPECT_FALSE(m_Machine.InitStateMachine(99ul));
  EXPECT_EQ(m_Machine.GetCurrentState(), jump);
}

TEST_F(StateMachineTest, ASwitchInsideAnUpdateRunsTheRestOfThatUpdateAfterTheNewStateEntered) {
  LoggingState* idle = Add(kIdle, "Idle");
  Add(kRun, "Run");
  idle->m_OnUpdate = [this]() { m_Machine.SwitchToState(kRun); };
  m_Machine.InitStateMachine(kIdle);
  Take();
  m_Machine.Update(16);
  EXPECT_EQ(Take(), (Calls{"update Idle", "exit Idle", "enter Run", "updated Idle"}));
  m_Machine.Update(16);
  EXPECT_EQ(Take(), (Calls{"update Run", "updated Run"}));
}

TEST_F(StateMachineTest, UnknownIdsGoToTheDefaultStateAndWithoutOneNothingHappens) {
  Add(kIdle, "Idle");
  m_Machine.InitStateMachine(kIdle);
  Take();
  EXPECT_EQ(m_Machine.DispatchState(kJump), nullptr);
  EXPECT_FALSE(m_Machine.SwitchToState(kJump));
  EXPECT_TRUE(Take().empty());
  EXPECT_EQ(m_Machine.GetCurrentStateId(), kIdle);

  LoggingState* fallback = Add(kRun, "Run");
  m_Machine.SetDefaultState(fallback);
  EXPECT_EQ(m_Machine.DispatchState(kJump), fallback);
  EXPECT_EQ(m_Machine.DispatchState(kIdle), m_Machine.GetState(kIdle));
  EXPECT_TRUE(m_Machine.SwitchToState(kJump));
  EXPECT_EQ(Take(), (Calls{"exit Idle", "enter Run"}));
  EXPECT_EQ(m_Machine.GetCurrentStateId(), kRun);
  // The stand-in is current under its own id, so asking for the unknown id again
  // leaves and re-enters it.
  m_Machine.SwitchToState(kJump);
  EXPECT_EQ(Take(), (Calls{"exit Run", "enter Run"}));
}

TEST_F(StateMachineTest, AStateOfAnIdAlreadyHeldReplacesTheFormerInBothForms) {
  LoggingState* first = Add(kIdle, "Idle");
  m_Machine.SetDefaultState(first);
  m_Machine.InitStateMachine(kIdle);
  Take();
  LoggingState* second = Add(kIdle, "Idle2");
  EXPECT_EQ(Take(), Calls{"delete Idle"});
  EXPECT_EQ(m_Machine.GetState(kIdle), second);
  EXPECT_EQ(m_Machine.GetCurrentState(), second);
  EXPECT_EQ(m_Machine.GetDefaultState(), second);
  EXPECT_EQ(m_Machine.GetStateCount(), 1ul);
  m_Machine.AddState(second);  // the same state again changes nothing
  EXPECT_TRUE(Take().empty());

  LoggingState* third = new LoggingState(m_Owner, kIdle, "Idle3", m_Log);
  m_Machine.AddStateIfAbsent(third);
  EXPECT_EQ(Take(), Calls{"delete Idle2"});
  EXPECT_EQ(m_Machine.GetState(kIdle), third);
  m_Machine.AddState(nullptr);
  EXPECT_EQ(m_Machine.GetStateCount(), 1ul);
}

TEST_F(StateMachineTest, RemoveGivesTheStateBackDeleteDeletesItAndTheMachineDeletesTheRest) {
  Add(kIdle, "Idle");
  Add(kRun, "Run");
  Add(kJump, "Jump");
  m_Machine.InitStateMachine(kRun);
  Take();

  StateBase* run = m_Machine.RemoveState(kRun);
  ASSERT_NE(run, nullptr);
  EXPECT_FALSE(m_Machine.ContainsState(kRun));
  EXPECT_EQ(m_Machine.RemoveState(kRun), nullptr);
  // The current state was taken out: the machine has none, and updates do nothing.
  EXPECT_EQ(m_Machine.GetCurrentState(), nullptr);
  EXPECT_EQ(m_Machine.GetCurrentStateId(), 0xFFFFFFFFul);
  m_Machine.Update(16);
  EXPECT_TRUE(Take().empty());
  // From no state a switch only enters.
  m_Machine.SwitchToState(kIdle);
  EXPECT_EQ(Take(), Calls{"enter Idle"});
  delete run;
  EXPECT_EQ(Take(), Calls{"delete Run"});

  m_Machine.DeleteState(kJump);
  m_Machine.DeleteState(kJump);
  EXPECT_EQ(Take(), Calls{"delete Jump"});
  {
    StateMachine machine;
    machine.AddState(new LoggingState(m_Owner, 7, "Seven", m_Log));
    machine.AddState(new LoggingState(m_Owner, 8, "Eight", m_Log));
  }
  EXPECT_EQ(Take(), (Calls{"delete Seven", "delete Eight"}));
}

TEST_F(StateMachineTest, TransitionListsKeepDoublesAndTheMachineDoesNotConsultThem) {
  LoggingState* idle = Add(kIdle, "Idle");
  Add(kJump, "Jump");
  EXPECT_EQ(&idle->GetOwner(), &m_Owner);
  EXPECT_EQ(idle->GetId(), kIdle);
  idle->AddTransition(kRun);
  idle->AddTransition(kRun);
  idle->AddTransition(kJump);
  EXPECT_EQ(idle->GetTransitions(), (std::vector<unsigned long>{kRun, kRun, kJump}));
  idle->RemoveTransition(kRun);
  EXPECT_TRUE(idle->IsValidTransition(kRun));
  idle->RemoveTransition(kRun);
  EXPECT_FALSE(idle->IsValidTransition(kRun));
  idle->RemoveTransition(kRun);  // absent: nothing
  EXPECT_TRUE(idle->IsValidTransition(kJump));
  idle->ClearAllTransitions();
  EXPECT_FALSE(idle->IsValidTransition(kJump));

  m_Machine.InitStateMachine(kIdle);
  EXPECT_TRUE(m_Machine.SwitchToState(kJump));
  EXPECT_EQ(m_Machine.GetCurrentStateId(), kJump);
  EXPECT_TRUE(nox::IsA<StateBase>(m_Machine.GetCurrentState()));
}

}  // namespace
