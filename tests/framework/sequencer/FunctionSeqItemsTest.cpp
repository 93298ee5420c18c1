// The steps that call back into their owner: member functions through plain
// pointers, boost functions, the conditional steps, and the building calls.
#include <gtest/gtest.h>

#include <boost/bind/bind.hpp>
#include <boost/function.hpp>
#include <string>
#include <vector>

#include "sequencer/SeqBuild.h"

namespace {

using noxfw::Sequencer;
using noxfw::SequencerItem;

struct Target {
  std::vector<std::string> calls;
  int remainingFalse = 0;  // Ready() answers false this many times first
  int remainingTrue = 0;   // StillBusy() answers true this many times first

  void Open() { calls.push_back("open"); }
  void Peek() const { seen = true; }
  void Set(int v) { calls.push_back("set" + std::to_string(v)); }
  void Grow(std::string& s) { s += "!"; }
  bool Ready() {
    calls.push_back("ready?");
    return remainingFalse-- <= 0;
  }
  bool StillBusy() {
    calls.push_back("busy?");
    return remainingTrue-- > 0;
  }
  mutable bool seen = false;
};

// Frames until the queue empties (bounded, so that a fault can't hang the test).
int RunToEmpty(Sequencer& sequencer) {
  int frames = 0;
  while (!sequencer.IsEmpty() && frames < 100) {
    sequencer.Update(16);
    ++frames;
  }
  return frames;
}

// Counts deletions, to prove that unchosen steps are freed and when.
class Counted : public SequencerItem {
 public:
  Counted(int* deleted, int* updates, int busyFrames = 0)
      : m_pDeleted(deleted), m_pUpdates(updates), m_BusyFrames(busyFrames) {}
  ~Counted() override { ++*m_pDeleted; }
  int Update(unsigned long ms) override {
    ++*m_pUpdates;
    return m_BusyFrames-- > 0;
  }
  void Terminate() override {
    SequencerItem::Terminate();
    ++m_Terminated;
  }
  static int m_Terminated;

