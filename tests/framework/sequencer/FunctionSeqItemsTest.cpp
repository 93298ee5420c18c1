// Steps that call back into their owner: member functions through plain pointers,
// boost functions, and the two conditional steps; built with the SeqX calls.
#include <gtest/gtest.h>

#include <boost/bind/bind.hpp>
#include <string>
#include <vector>

#include "sequencer/SeqBuild.h"

namespace {

using noxfw::Sequencer;
using noxfw::SequencerItem;

struct Target {
  std::vector<std::string> calls;
  int falsesLeft = 0;  // Ready() answers false this many times first
  int busyLeft = 0;    // Busy() answers true this many times first
  mutable int peeks = 0;
  void Open() { calls.push_back("open"); }
  void Peek() const { ++peeks; }
  void Set(int v) { calls.push_back("set" + std::to_string(v)); }
  void Grow(std::string& s) { s += "!"; }
  bool Busy() { return busyLeft-- > 0; }
  bool Ready() {
    calls.push_back("ready?");
    return falsesLeft-- <= 0;
  }
};

int RunToEmpty(Sequencer& sequencer) {
  int frames = 0;
  for (; !sequencer.IsEmpty() && frames < 100; ++frames) sequencer.Update(16);
  return frames;
}

// Counts its updates, terminations and deletions in the test's counters.
struct Counts {
  int updates = 0, terminated = 0, deleted = 0;
};
class Counted : public SequencerItem {
 public:
  Counted(Counts* counts, int busyFrames = 0) : m_pCounts(counts), m_BusyFrames(busyFrames) {}
  ~Counted() override { ++m_pCounts->deleted; }
  int Update(unsigned long ms) override { return ++m_pCounts->updates, m_BusyFrames-- > 0; }
  void Terminate() override { ++m_pCounts->terminated; }

 private:
  Counts* m_pCounts;
  int m_BusyFrames;
};

TEST(FunctionSeqItemsTest, MemberFunctionStepsCallTheirObjectOnePerFrame) {
  Target target;
  std::string text = "hi";
  Sequencer sequencer;
  noxfw::SeqClassFunc<Target, &Target::Open>(sequencer, &target);
  sequencer.AppendItem(new noxfw::ClassFuncSeqItem(&noxfw::ClassFunc<Target, &Target::Peek>, &target));
  noxfw::SeqClassFuncWithParam<Target, int, &Target::Set>(sequencer, &target, 4);
  noxfw::SeqClassFuncWithParam<Target, std::string&, &Target::Grow>(sequencer, &target, text);
  EXPECT_EQ(RunToEmpty(sequencer), 4);
  EXPECT_EQ(target.calls, (std::vector<std::string>{"open", "set4"}));
  EXPECT_EQ(target.peeks, 1);
  EXPECT_EQ(text, "hi!");  // a reference argument reaches the very object
}

TEST(FunctionSeqItemsTest, CheckBoolStepsWaitForTrueOrForFalse) {
  Target target;
  target.falsesLeft = 2;
  Sequencer sequencer;
  noxfw::SeqClassCheckBool<Target, &Target::Ready>(sequencer, &target, true);
  EXPECT_EQ(RunToEmpty(sequencer), 3);
  // Without wait-for-true the step runs until the function returns false.
  target.busyLeft = 2;
  noxfw::SeqClassCheckBool<Target, &Target::Busy>(sequencer, &target, false);
  EXPECT_EQ(RunToEmpty(sequencer), 3);
  int polls = 0;
  noxfw::SeqWaitUntil(sequencer, [&polls] { return ++polls == 3; });
  EXPECT_EQ(RunToEmpty(sequencer), 3);
}

TEST(FunctionSeqItemsTest, BoostFunctionStepsCallWhenTheyStart) {
  Target target;
  Sequencer sequencer;
  noxfw::SeqFunction(sequencer, boost::bind(&Target::Set, &target, 9));
  noxfw::SeqConditionalFunction(
      sequencer, [] { return false; }, boost::bind(&Target::Set, &target, 1),
      boost::bind(&Target::Set, &target, 2));
  noxfw::SeqConditionalFunction(
      sequencer, [] { return true; }, boost::bind(&Target::Open, &target),
      &noxfw::ConditionalFunctionSeqItem::EmptyFunction);
  EXPECT_EQ(RunToEmpty(sequencer), 3);
  EXPECT_EQ(target.calls, (std::vector<std::string>{"set9", "set2", "open"}));
  // An unset function is a programming fault: boost's error goes through.
  noxfw::SeqFunction(sequencer, boost::function<void()>());
  EXPECT_THROW(sequencer.Update(16), boost::bad_function_call);
}

TEST(FunctionSeqItemsTest, ConditionalSequenceRunsTheChosenStepInPlace) {
  Counts counts;
  Sequencer sequencer;
  // An instant choice ends within the conditional's first frame; the other step is
  // deleted at once, unstarted.
  noxfw::SeqConditionally(
      sequencer, [] { return true; }, new Counted(&counts), new Counted(&counts));
  sequencer.Update(16);
  EXPECT_TRUE(sequencer.IsEmpty());
  EXPECT_EQ(counts.updates, 1);
  EXPECT_EQ(counts.deleted, 2);
  // A busy choice holds the outer queue; cancelling the conditional terminates it.
  counts = Counts();
  noxfw::SeqConditionally(
      sequencer, [] { return false; }, nullptr, new Counted(&counts, 10), 5);
  for (int i = 0; i < 3; ++i) sequencer.Update(16);
  EXPECT_EQ(counts.updates, 3);
  EXPECT_TRUE(sequencer.TerminateItemID(5, false));
  EXPECT_EQ(counts.terminated, 1);
  EXPECT_EQ(counts.deleted, 1);
}

TEST(FunctionSeqItemsTest, ConditionalSequenceWithoutAChoiceFreesBothSteps) {
  Counts counts;
  Sequencer sequencer;
  noxfw::SeqConditionally(
      sequencer, [] { return true; }, nullptr, new Counted(&counts));
  sequencer.Update(16);  // nothing chosen: ends at once, the other step goes with it
  EXPECT_TRUE(sequencer.IsEmpty());
  EXPECT_EQ(counts.deleted, 1);
  noxfw::SeqConditionally(
      sequencer, [] { return true; }, new Counted(&counts), new Counted(&counts));
  sequencer.Empty();  // never started
  EXPECT_EQ(counts.deleted, 3);
  EXPECT_EQ(counts.updates, 0);
}

}  // namespace
