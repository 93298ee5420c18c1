// A player's own word list as an activity draws from it: rounds of open words topped
// up to five, mastering a word here and on the platform, counts kept across runs and
// started afresh when they no longer fit the list.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "../../engine/files/TestFiles.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "learning/CYO.h"
#include "ostra/Cyo.h"
#include "ostra/HostConfig.h"

namespace {

namespace Host = Hollin::Ostra::Host;
using noxfw::CYO;
using noxfw::CYOStoreData;
using testfiles::Bytes;

class CYOTest : public ::testing::Test {
 protected:
  void SetUp() override { StartPlayer(1); }
  void TearDown() override {
    StopPlayer();
    Host::SetHostConfig(Host::HostConfig());
  }
  void StartPlayer(uint32_t player) {
    StopPlayer();
    Host::HostConfig config;
    config.titlePath = m_Dir / "title";
    config.saveRoot = m_Dir / "players";
    config.playerId = player;
    config.quiet = true;
    Host::SetHostConfig(config);
    nox::GameHost::Create();
    nox::PathRegistry::Create();
  }
  void StopPlayer() {
    nox::PathRegistry::Destroy();
    nox::GameHost::Destroy();
  }
  // `count` words "w0", "w1", ...; the first `mastered` of them mastered.
  void WriteList(int count, int mastered, int completion = 2) {
    std::string text = "# test list\nListId=9\nCompletion=" + std::to_string(completion) + "\n";
    for (int i = 0; i < count; ++i)
      text += "w" + std::to_string(i) + "\tKDNA" + std::to_string(3000 + i) + (i < mastered ? "\t1\n" : "\n");
    testfiles::WriteText(ListPath(), text);
  }
  std::string ListPath() const { return Vantle::CCyo::PathFor(Host::GetHostConfig().playerId); }
  std::string DataPath() const {
    return nox::PathRegistry::sm_pInstance->GetLocalDataPath() + "/CYOData.bin";
  }
  // Draws `n` words and returns their indexes.
  static std::multiset<uint32_t> Draw(CYO& cyo, int n) {
    std::multiset<uint32_t> drawn;
    for (int i = 0; i < n; ++i) drawn.insert(cyo.GetNextWordData().index);
    return drawn;
  }

  testfiles::TempDir m_Dir;
};

TEST_F(CYOTest, WithoutAListOrWithEverythingMasteredThereIsNothingToDraw) {
  CYO none;
  EXPECT_EQ(none.GetStatus(), CYO::kNoList);
  EXPECT_FALSE(none.CYOFileAvailable());
  EXPECT_EQ(none.GetNextWordData().GetWord(), "");

  WriteList(0, 0);
  EXPECT_EQ(CYO().GetStatus(), CYO::kNoList);

  WriteList(3, 3);
  CYO done;
  EXPECT_EQ(done.GetStatus(), CYO::kAllMastered);
  EXPECT_TRUE(done.WordListMastered());
  EXPECT_FALSE(testfiles::Exists(DataPath()));
}

TEST_F(CYOTest, RecordsCarryTheListsWordsCutToTheirFields) {
  testfiles::WriteText(ListPath(), "abcdefghijklmnopq\t" + std::string(120, 'a') + "\nox\tKDNA3001\n");
  CYO cyo;
  ASSERT_EQ(cyo.GetStatus(), CYO::kReady);
  EXPECT_EQ(cyo.GetID(), 0u);
  EXPECT_EQ(cyo.GetCompletionParam(), 3u);
  const CYOStoreData* first = cyo.GetData().GetRecord(0);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->GetWord(), "abcdefghijklmno");
  EXPECT_EQ(first->GetAudio(), std::string(100, 'a'));
  Bytes file = testfiles::ReadBytes(DataPath());
  ASSERT_EQ(file.size(), 2u * 128);
  EXPECT_EQ(std::string(file.begin() + 128, file.begin() + 130), "ox");
  EXPECT_EQ(file[128 + 2], 0);
  EXPECT_EQ(std::string(file.begin() + 128 + 15, file.begin() + 128 + 23), "KDNA3001");
  EXPECT_EQ(file[128 + 116], 1);  // index, little-endian
}

TEST_F(CYOTest, AWordSpelledRightOftenEnoughIsMasteredHereAndOnThePlatform) {
  WriteList(8, 0, 2);
  uint32_t target;
  {
    CYO cyo;
    ASSERT_EQ(cyo.GetStatus(), CYO::kReady);
    EXPECT_EQ(cyo.GetID(), 9u);
    target = cyo.GetNextWordData().index;
    cyo.CurrWordSpelledCorrectly();
    EXPECT_EQ(cyo.GetData().GetWordCACount(target), 1u);
    EXPECT_EQ(Vantle::CCyo().GetStatus(target), 0u);
    cyo.CurrWordSpelledCorrectly();
    EXPECT_EQ(cyo.GetData().GetWordCACount(target), 2u);
    EXPECT_EQ(cyo.GetCurrentWord().status, CYOStoreData::kStatusMastered);
    cyo.CurrWordSpelledCorrectly();  // stops at the completion parameter
    EXPECT_EQ(cyo.GetData().GetWordCACount(target), 2u);
  }
  // The platform's file says so, and the stored counts agree on a restart.
  EXPECT_NE(testfiles::ReadText(ListPath())
                .find("w" + std::to_string(target) + "\tKDNA" + std::to_string(3000 + target) + "\t1\n"),
            std::string::npos);
  Bytes file = testfiles::ReadBytes(DataPath());
  ASSERT_EQ(file.size(), 8u * 128);
  EXPECT_EQ(file[128 * target + 120], 2);
  EXPECT_EQ(file[128 * target + 124], 1);

  CYO next;
  ASSERT_EQ(next.GetStatus(), CYO::kReady);
  EXPECT_EQ(next.GetData().GetWordCACount(target), 2u);
  // Seven words are still open: a whole round of them leaves the mastered one out.
  std::multiset<uint32_t> round = Draw(next, 7);
  EXPECT_EQ(round.count(target), 0u);
  EXPECT_EQ(std::set<uint32_t>(round.begin(), round.end()).size(), 7u);
  EXPECT_FALSE(next.WordListMastered());
}