 private:
  int* m_pDeleted;
  int* m_pUpdates;
  int m_BusyFrames;
};
int Counted::m_Terminated = 0;

TEST(FunctionSeqItemsTest, MemberFunctionStepsCallTheirObjectInOrder) {
  Target target;
  std::string text = "hi";
  Sequencer sequencer;
  sequencer.AppendItem(new noxfw::ClassFuncSeqItem(&noxfw::ClassFunc<Target, &Target::Open>, &target));
  sequencer.AppendItem(new noxfw::ClassFuncSeqItem(&noxfw::ClassFunc<Target, &Target::Peek>, &target));
  noxfw::SeqClassFuncWithParam<Target, int, &Target::Set>(sequencer, &target, 4);
  // A reference argument reaches the very object given.
  sequencer.AppendItem(new noxfw::ClassFuncSeqItemWithParam<std::string&>(
      &noxfw::ClassFuncWithParam<Target, std::string&, &Target::Grow>, &target, text));
  noxfw::SeqClassFunc<Target, &Target::Open>(sequencer, &target);
  EXPECT_EQ(RunToEmpty(sequencer), 5);
  EXPECT_EQ(target.calls, (std::vector<std::string>{"open", "set4", "open"}));
  EXPECT_TRUE(target.seen);
  EXPECT_EQ(text, "hi!");
}

TEST(FunctionSeqItemsTest, CheckBoolStepWaitsForTrueOrForFalse) {
  Target target;
  target.remainingFalse = 2;
  target.remainingTrue = 3;
  Sequencer sequencer;
  noxfw::SeqClassCheckBool<Target, &Target::Ready>(sequencer, &target, true);
  // Without wait-for-true the step runs until the function returns false.
  sequencer.AppendItem(
      new noxfw::ClassCheckBoolFuncSeqItem(&noxfw::ClassFunc<Target, &Target::StillBusy>, &target, false));
  EXPECT_EQ(RunToEmpty(sequencer), 3 + 4);
  EXPECT_EQ(target.calls,
            (std::vector<std::string>{"ready?", "ready?", "ready?", "busy?", "busy?", "busy?", "busy?"}));
}

TEST(FunctionSeqItemsTest, BoostFunctionStepsCallOnStartAndWaitUntilTrue) {
  Target target;
  int polls = 0;
  Sequencer sequencer;
  noxfw::SeqFunction(sequencer, boost::bind(&Target::Set, &target, 9));
  noxfw::SeqWaitUntil(sequencer, [&polls] { return ++polls == 3; });
  noxfw::SeqConditionalFunction(
      sequencer, [] { return false; }, boost::bind(&Target::Set, &target, 1),
      boost::bind(&Target::Set, &target, 2));
  noxfw::SeqConditionalFunction(
      sequencer, [] { return true; }, boost::bind(&Target::Open, &target),
      &noxfw::ConditionalFunctionSeqItem::EmptyFunction);
  sequencer.Update(16);
  EXPECT_EQ(target.calls, (std::vector<std::string>{"set9"}));  // called in Initialize, one frame
  EXPECT_EQ(RunToEmpty(sequencer), 3 + 2);
  EXPECT_EQ(target.calls, (std::vector<std::string>{"set9", "set2", "open"}));
}

TEST(FunctionSeqItemsTest, UnsetFunctionIsAFaultThatThrows) {
  Sequencer sequencer;
  noxfw::SeqFunction(sequencer, boost::function<void()>());
  EXPECT_THROW(sequencer.Update(16), boost::bad_function_call);
}

TEST(FunctionSeqItemsTest, ConditionalSequenceRunsTheChosenStepInPlace) {
  int deleted = 0, updates = 0;
  Counted::m_Terminated = 0;
  Sequencer sequencer;
  // An instant choice finishes in the conditional's own first frame; the other
  // step is deleted at once, unstarted.
  noxfw::SeqConditionally(
      sequencer, [] { return true; }, new Counted(&deleted, &updates), new Counted(&deleted, &updates));
  sequencer.Update(16);
  EXPECT_TRUE(sequencer.IsEmpty());
  EXPECT_EQ(updates, 1);
  EXPECT_EQ(deleted, 2);

  // A busy choice holds the outer queue as long as it runs.
  deleted = updates = 0;
  noxfw::SeqConditionally(
      sequencer, [] { return false; }, new Counted(&deleted, &updates), new Counted(&deleted, &updates, 2));
  noxfw::SeqWait(sequencer, 0);
  sequencer.Update(16);
  EXPECT_EQ(deleted, 1);
  EXPECT_EQ(RunToEmpty(sequencer), 2 + 1);
  EXPECT_EQ(updates, 3);
  EXPECT_EQ(deleted, 2);
  EXPECT_EQ(Counted::m_Terminated, 2);
}

TEST(FunctionSeqItemsTest, ConditionalSequenceWithNoChoiceEndsAtOnceAndFreesBothSteps) {
  int deleted = 0, updates = 0;
  Sequencer sequencer;
  noxfw::SeqConditionally(
      sequencer, [] { return true; }, nullptr, new Counted(&deleted, &updates));
  sequencer.Update(16);
  EXPECT_TRUE(sequencer.IsEmpty());
  EXPECT_EQ(deleted, 1);
  EXPECT_EQ(updates, 0);

  // Never started: both steps go with it.
  noxfw::SeqConditionally(
      sequencer, [] { return true; }, new Counted(&deleted, &updates), new Counted(&deleted, &updates));
  sequencer.Empty();
  EXPECT_EQ(deleted, 3);
}

TEST(FunctionSeqItemsTest, CancellingAConditionalSequenceTerminatesItsRunningStep) {
  int deleted = 0, updates = 0;
  Counted::m_Terminated = 0;
  Sequencer sequencer;
  noxfw::SeqConditionally(
      sequencer, [] { return true; }, new Counted(&deleted, &updates, 10), nullptr, 5);
  sequencer.Update(16);
  EXPECT_TRUE(sequencer.TerminateItemID(5, false));
  EXPECT_EQ(Counted::m_Terminated, 1);
  EXPECT_EQ(deleted, 1);
}

}  // namespace
