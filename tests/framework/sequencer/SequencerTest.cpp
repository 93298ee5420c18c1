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

// Writes "<name>:<event>" for each call it receives; stays busy for `busyFrames`
// Updates. Hooks let a test act from inside a step.
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

// Runs one frame and returns what it logged.
Log Frame(Sequencer& sequencer, Log& log, unsigned long ms = 16) {
  log.clear();
  sequencer.Update(ms);
  return log;
}

TEST(SequencerTest, InstantStepsRunOnePerFrameInOrder) {
  Log log;
  Sequencer sequencer;
  Frame(sequencer, log);  // an empty queue does nothing
  EXPECT_TRUE(log.empty());

  sequencer.AppendItem(new Probe(&log, "a"));
  sequencer.AppendItem(new Probe(&log, "b"));
  sequencer.AppendItem(new Probe(&log, "c"));
  EXPECT_EQ(Frame(sequencer, log), (Log{"a:init", "a:update16", "a:term", "a:delete"}));
  EXPECT_FALSE(sequencer.IsEmpty());
  EXPECT_EQ(Frame(sequencer, log, 20), (Log{"b:init", "b:update20", "b:term", "b:delete"}));
  EXPECT_FALSE(sequencer.IsEmpty());
  EXPECT_EQ(Frame(sequencer, log), (Log{"c:init", "c:update16", "c:term", "c:delete"}));
  EXPECT_TRUE(sequencer.IsEmpty());
}

TEST(SequencerTest, BusyStepHoldsTheQueueUntilItsUpdateReturnsZero) {
  Log log;
  Sequencer sequencer;
  sequencer.AppendItem(new Probe(&log, "busy", 2));
  sequencer.AppendItem(new Probe(&log, "next"));
  EXPECT_EQ(Frame(sequencer, log, 5), (Log{"busy:init", "busy:update5"}));
  EXPECT_EQ(Frame(sequencer, log, 6), (Log{"busy:update6"}));
  EXPECT_EQ(Frame(sequencer, log, 7), (Log{"busy:update7", "busy:term", "busy:delete"}));
  EXPECT_EQ(Frame(sequencer, log, 8), (Log{"next:init", "next:update8", "next:term", "next:delete"}));
}

TEST(SequencerTest, StepFinishingInInitializeIsRemovedWithoutUpdateOrTerminate) {
  Log log;
  Sequencer sequencer;
  Probe* quick = new Probe(&log, "quick", 5);
  quick->m_bFinishInInit = true;
  sequencer.AppendItem(quick);
  sequencer.AppendItem(new Probe(&log, "next"));
  EXPECT_EQ(Frame(sequencer, log), (Log{"quick:init", "quick:delete"}));
  EXPECT_EQ(Frame(sequencer, log).front(), "next:init");
}

TEST(SequencerTest, WaitFinishesWhenTheSummedFrameTimesReachItsTotal) {
  Sequencer sequencer;
  sequencer.AppendItem(new noxfw::WaitSeqItem(0));
  sequencer.Update(16);
  EXPECT_TRUE(sequencer.IsEmpty());

  sequencer.AppendItem(new noxfw::WaitSeqItem(100));
  int frames = 0;
  while (!sequencer.IsEmpty()) {
    sequencer.Update(30);
    ++frames;
  }
  EXPECT_EQ(frames, 4);  // 30, 60, 90 busy; 120 done

  sequencer.AppendItem(new noxfw::WaitSeqItem(100));
  sequencer.Update(50);
  EXPECT_FALSE(sequencer.IsEmpty());
  sequencer.Update(50);  // exactly the total finishes
  EXPECT_TRUE(sequencer.IsEmpty());
}

TEST(SequencerTest, PrependRespectsAStartedHead) {
  Log log;
  Sequencer sequencer;
  // Empty queue: the item becomes the head.
  Sequencer::iterator first = sequencer.Prepend(new Probe(&log, "running", 1));
  EXPECT_EQ(first, sequencer.Begin());
  sequencer.AppendItem(new Probe(&log, "later"));
  Frame(sequencer, log);  // "running" has started and is busy

  Sequencer::iterator urgent = sequencer.Prepend(new Probe(&log, "urgent"));
  EXPECT_EQ(urgent, std::next(sequencer.Begin()));
  EXPECT_EQ(Frame(sequencer, log).front(), "running:update16");
  EXPECT_EQ(Frame(sequencer, log).front(), "urgent:init");
  // The head "later" has not started: a prepended item goes ahead of it.
  Sequencer::iterator head = sequencer.Prepend(new Probe(&log, "first"));
  EXPECT_EQ(head, sequencer.Begin());
  EXPECT_EQ(Frame(sequencer, log).front(), "first:init");
  EXPECT_EQ(Frame(sequencer, log).front(), "later:init");
}

