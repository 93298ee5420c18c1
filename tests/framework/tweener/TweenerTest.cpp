// Stepping of tweens: the zero-elapsed first frame, whole-millisecond times, the end
// that writes nothing, delays, repeats, callbacks, the walk after a completion, and
// the listener delivery as the game relies on it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tweener/Tweener.h"

namespace {

using nox::Real;
using noxfw::Tweener;
using noxfw::TweenerParam;

// Records events as "<kind><duration>" so that tweens can be told apart by value.
class Recorder : public noxfw::TweenerListener {
 public:
  void onStart(TweenerParam& p) override { Log("S", p); }
  void onStep(TweenerParam& p) override { Log("T", p); }
  void onComplete(TweenerParam& p) override { Log("C", p); }
  void Log(const char* kind, const TweenerParam& p) {
    m_Events.push_back(kind + std::to_string(p.m_Duration.ToInt()));
  }
  std::vector<std::string> m_Events;
};

TweenerParam LinearParam(Real* target, int end, int durationMs) {
  TweenerParam param(Real(durationMs), noxfw::kTweenLinear, noxfw::kEaseIn);
  param.AddProperty(target, Real(end));
  return param;
}

std::vector<int> Frames(Tweener& tweener, const Real& value, int frames, unsigned long ms) {
  std::vector<int> values;
  for (int i = 0; i < frames; ++i) {
    tweener.Update(ms);
    values.push_back(value.Raw());
  }
  return values;
}

TEST(TweenerTest, LinearTweenStepsWholeMillisecondsAndStopsShortOfTheEnd) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  Real value(-1);
  TweenerParam param = LinearParam(&value, 100, 500);
  value = Real(0);
  tweener.addTween(param);
  EXPECT_EQ(param.m_Properties[0].m_Begin, Real(0));

  // The first Update after idle has an elapsed time of 0; t / d truncates (0.2 is
  // 13107 raw), so the values fall just short of 20, 40, 60, 80; at 500 ms the run
  // ends without writing, leaving the last one.
  const std::vector<int> expected = {0, 13107 * 100, 26214 * 100, 39321 * 100, 52428 * 100, 52428 * 100};
  EXPECT_EQ(Frames(tweener, value, 6, 100), expected);
  EXPECT_EQ(recorder.m_Events,
            (std::vector<std::string>{"S500", "T500", "T500", "T500", "T500", "T500", "T500", "C500"}));
  EXPECT_EQ(tweener.GetTweenCount(), 0);
  EXPECT_TRUE(tweener.IsIdle());

  // Idle again: the next tween's first frame also steps 0 ms, whatever ms is given.
  value = Real(80);
  TweenerParam again = LinearParam(&value, 0, 400);
  tweener.addTween(again);
  tweener.Update(200);
  EXPECT_EQ(value, Real(80));
  tweener.Update(200);
  EXPECT_EQ(value, Real(40));
}

TEST(TweenerTest, OnlyWholeMillisecondsOfTimeAndDurationReachTheCurve) {
  Tweener tweener;
  Real value(0);
  TweenerParam param = LinearParam(&value, 640, 64);
  param.m_Duration = Real::FromRaw((64 << 16) + 0xFFFF);  // 64.99 counts as 64
  param.m_bTimeBased = false;                             // 1.0 per Update: the duration counts frames
  tweener.addTween(param);
  tweener.Update(7);
  EXPECT_EQ(value, Real(10));  // 1 frame of 64: exactly 640 / 64
  tweener.Update(7);
  EXPECT_EQ(value, Real(20));

  // Time-based: the first frame after idle counts 0 ms, then whole elapsed ms.
  Tweener timed;
  Real other(0);
  TweenerParam ms = LinearParam(&other, 64, 64);
  timed.addTween(ms);
  timed.Update(1);
  timed.Update(3);
  EXPECT_EQ(other, Real(3));
}

TEST(TweenerTest, AddTweenTakesTheBeginFromTheValueAsItIsThen) {
  Tweener tweener;
  Real value(0);
  TweenerParam first = LinearParam(&value, 100, 400);
  tweener.addTween(first);
  tweener.Update(100);
  tweener.Update(100);
  ASSERT_EQ(value, Real(25));
  // A second tween on the moving value starts from 25, not from the param's begin.
  TweenerParam second(Real(200), noxfw::kTweenLinear, noxfw::kEaseIn);
  second.AddProperty(&value, Real(-20), Real(99));
  tweener.addTween(second);
  EXPECT_EQ(second.m_Properties[0].m_Begin, Real(25));
}

