// The save block as it lands in the file, what a new game holds, the grade rules, bad
// and missing files, sessions without a profile, and progress across a restart.
#include <gtest/gtest.h>

#include "SaveEnvironment.h"
#include "core/HashString.h"

namespace savetest {
namespace {

using game::GameSaveData;

class SaveGameTest : public SaveEnvironment {
 protected:
  int CountInLog(const std::string& text) {
    std::string log = testfiles::ReadText(m_Dir / "debug.log");
    int n = 0;
    for (size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) ++n;
    return n;
  }
};

TEST_F(SaveGameTest, EveryFieldWrittenThroughTheSettersLandsAtItsOffsetLittleEndian) {
  GameSaveGame& save = Save();
  save.ResetData();
  save.SetData_Grade(6);
  save.SetData_ActivityLevel(3, 7);
  save.SetData_ActivitySublevel(2, 9);
  save.SetData_ActivityRound(1, 0x1234);
  save.SetData_ActivityCa(7, 0xBEEF);
  save.SetData_ActivityWa(0, 0x0102);
  save.SetData_ActivityPlayedTutorial(5, true);
  save.SetData_SceneCount(44, 0xCAFE);
  save.SetData_SceneUnlocked(44, true);
  save.SetData_SceneCompleted(0, true);
  save.SetData_Badge(34, true);
  save.SetData_RandomExhaustSeed(0, 0xA1B2C3D4);
  save.SetData_RandomExhaustIndex(0, 0x05060708);
  save.SetData_UnlockedCount(0x21);
  save.IncUnlockedCount();
  save.SetData_LastSeenUnlockedCount(0x33);
  save.SetData_FirstActivation(false);
  save.SetData_PlayTime(0x11223344);
  save.SetData_ModCount(0x55667788);
  save.SetHeroinePosition(4, nox::Vector3(nox::Real::FromRaw(0x18000), nox::Real(-2), nox::Real(3)));
  save.SetQuestConditions(19, 0x1122334455667788ull);
  save.UnlockAdventureLog(true);
  save.UnlockBowAndArrow(true);
  save.GetBlock().randomLists[game::kTripletsLevelOrderRandomList] = {0x0A0B0C0D, 0x01020304};
  ASSERT_TRUE(save.WriteAllData());

  Bytes file = testfiles::ReadBytes(SavePath());
  ASSERT_EQ(file.size(), 1888u);
  EXPECT_EQ(file, Block());
  EXPECT_EQ(Bytes(file.begin(), file.begin() + 4), (Bytes{0x50, 0x41, 0x52, 0x00}));
  EXPECT_EQ(file[4], 6);
  EXPECT_EQ(file[5 + 3], 7);
  EXPECT_EQ(file[13 + 2], 9);
  EXPECT_EQ(file[21], 0);  // reserved
  EXPECT_EQ(U16At(file, 22 + 2), 0x1234);
  EXPECT_EQ(U16At(file, 38 + 14), 0xBEEF);
  EXPECT_EQ(U16At(file, 54), 0x0102);
  EXPECT_EQ(file[70 + 5], 1);
  EXPECT_EQ(U16At(file, 78 + 88), 0xCAFE);
  EXPECT_EQ(file[168 + 44], 1);
  EXPECT_EQ(file[213], 1);
  EXPECT_EQ(file[258 + 34], 1);
  EXPECT_EQ(U32At(file, 296), 0xA1B2C3D4u);
  EXPECT_EQ(U32At(file, 300), 0x05060708u);
  EXPECT_EQ(file[304], 0x22);
  EXPECT_EQ(file[305], 0x33);
  EXPECT_EQ(file[306], 0);
  EXPECT_EQ(U32At(file, 308), 0x11223344u);
  EXPECT_EQ(U32At(file, 312), 0x55667788u);
  EXPECT_EQ(U32At(file, 616 + 48), 0x18000u);
  EXPECT_EQ(U32At(file, 616 + 52), 0xFFFE0000u);
  EXPECT_EQ(U32At(file, 616 + 56), 0x30000u);
  EXPECT_EQ(U32At(file, 1408 + 152), 0x55667788u);
  EXPECT_EQ(U32At(file, 1408 + 156), 0x11223344u);
  EXPECT_EQ(file[701], 1);
  EXPECT_EQ(file[702], 1);
  EXPECT_EQ(U32At(file, 1664), 0x0A0B0C0Du);
  EXPECT_EQ(U32At(file, 1668), 0x01020304u);
}

TEST_F(SaveGameTest, ANewGameHoldsTheStartValuesOfEveryField) {
  Save().ResetData();
  Bytes b = Block();
  EXPECT_EQ(U32At(b, 0), GameSaveGame::kIdent);
  EXPECT_EQ(b[4], 3);  // the profile's grade
  for (int a = 0; a < 8; ++a) {
    EXPECT_EQ(b[5 + a], 2) << a;  // grade 3 starts at level 2
    EXPECT_EQ(b[13 + a], 1) << a;
  }
  EXPECT_EQ(b[306], 1);  // first activation
  const std::pair<size_t, uint32_t> words[] = {{320, 1000000}, {324, 0},  {348, 1000000},
                                               {356, 0},       {372, 36}, {676, 0},
                                               {1760, 0},      {1868, 0}, {716, nox::HashString("Idle")}};
  for (auto& w : words) EXPECT_EQ(U32At(b, w.first), w.second) << w.first;
  const std::pair<size_t, uint8_t> bytes[] = {
      {316, 1}, {328, 1}, {344, 1},   {360, 1},   {592, 0},   {700, 1}, {701, 0}, {702, 0}, {703, 1},
      {704, 0}, {707, 0}, {708, 254}, {709, 224}, {712, 224}, {713, 0}, {720, 0}, {1884, 0}};
  for (auto& x : bytes) EXPECT_EQ(b[x.first], x.second) << x.first;
  for (int fact = 0; fact < 40; ++fact) {
    size_t at = 724 + 16 * fact;
    EXPECT_EQ(b[at], 1) << fact;
    EXPECT_EQ(b[at + 1] | b[at + 2], 0) << fact;
    EXPECT_EQ(U32At(b, at + 4), 0xFFFFFFFFu) << fact;
    EXPECT_EQ(U32At(b, at + 8), 0u) << fact;
  }
  for (int list = 0; list < 9; ++list) EXPECT_EQ(U32At(b, 1608 + 8 * list), 0u) << list;
  for (size_t at : {376u, 591u, 1364u, 1407u, 1408u, 1607u, 1682u, 1741u, 1768u, 1784u, 1804u, 1872u, 1879u})
    EXPECT_EQ(b[at], 0) << at;
}

TEST_F(SaveGameTest, ProgressWrittenByOneRunIsWhatTheNextRunReads) {
  ASSERT_FALSE(Save().ReadAllData());  // no file yet: a new game
  Save().SetData_ActivityLevel(0, 5);
  Save().SetData_Badge(12, true);
  Save().GetBlock().runeBits[2] = 0x000F00F1;
  Save().GetBlock().questState.flag = 1;
  Save().SetData_PlayTime(4321);
  ASSERT_TRUE(Save().WriteAllData());
  Bytes written = Block();

  GameSaveGame next;
  ASSERT_TRUE(next.ReadAllData());
  EXPECT_EQ(0, memcmp(&next.GetBlock(), written.data(), written.size()));
  EXPECT_EQ(next.GetData_ActivityLevel(0), 5);
  EXPECT_TRUE(next.GetData_Badge(12));
  EXPECT_EQ(next.GetData_PlayTime(), 4321u);
  // Reading a good file refreshes the backup from it.
  EXPECT_EQ(testfiles::ReadBytes(SavePath() + ".bak").size(), 1888u);
}

TEST_F(SaveGameTest, AFileOfTheRightLengthWithAnotherIdentStartsANewGame) {
  Bytes foreign(1888, 0x5A);
  testfiles::WriteBytes(SavePath(), foreign);
  EXPECT_FALSE(Save().ReadAllData());
  EXPECT_TRUE(Save().ValidateData());
  EXPECT_TRUE(Save().IsNewGame());
  EXPECT_EQ(Save().GetBlock().pinTailObject, 36u);
}

TEST_F(SaveGameTest, AShortOrLongFileFallsToTheBackupAndStillGivesANewGame) {
  for (size_t wrong : {size_t(1887), size_t(1889), size_t(0)}) {
    // A good save exists as the backup only.
    Save().ResetData();
    Save().SetData_ModCount(static_cast<uint32_t>(77 + wrong));
    ASSERT_TRUE(Save().WriteAllData());
    Bytes good = testfiles::ReadBytes(SavePath());
    testfiles::WriteBytes(SavePath() + ".bak", good);
    testfiles::WriteBytes(SavePath(), Bytes(wrong, 0x50));

    GameSaveGame next;
    // The backup proves a save existed but is not taken as the save: a new game.
    EXPECT_FALSE(next.ReadAllData()) << wrong;
    EXPECT_TRUE(next.IsNewGame()) << wrong;
    EXPECT_EQ(next.GetData_ModCount(), 0u);
    EXPECT_EQ(testfiles::ReadBytes(SavePath() + ".bak"), good) << wrong;
    EXPECT_EQ(testfiles::ReadBytes(SavePath()).size(), 1888u) << wrong;
    ASSERT_TRUE(next.WriteAllData());
    GameSaveGame again;
    EXPECT_TRUE(again.ReadAllData()) << wrong;
  }
}

TEST_F(SaveGameTest, AChangedGradeBetweenRunsRestartsTheActivitiesOnly) {
  Save().ResetData();
  for (int a = 0; a < 8; ++a) {
    Save().SetData_ActivityLevel(a, 6);
    Save().SetData_ActivitySublevel(a, 3);
    Save().SetData_ActivityRound(a, 4);
    Save().SetData_ActivityPlayedTutorial(a, true);
  }
  Save().SetData_Badge(4, true);
  Save().SetData_SceneCompleted(13, true);
  Save().GetBlock().zoneWords[1] = 5;
  ASSERT_TRUE(Save().WriteAllData());

  SetGrade(3);  // unchanged
  {
    GameSaveGame next;
    ASSERT_TRUE(next.ReadAllData());
    EXPECT_EQ(next.GetData_ActivityLevel(7), 6);
  }
  SetGrade(0);  // kindergarten starts at level 1 in this game
  GameSaveGame next;
  ASSERT_TRUE(next.ReadAllData());
  EXPECT_EQ(next.GetData_Grade(), 0);
  for (int a = 0; a < 8; ++a) {
    EXPECT_EQ(next.GetData_ActivityLevel(a), 1) << a;
    EXPECT_EQ(next.GetData_ActivitySublevel(a), 1) << a;
    EXPECT_EQ(next.GetData_ActivityRound(a), 0) << a;
    EXPECT_FALSE(next.GetData_ActivityPlayedTutorial(a)) << a;
  }
  EXPECT_TRUE(next.GetData_Badge(4));
  EXPECT_TRUE(next.GetData_SceneCompleted(13));
  EXPECT_EQ(next.GetBlock().zoneWords[1], 5u);
  const std::string line = "Setting the activity level to 1 from the player's grade";
  int before = CountInLog(line);
  next.SetData_Grade(7);
  next.ResetLevelData();
  EXPECT_EQ(CountInLog(line) - before, 8);
}

TEST_F(SaveGameTest, TheTitlesGradeRuleResetsOnAHigherOrAFirstGradeOnly) {
  struct Case {
    int saved;
    int grade;
    bool resets;
  };
  const Case cases[] = {{255, 3, true}, {255, 255, false}, {3, 5, true},
                        {5, 3, false},  {4, 4, false},     {3, 255, true}};
  for (const Case& c : cases) {
    SetGrade(c.grade);
    Save().ResetData();
    Save().SetData_Grade(static_cast<uint8_t>(c.saved));
    Save().SetData_ActivityLevel(2, 9);
    EXPECT_EQ(Save().ApplyPlayerGrade(static_cast<uint8_t>(c.grade)), c.resets) << c.saved << " " << c.grade;
    int start = c.grade >= 1 && c.grade <= 8 ? 2 : 1;
    EXPECT_EQ(Save().GetData_ActivityLevel(2), c.resets ? start : 9) << c.saved << " " << c.grade;
  }
}

TEST_F(SaveGameTest, ABadgeOnceEarnedCannotBeClearedThroughTheSetter) {
  Save().ResetData();
  Save().SetData_Badge(8, false);
  EXPECT_FALSE(Save().GetData_Badge(8));
  Save().SetData_Badge(8, true);
  Save().SetData_Badge(8, false);
  EXPECT_TRUE(Save().GetData_Badge(8));
  // Out of range is ignored rather than written past the array.
  Save().SetData_Badge(35, true);
  Save().SetData_ActivityLevel(-1, 4);
  EXPECT_FALSE(Save().GetData_Badge(35));
  EXPECT_EQ(Block()[293], 0);
}

TEST_F(SaveGameTest, IsNewGameLooksAtTheFrameworkPartOnly) {
  Save().ResetData();
  EXPECT_TRUE(Save().IsNewGame());
  Save().GetBlock().runeBits[0] = 1;
  Save().GetBlock().currentZone = 3;
  EXPECT_TRUE(Save().IsNewGame());
  Save().SetData_SceneCount(0, 1);
  EXPECT_FALSE(Save().IsNewGame());
  Save().ResetData();
  Save().SetData_FirstActivation(false);
  EXPECT_FALSE(Save().IsNewGame());
}

TEST_F(SaveGameTest, AGuestOrNoPlayerKeepsEverythingInMemory) {
  for (uint32_t player : {0xFFFFFFFFu, 3u}) {
    StartPlayer(player, -1);
    EXPECT_TRUE(Save().IsNoPersist());
    EXPECT_TRUE(Save().ReadAllData());
    EXPECT_EQ(Save().GetData_ActivityLevel(0), 1) << "no profile: level 1";
    Save().SetData_ModCount(5);
    EXPECT_TRUE(Save().WriteAllData());
    EXPECT_FALSE(testfiles::Exists(SavePath())) << player;
  }
}

TEST_F(SaveGameTest, PlayTimeOfARunKeepsItsOldWrap) {
  Save().ResetData();
  Save().SetData_PlayTime(100);
  Save().AddRunPlayTime(30999);  // 30.999 s: the whole part
  EXPECT_EQ(Save().GetData_PlayTime(), 130u);
  Save().AddRunPlayTime(65536 + 2000);  // the shift drops 65536 ms
  EXPECT_EQ(Save().GetData_PlayTime(), 132u);
  Save().AddRunPlayTime(40000);  // past 32768 ms the run counts negative: -25.536 -> -26
  EXPECT_EQ(Save().GetData_PlayTime(), 106u);
}

}  // namespace
}  // namespace savetest
