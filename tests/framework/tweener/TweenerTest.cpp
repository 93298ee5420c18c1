// Stepping of tweens: the zero-elapsed first frame, whole-millisecond times, the end
// that writes nothing, delays, repeats, callbacks, the walk after a completion, and
// event delivery.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tweener/Tweener.h"

namespace {

using nox::Real;
using noxfw::Tweener;
using noxfw::TweenerParam;
typedef std::vector<std::string> Events;

// Records events as "<kind><duration>"; tweens are told apart by value. Optionally
// chains one follow-up tween from its first onComplete.
class Recorder : public noxfw::TweenerListener {
 public:
  void onStart(TweenerParam& p) override { Log("S", p); }
  void onStep(TweenerParam& p) override { Log("T", p); }
  void onComplete(TweenerParam& p) override;
  void Log(const char* kind, const TweenerParam& p) {
    m_Events.push_back(kind + std::to_string(p.m_Duration.ToInt()));
  }
  Events m_Events;
  Tweener* m_pChainTo = nullptr;
  Real* m_pChainTarget = nullptr;
};

TweenerParam LinearParam(Real* target, int end, int durationMs) {
  TweenerParam param(Real(durationMs), noxfw::kTweenLinear, noxfw::kEaseIn);
  param.AddProperty(target, Real(end));
  return param;
}

void Recorder::onComplete(TweenerParam& p) {
  Log("C", p);
  if (!m_pChainTo) return;
  TweenerParam next = LinearParam(m_pChainTarget, 0, 200);
  m_pChainTo->addTween(next);
  m_pChainTo = nullptr;
}

std::vector<int> Frames(Tweener& tweener, const Real& value, int frames, unsigned long ms) {
  std::vector<int> values;
  for (int i = 0; i < frames; ++i) {
    tweener.Update(ms);
    values.push_back(value.Raw());
  }
  return values;
}

int s_StepCalls = 0;
int s_CompleteCalls = 0;

TEST(TweenerTest, LinearTweenStepsFromZeroElapsedAndStopsShortOfTheEnd) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  Real value(7);
  TweenerParam param = LinearParam(&value, 100, 500);
  param.m_pfnStep = [] { ++s_StepCalls; };
  param.m_pfnComplete = [] { ++s_CompleteCalls; };
  value = Real(0);
  tweener.addTween(param);  // the begin is read now
  // Elapsed is 0 on the first frame; t / d truncates (0.2 is 13107 raw); at 500 ms
  // the run ends without writing, so the value stays just short of 80.
  EXPECT_EQ(Frames(tweener, value, 6, 100),
            (std::vector<int>{0, 13107 * 100, 26214 * 100, 39321 * 100, 52428 * 100, 52428 * 100}));
  EXPECT_EQ(recorder.m_Events, (Events{"S500", "T500", "T500", "T500", "T500", "T500", "T500", "C500"}));
  EXPECT_EQ(s_StepCalls, 6);
  EXPECT_EQ(s_CompleteCalls, 1);
  EXPECT_EQ(tweener.GetTweenCount(), 0);
  EXPECT_TRUE(tweener.IsIdle());

  // A tween added to a moving value begins where the value is.
  TweenerParam again = LinearParam(&value, 0, 400);
  again.m_Properties[0].m_Begin = Real(99);
  tweener.addTween(again);
  EXPECT_EQ(again.m_Properties[0].m_Begin.Raw(), 52428 * 100);
}

TEST(TweenerTest, OnlyWholeTimesReachTheCurve) {
  Tweener frames, timed;
  Real a(0), b(0);
  TweenerParam byFrame = LinearParam(&a, 640, 64);
  byFrame.m_Duration = Real::FromRaw((64 << 16) + 0xFFFF);  // 64.99 counts as 64
  byFrame.m_bTimeBased = false;                             // 1.0 per Update
  frames.addTween(byFrame);
  EXPECT_EQ(Frames(frames, a, 2, 7), (std::vector<int>{10 << 16, 20 << 16}));
  TweenerParam byMs = LinearParam(&b, 64, 64);
  timed.addTween(byMs);
  EXPECT_EQ(Frames(timed, b, 2, 3), (std::vector<int>{0, 3 << 16}));
}

TEST(TweenerTest, PropertylessTweenStartsStepsAndCompletesInOneUpdate) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  TweenerParam param(Real(500), noxfw::kTweenQuad, noxfw::kEaseOut);
  tweener.addTween(param);
  tweener.Update(16);
  EXPECT_EQ(recorder.m_Events, (Events{"S500", "T500", "C500"}));
}