TEST(TweenerTest, PropertylessTweenStartsStepsAndCompletesInOneUpdate) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  TweenerParam param(Real(500), noxfw::kTweenQuad, noxfw::kEaseOut);
  tweener.addTween(param);
  tweener.Update(16);
  EXPECT_EQ(recorder.m_Events, (std::vector<std::string>{"S500", "T500", "C500"}));
  EXPECT_TRUE(tweener.IsIdle());
}

TEST(TweenerTest, DelayFiresStartAtOnceAndTheFrameEndingItWritesNothing) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  Real value(0);
  TweenerParam param = LinearParam(&value, 100, 400);
  param.m_Delay = Real(100);
  EXPECT_TRUE(param.m_bDelayDone);
  tweener.addTween(param);
  EXPECT_FALSE(param.m_bDelayDone);

  value = Real(-5);
  tweener.Update(50);  // 0 ms: in the delay, yet onStart and onStep fire
  EXPECT_EQ(recorder.m_Events, (std::vector<std::string>{"S400", "T400"}));
  tweener.Update(50);  // 50
  tweener.Update(50);  // 100: still at or below the delay
  tweener.Update(50);  // 150: the delay ends, the run's time restarts at 0, no write
  EXPECT_EQ(value, Real(-5));
  tweener.Update(50);  // run time 50 of 400 from the begin read at addTween (0)
  EXPECT_EQ(value, Real::FromRaw(25 << 15));
}

TEST(TweenerTest, RepeatsResetTheValueAndSwapGoesToAndFro) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  Real value(0);
  TweenerParam param = LinearParam(&value, 100, 200);
  param.m_FirstRepeat = 1;  // two runs
  param.m_bSwapOnRepeat = true;
  tweener.addTween(param);

  // Run 1: 0, 50; at 200 ms the reset swaps and writes the new begin, 100, and the
  // time restarts at 0. Run 2: 50; at its end the last reset swaps back and writes
  // 0, and the first counter, now below 0, completes the tween.
  const std::vector<int> expected = {0, 50 << 16, 100 << 16, 50 << 16, 0, 0};
  EXPECT_EQ(Frames(tweener, value, 6, 100), expected);
  EXPECT_EQ(recorder.m_Events,
            (std::vector<std::string>{"S200", "T200", "T200", "T200", "S200", "T200", "T200", "C200"}));
}

TEST(TweenerTest, SecondCounterAloneResetsOnceAndCompletesAtOnce) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  Real value(0);
  TweenerParam param = LinearParam(&value, 100, 200);
  param.m_SecondRepeat = 0;
  tweener.addTween(param);
  Frames(tweener, value, 3, 100);
  EXPECT_EQ(value, Real(0));  // the reset wrote the begin, then the tween completed
  EXPECT_EQ(recorder.m_Events.back(), "C200");
  EXPECT_EQ(tweener.GetTweenCount(), 0);
}

int s_StepCalls = 0;
int s_CompleteCalls = 0;
void CountStep() {
  ++s_StepCalls;
}
void CountComplete() {
  ++s_CompleteCalls;
}

TEST(TweenerTest, StepCallbackRunsEachUpdateAndCompletionCallbackOnce) {
  s_StepCalls = s_CompleteCalls = 0;
  Tweener tweener;
  Real value(0);
  TweenerParam param = LinearParam(&value, 100, 300);
  param.m_pfnStep = CountStep;
  param.m_pfnComplete = CountComplete;
  tweener.addTween(param);
  Frames(tweener, value, 6, 100);
  EXPECT_EQ(s_StepCalls, 4);
  EXPECT_EQ(s_CompleteCalls, 1);
}

TEST(TweenerTest, AfterACompletionTheWalkResumesAtTheSecondEntry) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  // A (100 ms) ends on the second frame, ahead of B (300 ms) and C (301 ms).
  TweenerParam a(Real(100), noxfw::kTweenLinear, noxfw::kEaseIn);
  TweenerParam b(Real(300), noxfw::kTweenLinear, noxfw::kEaseIn);
  TweenerParam c(Real(301), noxfw::kTweenLinear, noxfw::kEaseIn);
  Real va(0), vb(0), vc(0);
  a.AddProperty(&va, Real(1));
  b.AddProperty(&vb, Real(1));
  c.AddProperty(&vc, Real(1));
  tweener.addTween(a);
  tweener.addTween(b);
  tweener.addTween(c);
  tweener.Update(100);
  recorder.m_Events.clear();
  tweener.Update(100);
  // A completes; the walk restarts at the head (now B) and goes on behind it, so B
  // is passed over this frame and C is stepped.
  EXPECT_EQ(recorder.m_Events, (std::vector<std::string>{"T100", "C100", "T301"}));

  recorder.m_Events.clear();
  TweenerParam d(Real(50), noxfw::kTweenLinear, noxfw::kEaseIn);
  d.AddProperty(&va, Real(1));
  tweener.addTween(d);  // list: B, C, D
  tweener.Update(100);  // D (its first frame) reaches 100 >= 50 and completes at the tail
  // After D completes the walk goes on behind the head: C is stepped a second time.
  EXPECT_EQ(recorder.m_Events, (std::vector<std::string>{"T300", "T301", "S50", "T50", "C50", "T301"}));
}