TEST_F(CYOTest, WithFewerThanFiveOpenWordsARoundStillHasFiveDifferentWords) {
  for (uint32_t seed : {1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u}) {
    nox::GameHost::s_pGameHost->SetRandomSeed(seed);
    WriteList(6, 5);  // only w5 is open
    remove(DataPath().c_str());
    CYO cyo;
    ASSERT_EQ(cyo.GetStatus(), CYO::kReady);
    std::multiset<uint32_t> round = Draw(cyo, 5);
    EXPECT_EQ(std::set<uint32_t>(round.begin(), round.end()).size(), 5u) << seed;
    EXPECT_EQ(round.count(5), 1u) << seed;
  }
  WriteList(3, 2);  // the list has only three
  remove(DataPath().c_str());
  CYO small;
  std::multiset<uint32_t> round = Draw(small, 3);
  EXPECT_EQ(std::set<uint32_t>(round.begin(), round.end()).size(), 3u);
}

TEST_F(CYOTest, CountsThatNoLongerFitTheListStartAfresh) {
  WriteList(6, 0, 5);
  {
    CYO cyo;
    for (int i = 0; i < 6; ++i) {
      cyo.GetNextWordData();
      cyo.CurrWordSpelledCorrectly();
    }
  }
  auto total = [](const CYO& cyo) {
    uint32_t sum = 0;
    for (uint32_t i = 0; i < cyo.GetData().GetCount(); ++i) sum += cyo.GetData().GetWordCACount(i);
    return sum;
  };
  EXPECT_EQ(total(CYO()), 6u);

  // The same length, one word replaced: the counts belong to another list.
  std::string text = testfiles::ReadText(ListPath());
  text.replace(text.find("w2\t"), 3, "zz\t");
  testfiles::WriteText(ListPath(), text);
  EXPECT_EQ(total(CYO()), 0u);

  // A file of another length, or damaged past its length, is not read at all.
  for (size_t size : {size_t(6 * 128 - 1), size_t(6 * 128 + 1), size_t(0)}) {
    testfiles::WriteBytes(DataPath(), Bytes(size, 0xEE));
    CYO cyo;
    EXPECT_EQ(cyo.GetStatus(), CYO::kReady) << size;
    EXPECT_EQ(total(cyo), 0u) << size;
    EXPECT_EQ(testfiles::ReadBytes(DataPath()).size(), 6u * 128) << size;
  }
  // Whole but garbage: fails the comparison with the list.
  testfiles::WriteBytes(DataPath(), Bytes(6 * 128, 0xEE));
  EXPECT_EQ(total(CYO()), 0u);
}

TEST_F(CYOTest, ACompletionChangedSinceTheCountsWereKeptStillMastersWords) {
  WriteList(6, 0, 4);
  {
    CYO cyo;
    for (int i = 0; i < 18; ++i) {
      cyo.GetNextWordData();
      cyo.CurrWordSpelledCorrectly();
    }
  }
  // Every word now has three of four; the adult lowers the bar to two.
  WriteList(6, 0, 2);
  CYO cyo;
  ASSERT_EQ(cyo.GetStatus(), CYO::kReady);
  for (uint32_t i = 0; i < 6; ++i) EXPECT_EQ(cyo.GetData().GetWordCACount(i), 1u) << i;
  CYOStoreData word = cyo.GetNextWordData();
  cyo.CurrWordSpelledCorrectly();
  EXPECT_EQ(cyo.GetCurrentWord().status, CYOStoreData::kStatusMastered);
  EXPECT_EQ(Vantle::CCyo().GetStatus(word.index), 1u);
}

TEST_F(CYOTest, AGuestDrawsFromTheListButKeepsNoCounts) {
  StartPlayer(3);
  WriteList(6, 0);
  CYO cyo;
  ASSERT_EQ(cyo.GetStatus(), CYO::kReady);
  EXPECT_TRUE(cyo.GetData().IsNoPersist());
  cyo.GetNextWordData();
  cyo.CurrWordSpelledCorrectly();
  EXPECT_FALSE(testfiles::Exists(DataPath()));
}

TEST_F(CYOTest, CountsThatCannotBeWrittenLeaveTheListUnusable) {
  WriteList(6, 0);
  // A directory where the file should be: no write can replace it.
  BaseUtils::MakeDirectories(DataPath());
  CYO cyo;
  EXPECT_EQ(cyo.GetStatus(), CYO::kStoreFailed);
  EXPECT_FALSE(cyo.IsListValid());
  EXPECT_EQ(cyo.GetNextWordData().GetWord(), "");
}

}  // namespace
