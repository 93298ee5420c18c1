// Shuffled lists that survive in a save game as a seed and an index, and the
// countdown timer.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/GameHost.h"
#include "core/RandomExhaustiveList.h"
#include "core/Timer.h"

namespace {

class RandomListTest : public ::testing::Test {
 protected:
  void SetUp() override { nox::GameHost::Create(); }
  void TearDown() override {
    nox::RandomExhaustiveBase::SetAllShufflingEnabled(true);
    nox::GameHost::Destroy();
  }

  static nox::RandomExhaustiveList<int> Numbers(int n) {
    nox::RandomExhaustiveList<int> list;
    for (int i = 0; i < n; ++i) list.Add(i);
    return list;
  }
  static std::vector<int> Draw(nox::RandomExhaustiveList<int>& list, int n) {
    std::vector<int> out;
    for (int i = 0; i < n; ++i) out.push_back(list.GetNext());
    return out;
  }
};

TEST_F(RandomListTest, GivesEveryItemOnceThenTheSameOrderAgainWithoutReshuffling) {
  nox::RandomExhaustiveList<std::string> list;
  list.Add("red");
  list.Add("green");
  list.Add("blue");
  nox::GameHost::s_pGameHost->SetRandomSeed(5);
  list.Shuffle();
  std::vector<std::string> first = {list.GetNext(), list.GetNext(), list.GetNext()};
  EXPECT_TRUE(list.IsExhausted());
  std::vector<std::string> sorted = first;
  std::sort(sorted.begin(), sorted.end());
  EXPECT_EQ(sorted, (std::vector<std::string>{"blue", "green", "red"}));
  std::vector<std::string> second = {list.GetNext(), list.GetNext(), list.GetNext()};
  EXPECT_EQ(first, second);
}

TEST_F(RandomListTest, ShuffleOrderForASeedStaysAsSavedGamesExpectIt) {
  // Saved games hold only a seed and an index, so the order a seed gives must never
  // change: Fisher-Yates from the second item up, j = rand() % (i + 1).
  nox::RandomExhaustiveList<int> list = Numbers(10);
  nox::GameHost::s_pGameHost->SetRandomSeed(1234);
  list.Shuffle();
  EXPECT_EQ(Draw(list, 10), (std::vector<int>{1, 0, 9, 7, 5, 2, 6, 3, 8, 4}));
}

TEST_F(RandomListTest, RestoreContinuesTheSeedsOrderAtTheSavedIndex) {
  nox::RandomExhaustiveList<int> original = Numbers(5);
  nox::GameHost::s_pGameHost->SetRandomSeed(77);
  original.Shuffle();
  std::vector<int> order = Draw(original, 5);
  EXPECT_EQ(order, (std::vector<int>{1, 3, 4, 0, 2}));

  nox::RandomExhaustiveList<int> restored = Numbers(5);
  restored.Restore(77, 2);
  EXPECT_EQ(restored.GetIndex(), 2u);
  EXPECT_EQ(Draw(restored, 5), (std::vector<int>{order[2], order[3], order[4], order[0], order[1]}));
}

TEST_F(RandomListTest, LeavesTheOrderAloneWhenShufflingIsOff) {
  nox::RandomExhaustiveList<int> unshuffled(false);
  for (int i = 0; i < 6; ++i) unshuffled.Add(i);
  unshuffled.Shuffle();
  EXPECT_EQ(Draw(unshuffled, 6), (std::vector<int>{0, 1, 2, 3, 4, 5}));

  nox::RandomExhaustiveBase::SetAllShufflingEnabled(false);
  nox::RandomExhaustiveList<int> list = Numbers(6);
  list.Restore(1234, 4);
  EXPECT_EQ(Draw(list, 3), (std::vector<int>{4, 5, 0}));
}

TEST_F(RandomListTest, AnEmptyOrSingleListIsSafeToDrawFrom) {
  nox::RandomExhaustiveList<int> empty;
  empty.Shuffle();
  EXPECT_EQ(empty.GetNext(), 0);
  nox::RandomExhaustiveList<int> one = Numbers(1);
  one.Restore(9, 7);  // an index past the end wraps on the next draw
  EXPECT_EQ(Draw(one, 2), (std::vector<int>{0, 0}));
}

struct Fired {
  int count = 0;
  unsigned long param = 0;
  void* context = nullptr;
  static void Callback(void* context, unsigned long param) {
    Fired* self = static_cast<Fired*>(context);
    ++self->count;
    self->param = param;
    self->context = context;
  }
};

TEST(Timer, WithPeriodZeroFiresOnEveryUpdateWhenRepeating) {
  Fired fired;
  nox::Timer repeating(nox::Real(), true, &Fired::Callback, &fired, 7, true);
  repeating.Update(0);
  repeating.Update(16);
  EXPECT_EQ(fired.count, 2);
  EXPECT_EQ(fired.param, 7u);
  EXPECT_EQ(fired.context, &fired);
  EXPECT_TRUE(repeating.m_bRunning);

  Fired once;
  nox::Timer single(nox::Real(), false, &Fired::Callback, &once, 0, true);
  single.Update(0);
  single.Update(0);
  EXPECT_EQ(once.count, 1);
  EXPECT_FALSE(single.m_bRunning);
}

TEST(Timer, CountsDownInRealSecondsAndReloads) {
  Fired fired;
  nox::Timer timer(nox::Real(1), true, &Fired::Callback, &fired, 0, true);
  // 16 ms is 1048 raw in Q16.16 (0.016 * 65536, rounded down); 1.0 is 65536 raw,
  // so the 63rd frame is the first to reach 0.
  int frames = 0;
  while (fired.count == 0 && frames < 1000) {
    timer.Update(16);
    ++frames;
  }
  EXPECT_EQ(frames, 63);
  EXPECT_EQ(timer.m_Remaining, nox::Real(1));
}

TEST(Timer, ExpiresOnlyWhenTheRawRemainderDropsBelowOne) {
  Fired fired;
  nox::Timer timer(nox::Real(1), false, &Fired::Callback, &fired, 0, true);
  timer.Update(999);  // 0.999 s is 65470 raw: 66 raw left
  EXPECT_EQ(timer.m_Remaining.Raw(), 66);
  timer.Update(1);  // 1 ms is 65 raw: 1 raw left, which still counts
  EXPECT_EQ(timer.m_Remaining.Raw(), 1);
  EXPECT_EQ(fired.count, 0);
  timer.Update(1);
  EXPECT_EQ(fired.count, 1);
  EXPECT_EQ(timer.m_Remaining.Raw(), 0);
  EXPECT_FALSE(timer.m_bRunning);
}

TEST(Timer, FiresAtMostOnceForALongFrameAndNotWhenStopped) {
  Fired fired;
  nox::Timer timer(nox::Real(1), true, &Fired::Callback, &fired, 0, false);
  timer.Update(5000);
  EXPECT_EQ(fired.count, 0);
  timer.Start();
  timer.Update(5000);
  EXPECT_EQ(fired.count, 1);
  EXPECT_EQ(timer.m_Remaining, nox::Real(1));
}

}  // namespace
