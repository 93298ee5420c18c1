// Letters, numbers and durations to sequences and clips, and the rude-word check.
#include <gtest/gtest.h>

#include "activity/shared/GameUtil.h"
#include "core/HashString.h"
#include "sequencer/Sequencer.h"
#include "sequencer/SoundSeqItems.h"

namespace {

using game::GameUtil;
using nox::HashString;
typedef std::vector<std::string> Clips;

TEST(GameUtilTest, LettersAndLetterGroupsNameTheirSequences) {
  EXPECT_EQ(GameUtil::CharToSeq("A", false), HashString("A_Upper"));
  EXPECT_EQ(GameUtil::CharToSeq("z", false), HashString("Z_Lower"));
  EXPECT_EQ(GameUtil::CharToSeq("q", true), HashString("Q_LowerH"));
  EXPECT_EQ(GameUtil::CharToSeq("sh", false), HashString("SH_Digraph"));
  EXPECT_EQ(GameUtil::CharToSeq("Oa", false), HashString("OA_Digraph"));
  EXPECT_EQ(GameUtil::CharToSeq("SN", true), HashString("SN_BlendH"));
  EXPECT_EQ(GameUtil::CharToSeq("nd", false), HashString("ND_Blend"));
  for (const char* other : {"", "7", "xyz", "qq", "\xC3\xA9"}) {
    EXPECT_EQ(GameUtil::CharToSeq(other, false), HashString("A_Lower")) << other;
    EXPECT_EQ(GameUtil::CharToSeq(other, true), HashString("A_Lower")) << other;
  }
}

TEST(GameUtilTest, OnlyWhatALaterTitleWouldVoiceGetsAnEmptyName) {
  EXPECT_EQ(GameUtil::CharToSoundStringNa("b"), "");
  EXPECT_EQ(GameUtil::CharToSoundStringNa("B"), "");
  EXPECT_EQ(GameUtil::CharToSoundStringNa("4"), "L_OSTM_AlertSfx_6");
  EXPECT_EQ(GameUtil::CharToSoundStringNa("bb"), "L_OSTM_AlertSfx_6");
  for (const char* group : {"th", "sn", "pl", "aw", "ee", "mp", "oo"})
    EXPECT_EQ(GameUtil::LettersToSoundStringNa(group), "") << group;
  for (const char* group : {"TH", "Th", "qz", "a", "str"})
    EXPECT_EQ(GameUtil::LettersToSoundStringNa(group), "L_OSTM_AlertSfx_6") << group;
}

TEST(GameUtilTest, NumbersHaveClipsUpToAHundredAndForWholeHundreds) {
  EXPECT_EQ(GameUtil::NumberToSoundStringNa(0, false), "CANM000");
  EXPECT_EQ(GameUtil::NumberToSoundStringNa(7, true), "CANE007");
  EXPECT_EQ(GameUtil::NumberToSoundStringNa(100, false), "CANM100");
  EXPECT_EQ(GameUtil::NumberToSoundStringNa(900, true), "CANE900");
  for (int n : {101, 150, 199, 250, 901, 1000, -1})
    EXPECT_EQ(GameUtil::NumberToSoundStringNa(n, false), "L_OSTM_AlertSfx_6") << n;
}

TEST(GameUtilTest, ADurationIsReadAsMinutesThenSeconds) {
  EXPECT_EQ(GameUtil::ReadTimeNa(999), Clips{});
  EXPECT_EQ(GameUtil::ReadTimeNa(61000), (Clips{"CANM001", "KDNAVS0103", "CANE001", "KDNAVS0105"}));
  EXPECT_EQ(GameUtil::ReadTimeNa(60000), (Clips{"CANE001", "KDNAVS0103b"}));
  EXPECT_EQ(GameUtil::ReadTimeNa(180500), (Clips{"CANE003", "KDNAVS0104b"}));
  EXPECT_EQ(GameUtil::ReadTimeNa(42000), (Clips{"CANE042", "KDNAVS0106"}));
  EXPECT_EQ(GameUtil::ReadTimeNa(125000), (Clips{"CANM002", "KDNAVS0104", "CANE005", "KDNAVS0106"}));

  noxfw::Sequencer sequencer;
  GameUtil::SeqReadTimeNa(61000, sequencer);
  Clips queued;
  for (auto it = sequencer.Begin(); it != sequencer.End(); ++it) {
    queued.push_back(static_cast<noxfw::PlayStreamingSoundSeqItem*>(*it)->GetSound().GetName());
  }
  EXPECT_EQ(queued, GameUtil::ReadTimeNa(61000));
}

TEST(GameUtilTest, BannedWordsAreCaughtOnlyInOneCaseThroughout) {
  EXPECT_TRUE(GameUtil::IsBadWord("cum"));
  EXPECT_TRUE(GameUtil::IsBadWord("CUM"));
  EXPECT_TRUE(GameUtil::IsBadWord("xxx"));
  EXPECT_FALSE(GameUtil::IsBadWord("Cum"));
  EXPECT_FALSE(GameUtil::IsBadWord("cumin"));
  EXPECT_FALSE(GameUtil::IsBadWord("cat"));
  EXPECT_FALSE(GameUtil::IsBadWord(""));
}

}  // namespace