TEST(TweenerTest, DelayFiresStartAtOnceAndTheFrameEndingItWritesNothing) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  Real value(0);
  TweenerParam param = LinearParam(&value, 100, 400);
  param.m_Delay = Real(100);
  tweener.addTween(param);
  value = Real(-5);
  tweener.Update(50);  // 0 ms: in the delay, yet onStart and onStep fire
  EXPECT_EQ(recorder.m_Events, (Events{"S400", "T400"}));
  // 50 and 100 ms are in the delay; 150 ends it, restarting the time, and writes
  // nothing; then 50 ms of 400 from the begin read at addTween.
  EXPECT_EQ(Frames(tweener, value, 4, 50), (std::vector<int>{-5 * 65536, -5 * 65536, -5 * 65536, 25 << 15}));
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
  // Each run's end swaps and writes the new begin; the second run's end does so too,
  // then completes.
  EXPECT_EQ(Frames(tweener, value, 6, 100), (std::vector<int>{0, 50 << 16, 100 << 16, 50 << 16, 0, 0}));
  EXPECT_EQ(recorder.m_Events, (Events{"S200", "T200", "T200", "T200", "S200", "T200", "T200", "C200"}));

  // The second counter alone: one reset, then complete at once.
  Tweener other;
  other.addListener(&recorder);
  value = Real(0);
  TweenerParam once = LinearParam(&value, 100, 200);
  once.m_SecondRepeat = 0;
  other.addTween(once);
  EXPECT_EQ(Frames(other, value, 3, 100), (std::vector<int>{0, 50 << 16, 0}));
  EXPECT_EQ(recorder.m_Events.back(), "C200");
}

TEST(TweenerTest, AfterACompletionTheWalkResumesAtTheSecondEntry) {
  Tweener tweener;
  Recorder recorder;
  tweener.addListener(&recorder);
  Real va(0), vb(0), vc(0);
  TweenerParam a = LinearParam(&va, 1, 100), b = LinearParam(&vb, 1, 300), c = LinearParam(&vc, 1, 301);
  tweener.addTween(a);
  tweener.addTween(b);
  tweener.addTween(c);
  tweener.Update(100);
  recorder.m_Events.clear();
  // A completes; the walk restarts at the head (now B) and goes on behind it: B is
  // passed over this frame.
  tweener.Update(100);
  EXPECT_EQ(recorder.m_Events, (Events{"T100", "C100", "T301"}));

  recorder.m_Events.clear();
  TweenerParam d = LinearParam(&va, 1, 50);
  tweener.addTween(d);  // B, C, D
  tweener.Update(100);  // D completes at the tail; the walk goes on behind B: C is stepped twice
  EXPECT_EQ(recorder.m_Events, (Events{"T300", "T301", "S50", "T50", "C50", "T301"}));
}

TEST(TweenerTest, RemoveTweenMatchesByValueAndTakesTheEarlierOfTwo) {
  Tweener tweener;
  Real first(0), second(0);
  TweenerParam one = LinearParam(&first, 100, 400), two = LinearParam(&second, 100, 400);
  tweener.addTween(one);
  tweener.addTween(two);
  TweenerParam other = LinearParam(&second, 99, 400);
  tweener.removeTween(&other);  // another end value: nothing goes
  EXPECT_EQ(tweener.GetTweenCount(), 2);
  tweener.removeTween(&two);  // same values: the first one goes
  EXPECT_EQ(tweener.GetTweenCount(), 1);
  Frames(tweener, first, 2, 100);
  EXPECT_EQ(first, Real(0));
  EXPECT_EQ(second, Real(25));
}

TEST(TweenerTest, TweenAddedFromOnCompleteRunsFromTheNextFrame) {
  Tweener tweener;
  Real value(0);
  Recorder chainer;
  chainer.m_pChainTo = &tweener;
  chainer.m_pChainTarget = &value;
  tweener.addListener(&chainer);
  TweenerParam param = LinearParam(&value, 100, 200);
  tweener.addTween(param);
  // 0, 50, complete (50 kept); the chained tween from 50 to 0 over 200: 25, complete.
  EXPECT_EQ(Frames(tweener, value, 5, 100), (std::vector<int>{0, 50 << 16, 50 << 16, 25 << 16, 25 << 16}));
  EXPECT_TRUE(tweener.IsIdle());
}

TEST(TweenerTest, EveryDeliveryGoesToTheFirstListenerAndRemovalIsAnnounced) {
  Tweener tweener;
  Recorder first, second, stranger;
  tweener.addListener(&first);
  tweener.addListener(&second);
  TweenerParam param(Real(40), noxfw::kTweenLinear, noxfw::kEaseIn);
  tweener.dispatchEvent(&param, noxfw::kTweenEventComplete);
  EXPECT_EQ(first.m_Events, (Events{"C40", "C40"}));
  EXPECT_TRUE(second.m_Events.empty());

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
  EXPECT_EQ(second.m_Events, (Events{"S40"}));
}

}  // namespace
