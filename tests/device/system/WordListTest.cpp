// The player's word list file and milestones: what a parent's file means, what is
// skipped, and that the game's status changes land in the file without disturbing it.
#include <gtest/gtest.h>

#include "../TempDir.h"
#include "ostra/BaseUtils.h"
#include "ostra/Cyo.h"
#include "ostra/HostConfig.h"
#include "ostra/Milestones.h"

namespace {

using devicetest::ReadText;
using devicetest::TempDir;
using devicetest::WriteText;
namespace Host = Hollin::Ostra::Host;

class WordListTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Host::HostConfig config;
    config.saveRoot = dir / "players";
    config.playerId = 4;
    config.quiet = true;
    config.logFile = dir / "debug.log";
    Host::SetHostConfig(config);
    BaseUtils::MakeDirectories(dir / "players/4");
  }
  void TearDown() override { Host::SetHostConfig(Host::HostConfig()); }
  std::string ListPath() const { return dir / "players/4/wordlist.txt"; }

  TempDir dir;
};

TEST_F(WordListTest, AMissingFileIsNotLoaded) {
  Vantle::CCyo list;
  EXPECT_FALSE(list.IsLoaded());
  EXPECT_EQ(list.size(), 0u);
  EXPECT_EQ(list.GetCompletionParameters(), Vantle::CCyo::kDefaultCompletion);
  EXPECT_FALSE(list.SetStatus(0, 1));
  EXPECT_EQ(list.GetValue(0), "");
}

TEST_F(WordListTest, WordsSettingsAndCommentsAreReadAsDocumented) {
  WriteText(ListPath(),
            "\xEF\xBB\xBF# Spelling words for Sam\r\n"
            "ListId = 17\r\n"
            "Completion=4\n"
            "\n"
            "cat\tKDNA2001\n"
            "  ship \t KDNA2002 \t1\n"
            "sun\n"
            "dog\t\t0\n");
  Vantle::CCyo list(4);
  ASSERT_TRUE(list.IsLoaded());
  EXPECT_EQ(list.GetID(), 17u);
  EXPECT_EQ(list.GetCompletionParameters(), 4u);
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list.GetValue(0), "cat");
  EXPECT_EQ(list.GetAudio(0), "KDNA2001");
  EXPECT_EQ(list.GetStatus(0), 0u);
  EXPECT_EQ(list.GetValue(1), "ship");
  EXPECT_EQ(list.GetAudio(1), "KDNA2002");
  EXPECT_EQ(list.GetStatus(1), 1u);
  EXPECT_EQ(list.GetValue(2), "sun");
  EXPECT_EQ(list.GetAudio(2), "");
  EXPECT_EQ(list.GetValue(3), "dog");
  EXPECT_EQ(list.GetStatus(3), 0u);
}

TEST_F(WordListTest, LinesNotUnderstoodAreNamedAndSkipped) {
  WriteText(ListPath(),
            "Completion=0\n"         // out of range: the default stays
            "Colour=blue\n"          // unknown setting
            "\tKDNA2001\n"           // no word
            "cat\tKDNA2001\t2\n"     // bad status
            "cat\tKDNA2001\t1\tx\n"  // too many fields
            "cat\tAudio/KDNA2001\n"  // a path
            "fox\tKDNA2003\n" +
                std::string(Vantle::CCyo::kMaxWordBytes + 1, 'w') + "\tKDNA2004\n");
  Vantle::CCyo list;
  ASSERT_TRUE(list.IsLoaded());
  EXPECT_EQ(list.GetCompletionParameters(), Vantle::CCyo::kDefaultCompletion);
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list.GetValue(0), "fox");
  std::string log = ReadText(dir / "debug.log");
  for (int line = 1; line <= 6; ++line) {
    EXPECT_NE(log.find("line " + std::to_string(line) + ":"), std::string::npos) << line;
  }
  EXPECT_NE(log.find("line 8:"), std::string::npos);
  EXPECT_EQ(log.find("line 7:"), std::string::npos);
}

TEST_F(WordListTest, OnlySoManyWordsAreTaken) {
  std::string text;
  for (unsigned i = 0; i < Vantle::CCyo::kMaxWords + 10; ++i) text += "w" + std::to_string(i) + "\ta\n";
  WriteText(ListPath(), text);
  Vantle::CCyo list;
  EXPECT_EQ(list.size(), Vantle::CCyo::kMaxWords);
  EXPECT_EQ(list.GetValue(Vantle::CCyo::kMaxWords - 1), "w" + std::to_string(Vantle::CCyo::kMaxWords - 1));
}

TEST_F(WordListTest, SetStatusRewritesOnlyThatWordsLine) {
  WriteText(ListPath(),
            "# Sam's words\r\n"
            "Completion=2\r\n"
            "cat\tKDNA2001\r\n"
            "ship\tKDNA2002\r\n");
  Vantle::CCyo list;
  ASSERT_TRUE(list.SetStatus(1, Vantle::CCyo::kStatusMastered));
  EXPECT_EQ(ReadText(ListPath()),
            "# Sam's words\n"
            "Completion=2\n"
            "cat\tKDNA2001\n"
            "ship\tKDNA2002\t1\n");
  EXPECT_FALSE(list.SetStatus(0, 2));
  EXPECT_FALSE(list.SetStatus(2, 1));

  // Kept in memory only until a save is asked for.
  ASSERT_TRUE(list.SetStatus(0, 1, false));
  EXPECT_EQ(Vantle::CCyo().GetStatus(0), 0u);
  ASSERT_TRUE(list.SetStatus(1, 0));
  Vantle::CCyo again;
  EXPECT_EQ(again.GetStatus(0), 1u);
  EXPECT_EQ(again.GetStatus(1), 0u);
  EXPECT_EQ(again.GetCompletionParameters(), 2u);
}

TEST_F(WordListTest, ATooLargeFileIsNotRead) {
  WriteText(ListPath(), std::string(64 * 1024 + 1, '#'));
  EXPECT_FALSE(Vantle::CCyo().IsLoaded());
}

TEST_F(WordListTest, MilestonesAreKeptPerPlayerInTheOrderReached) {
  EXPECT_TRUE(CMilestones::Get().empty());
  EXPECT_TRUE(CMilestones::Add("Riding_Level3"));
  EXPECT_TRUE(CMilestones::Add("Archery_Level2"));
  EXPECT_TRUE(CMilestones::Add("Riding_Level3"));
  EXPECT_EQ(CMilestones::Get(), (std::vector<std::string>{"Riding_Level3", "Archery_Level2"}));
  EXPECT_EQ(ReadText(dir / "players/4/milestones.txt"), "Riding_Level3\nArchery_Level2\n");
  EXPECT_TRUE(CMilestones::Get(5).empty());
  EXPECT_TRUE(CMilestones::Add(5, "Triplets_Level2"));
  EXPECT_EQ(CMilestones::Get(5), std::vector<std::string>{"Triplets_Level2"});
  EXPECT_EQ(CMilestones::Get().size(), 2u);

  EXPECT_FALSE(CMilestones::Add(""));
  EXPECT_FALSE(CMilestones::Add("two\nlines"));
  EXPECT_FALSE(CMilestones::Add(std::string(CMilestones::kMaxNameBytes + 1, 'm')));
  EXPECT_EQ(CMilestones::Get().size(), 2u);
}

}  // namespace
