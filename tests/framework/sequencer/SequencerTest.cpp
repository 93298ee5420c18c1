// The script queue: strict order at one step per frame, busy steps holding the
// queue, insertion around a running head, cancelling by ID, clearing a running
// queue, and steps that queue more steps while they run.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "sequencer/Sequencer.h"
#include "sequencer/WaitSeqItem.h"

namespace {

using noxfw::Sequencer;
using noxfw::SequencerItem;
typedef std::vector<std::string> Log;

// Logs "<name>:<call>"; busy for `busyFrames` Updates; hooks act from inside a step.
class Probe : public SequencerItem {
 public:
  Probe(Log* log, const std::string& name, int busyFrames = 0, unsigned long id = 0)
      : SequencerItem(id), m_pLog(log), m_Name(name), m_BusyFrames(busyFrames) {}
  ~Probe() override { m_pLog->push_back(m_Name + ":delete"); }
  void Initialize() override {
    m_pLog->push_back(m_Name + ":init");
    if (m_OnInit) m_OnInit();
    if (m_bFinishInInit) m_bStarted = false;
  }
  int Update(unsigned long ms) override {
    m_pLog->push_back(m_Name + ":update" + std::to_string(ms));
    if (m_OnUpdate) m_OnUpdate();
    return m_BusyFrames-- > 0;
  }
  void Terminate() override {
    SequencerItem::Terminate();
    m_pLog->push_back(m_Name + ":term");
    if (m_OnTerminate) m_OnTerminate();
  }
  std::function<void()> m_OnInit, m_OnUpdate, m_OnTerminate;
  bool m_bFinishInInit = false;