TEST(TweenerTest, RemoveTweenTakesTheEarlierOfTwoIdenticalTweens) {
  Tweener tweener;
  Real first(0), second(0);
  TweenerParam one = LinearParam(&first, 100, 400);
  TweenerParam two = LinearParam(&second, 100, 400);
  tweener.addTween(one);
  tweener.addTween(two);
  tweener.removeTween(&two);  // matches by value: the first one goes
  EXPECT_EQ(tweener.GetTweenCount(), 1);
  tweener.Update(100);
  tweener.Update(100);
  EXPECT_EQ(first, Real(0));
  EXPECT_EQ(second, Real(25));

  TweenerParam other = LinearParam(&second, 99, 400);
  tweener.removeTween(&other);  // different end value: nothing removed
  EXPECT_EQ(tweener.GetTweenCount(), 1);
}

// Adds a follow-up tween from onComplete, as owners chain movements.
class Chainer : public noxfw::TweenerListener {
 public:
  Chainer(Tweener* tweener, Real* value) : m_pTweener(tweener), m_pValue(value) {}
  void onComplete(TweenerParam& p) override {
    ++m_Completions;
    if (m_Completions == 1) {
      TweenerParam next = LinearParam(m_pValue, 0, 200);
      m_pTweener->addTween(next);
    }
  }
  Tweener* m_pTweener;
  Real* m_pValue;
  int m_Completions = 0;
};

TEST(TweenerTest, TweenAddedFromOnCompleteRunsFromTheNextFrame) {
  Tweener tweener;
  Real value(0);
  Chainer chainer(&tweener, &value);
  tweener.addListener(&chainer);
  TweenerParam param = LinearParam(&value, 100, 200);
  tweener.addTween(param);
  Frames(tweener, value, 3, 100);  // 0, 50, complete (50 kept)
  EXPECT_EQ(chainer.m_Completions, 1);
  EXPECT_FALSE(tweener.IsIdle());
  EXPECT_EQ(tweener.GetTweenCount(), 1);
  tweener.Update(100);  // the chained tween, begin 50: t = 100 of 200
  EXPECT_EQ(value, Real(25));
  tweener.Update(100);
  EXPECT_EQ(chainer.m_Completions, 2);
  EXPECT_TRUE(tweener.IsIdle());
  EXPECT_EQ(value, Real(25));
}

TEST(TweenerTest, EveryDeliveryGoesToTheFirstListener) {
  Tweener tweener;
  Recorder first, second;
  tweener.addListener(&first);
  tweener.addListener(&second);
  TweenerParam param(Real(40), noxfw::kTweenLinear, noxfw::kEaseIn);
  tweener.dispatchEvent(&param, noxfw::kTweenEventComplete);
  EXPECT_EQ(first.m_Events, (std::vector<std::string>{"C40", "C40"}));
  EXPECT_TRUE(second.m_Events.empty());
}

TEST(TweenerTest, ListenerRemovalAndUnknownEventsWriteTheirLines) {
  Tweener tweener;
  Recorder first, second, stranger;
  tweener.addListener(&first);
  tweener.addListener(&second);
  TweenerParam param(Real(40), noxfw::kTweenLinear, noxfw::kEaseIn);

  testing::internal::CaptureStdout();
  tweener.removeListener(&stranger);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");

  testing::internal::CaptureStdout();
  tweener.removeListener(&first);
  tweener.dispatchEvent(&param, 3);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "\n-Listener removed"
            "Event not found!!");

  tweener.dispatchEvent(&param, noxfw::kTweenEventStart);
  EXPECT_TRUE(first.m_Events.empty());
  EXPECT_EQ(second.m_Events, (std::vector<std::string>{"S40"}));
}

}  // namespace