TEST(SequencerTest, PositionsLetAScriptBeSplicedIntoTheQueue) {
  Log log;
  Sequencer sequencer;
  SequencerItem* none[1] = {nullptr};
  EXPECT_EQ(sequencer.AppendItems(none, 0), sequencer.End());

  Sequencer::iterator a = sequencer.AppendItem(new Probe(&log, "a"));
  Sequencer::iterator d = sequencer.AppendItem(new Probe(&log, "d"));
  EXPECT_EQ(sequencer.AppendItems(none, 0), d);  // a count below 1 gives the tail

  // Build "b", "c" outward from "a", as quest scripts do.
  Sequencer::iterator pos = sequencer.InsertAfter(a, new Probe(&log, "b"));
  pos = sequencer.InsertAfter(pos, new Probe(&log, "c"));
  sequencer.InsertBefore(a, new Probe(&log, "0"));
  sequencer.InsertAfter(sequencer.End(), new Probe(&log, "e"));  // the end appends
  SequencerItem* more[2] = {new Probe(&log, "f"), new Probe(&log, "g")};
  Sequencer::iterator last = sequencer.AppendItems(more, 2);
  EXPECT_EQ(*last, more[1]);

  std::string order;
  while (!sequencer.IsEmpty()) order += Frame(sequencer, log).front().substr(0, 1);
  EXPECT_EQ(order, "0abcdefg");
}

TEST(SequencerTest, TerminateItemIdRemovesTheFirstOrEveryMatch) {
  Log log;
  Sequencer sequencer;
  EXPECT_FALSE(sequencer.TerminateItemID(7, true));  // empty queue

  sequencer.AppendItem(new Probe(&log, "head", 5, 7));
  sequencer.AppendItem(new Probe(&log, "plain"));
  sequencer.AppendItem(new Probe(&log, "second", 0, 7));
  sequencer.AppendItem(new Probe(&log, "third", 0, 7));
  sequencer.AppendItem(new Probe(&log, "other", 0, 8));
  EXPECT_EQ(sequencer.HasSeqID(7), 3);
  Frame(sequencer, log);  // the head starts

  // The started head is terminated while still queued: in its Terminate its ID is
  // already zero, so it no longer counts.
  int countDuringTerminate = -1;
  static_cast<Probe*>(*sequencer.Begin())->m_OnTerminate = [&] {
    countDuringTerminate = sequencer.HasSeqID(7);
  };
  log.clear();
  EXPECT_TRUE(sequencer.TerminateItemID(7, false));
  EXPECT_EQ(log, (Log{"head:term", "head:delete"}));
  EXPECT_EQ(countDuringTerminate, 2);
  EXPECT_EQ(sequencer.HasSeqID(7), 2);

  // Unstarted matches are only deleted.
  log.clear();
  EXPECT_TRUE(sequencer.TerminateItemID(7, true));
  EXPECT_EQ(log, (Log{"second:delete", "third:delete"}));
  EXPECT_FALSE(sequencer.TerminateItemID(7, true));
  EXPECT_FALSE(sequencer.TerminateItemID(7, false));

  // ID 0 is "no identity": cancelling it keeps the identified steps.
  EXPECT_TRUE(sequencer.TerminateItemID(0, true));
  EXPECT_EQ(sequencer.HasSeqID(8), 1);
  EXPECT_EQ(Frame(sequencer, log).front(), "other:init");
}

TEST(SequencerTest, EmptyingARunningQueueTerminatesOnlyTheStartedHead) {
  Log log;
  {
    Sequencer sequencer;
    sequencer.AppendItem(new Probe(&log, "head", 10));
    sequencer.AppendItem(new Probe(&log, "b"));
    sequencer.AppendItem(new Probe(&log, "c"));
    Frame(sequencer, log);
    log.clear();
    sequencer.Empty();
    EXPECT_EQ(log, (Log{"head:term", "head:delete", "b:delete", "c:delete"}));
    EXPECT_TRUE(sequencer.IsEmpty());

    // The queue is usable again after clearing.
    sequencer.AppendItem(new Probe(&log, "again", 10));
    Frame(sequencer, log);
    log.clear();
  }
  // The destructor clears the same way.
  EXPECT_EQ(log, (Log{"again:term", "again:delete"}));
}

TEST(SequencerTest, TerminateMayQueueStepsWhileItsItemIsBeingPopped) {
  Log log;
  Sequencer sequencer;
  Probe* head = new Probe(&log, "head", 10);
  head->m_OnTerminate = [&] { sequencer.AppendItem(new Probe(&log, "cleanup")); };
  sequencer.AppendItem(head);
  Frame(sequencer, log);
  log.clear();
  sequencer.PopItem();  // unlinked first, so the new step lands in an intact queue
  EXPECT_EQ(log, (Log{"head:term", "head:delete"}));
  EXPECT_EQ(Frame(sequencer, log).front(), "cleanup:init");
  EXPECT_TRUE(sequencer.IsEmpty());
}

TEST(SequencerTest, StepsQueuedFromInsideARunningStepRunBehindIt) {
  Log log;
  Sequencer sequencer;
  Probe* parent = new Probe(&log, "parent", 1);
  parent->m_OnInit = [&] { sequencer.AppendItem(new Probe(&log, "fromInit")); };
  parent->m_OnUpdate = [&] { sequencer.AppendItem(new Probe(&log, "fromUpdate")); };
  parent->m_OnTerminate = [&] { sequencer.AppendItem(new Probe(&log, "fromTerminate")); };
  sequencer.AppendItem(parent);
  sequencer.AppendItem(new Probe(&log, "queued"));

  std::string order;
  while (!sequencer.IsEmpty()) {
    const Log frame = Frame(sequencer, log);
    order += frame.front() + " ";
  }
  EXPECT_EQ(order,
            "parent:init parent:update16 queued:init fromInit:init fromUpdate:init fromUpdate:init "
            "fromTerminate:init ");
}

}  // namespace