 private:
  Log* m_pLog;
  std::string m_Name;
  int m_BusyFrames;
};

Log Frame(Sequencer& sequencer, Log& log, unsigned long ms = 16) {
  log.clear();
  sequencer.Update(ms);
  return log;
}

// The first letter of each frame's first log line, until the queue is empty.
std::string RunOrder(Sequencer& sequencer, Log& log) {
  std::string order;
  while (!sequencer.IsEmpty()) order += Frame(sequencer, log).front().substr(0, 1);
  return order;
}

TEST(SequencerTest, StepsRunOnePerFrameAndABusyStepHoldsTheQueue) {
  Log log;
  Sequencer sequencer;
  EXPECT_TRUE(Frame(sequencer, log).empty());  // an empty queue does nothing
  sequencer.AppendItem(new Probe(&log, "a"));
  sequencer.AppendItem(new Probe(&log, "busy", 1));
  Probe* quick = new Probe(&log, "quick", 5);
  quick->m_bFinishInInit = true;
  sequencer.AppendItem(quick);
  EXPECT_EQ(Frame(sequencer, log, 5), (Log{"a:init", "a:update5", "a:term", "a:delete"}));
  EXPECT_EQ(Frame(sequencer, log, 6), (Log{"busy:init", "busy:update6"}));
  EXPECT_EQ(Frame(sequencer, log, 7), (Log{"busy:update7", "busy:term", "busy:delete"}));
  EXPECT_FALSE(sequencer.IsEmpty());
  // Finishing itself in Initialize: removed without Update or Terminate.
  EXPECT_EQ(Frame(sequencer, log), (Log{"quick:init", "quick:delete"}));
  EXPECT_TRUE(sequencer.IsEmpty());
}

TEST(SequencerTest, WaitFinishesWhenTheSummedFrameTimesReachItsTotal) {
  Sequencer sequencer;
  sequencer.AppendItem(new noxfw::WaitSeqItem(0));
  sequencer.Update(16);
  EXPECT_TRUE(sequencer.IsEmpty());
  sequencer.AppendItem(new noxfw::WaitSeqItem(100));
  for (int i = 0; i < 3; ++i) sequencer.Update(30);
  EXPECT_FALSE(sequencer.IsEmpty());
  sequencer.Update(10);  // exactly 100
  EXPECT_TRUE(sequencer.IsEmpty());
}

TEST(SequencerTest, PrependRespectsAStartedHead) {
  Log log;
  Sequencer sequencer;
  const Sequencer::iterator running = sequencer.Prepend(new Probe(&log, "running", 1));
  EXPECT_EQ(running, sequencer.Begin());
  sequencer.AppendItem(new Probe(&log, "later"));
  Frame(sequencer, log);  // "running" has started
  const Sequencer::iterator urgent = sequencer.Prepend(new Probe(&log, "urgent"));
  EXPECT_EQ(urgent, std::next(sequencer.Begin()));
  EXPECT_EQ(Frame(sequencer, log).front(), "running:update16");
  EXPECT_EQ(Frame(sequencer, log).front(), "urgent:init");
  // The head "later" has not started: the new step goes ahead of it.
  const Sequencer::iterator first = sequencer.Prepend(new Probe(&log, "first"));
  EXPECT_EQ(first, sequencer.Begin());
  EXPECT_EQ(RunOrder(sequencer, log), "fl");
}

TEST(SequencerTest, PositionsLetAScriptBeSplicedIntoTheQueue) {
  Log log;
  Sequencer sequencer;
  SequencerItem* none[1] = {nullptr};
  EXPECT_EQ(sequencer.AppendItems(none, 0), sequencer.End());
  Sequencer::iterator a = sequencer.AppendItem(new Probe(&log, "a"));
  Sequencer::iterator d = sequencer.AppendItem(new Probe(&log, "d"));
  EXPECT_EQ(sequencer.AppendItems(none, 0), d);  // a count below 1 gives the tail
  Sequencer::iterator pos = sequencer.InsertAfter(a, new Probe(&log, "b"));
  sequencer.InsertAfter(pos, new Probe(&log, "c"));
  sequencer.InsertBefore(a, new Probe(&log, "0"));
  sequencer.InsertAfter(sequencer.End(), new Probe(&log, "e"));  // the end appends
  SequencerItem* more[2] = {new Probe(&log, "f"), new Probe(&log, "g")};
  EXPECT_EQ(*sequencer.AppendItems(more, 2), more[1]);
  EXPECT_EQ(RunOrder(sequencer, log), "0abcdefg");
}

TEST(SequencerTest, TerminateItemIdRemovesTheFirstOrEveryMatch) {
  Log log;
  Sequencer sequencer;
  EXPECT_FALSE(sequencer.TerminateItemID(7, true));
  Probe* head = new Probe(&log, "head", 5, 7);
  sequencer.AppendItem(head);
  sequencer.AppendItem(new Probe(&log, "plain"));
  sequencer.AppendItem(new Probe(&log, "second", 0, 7));
  sequencer.AppendItem(new Probe(&log, "third", 0, 7));
  sequencer.AppendItem(new Probe(&log, "other", 0, 8));
  EXPECT_EQ(sequencer.HasSeqID(7), 3);
  Frame(sequencer, log);

  // The started head is terminated while still queued; its ID is zero by then.
  int countDuringTerminate = -1;
  head->m_OnTerminate = [&] { countDuringTerminate = sequencer.HasSeqID(7); };
  log.clear();
  EXPECT_TRUE(sequencer.TerminateItemID(7, false));
  EXPECT_EQ(log, (Log{"head:term", "head:delete"}));
  EXPECT_EQ(countDuringTerminate, 2);
  log.clear();
  EXPECT_TRUE(sequencer.TerminateItemID(7, true));  // unstarted: only deleted
  EXPECT_EQ(log, (Log{"second:delete", "third:delete"}));
  EXPECT_FALSE(sequencer.TerminateItemID(7, false));
  // ID 0 is "no identity": cancelling it keeps the identified steps.
  EXPECT_TRUE(sequencer.TerminateItemID(0, true));
  EXPECT_EQ(RunOrder(sequencer, log), "o");
}

TEST(SequencerTest, ClearingARunningQueueTerminatesOnlyTheStartedHead) {
  Log log;
  {
    Sequencer sequencer;
    Probe* head = new Probe(&log, "head", 10);
    sequencer.AppendItem(head);
    sequencer.AppendItem(new Probe(&log, "b"));
    Frame(sequencer, log);
    // PopItem unlinks before Terminate, so the step queued there lands in an intact
    // queue, and Empty goes on until that one is gone too.
    head->m_OnTerminate = [&] { sequencer.AppendItem(new Probe(&log, "cleanup")); };
    log.clear();
    sequencer.Empty();
    EXPECT_EQ(log, (Log{"head:term", "head:delete", "b:delete", "cleanup:delete"}));
    sequencer.AppendItem(new Probe(&log, "again", 10));
    Frame(sequencer, log);
    log.clear();
  }
  EXPECT_EQ(log, (Log{"again:term", "again:delete"}));  // the destructor clears alike
}

TEST(SequencerTest, StepsQueuedFromInsideARunningStepRunBehindIt) {
  Log log;
  Sequencer sequencer;
  Probe* parent = new Probe(&log, "parent", 1);
  parent->m_OnInit = [&] { sequencer.AppendItem(new Probe(&log, "I")); };
  parent->m_OnUpdate = [&] { sequencer.AppendItem(new Probe(&log, "U")); };
  parent->m_OnTerminate = [&] { sequencer.AppendItem(new Probe(&log, "T")); };
  sequencer.AppendItem(parent);
  sequencer.AppendItem(new Probe(&log, "queued"));
  EXPECT_EQ(RunOrder(sequencer, log), "ppqIUUT");
}

}  // namespace
