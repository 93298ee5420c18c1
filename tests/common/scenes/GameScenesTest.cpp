// The game's scene table and its story rules: the settings scene's way back from
// every scene, the rows that the three play modes swap, play time, the save game's
// erase on the next change, the log line of each scene, and the story's rules for
// the main menu, the zone picker, the adventure and activities left early.
#include <gtest/gtest.h>

#include <map>

#include "../save/SaveEnvironment.h"
#include "../shell/SceneManagerTestSupport.h"
#include "shell/GameSceneManager.h"

namespace {

using game::GameSceneData;
using game::GameSceneManager;
using noxfw::ExitReason;

// Stands in for the menus' selection.
class ChoosingSceneManager : public shelltest::ProbeSceneManager {
 public:
  unsigned long GetMenuSelection() const override { return selection; }
  unsigned long selection = 0;
};

class GameScenesTest
    : public shelltest::SceneManagerFixture<savetest::SaveEnvironment, ChoosingSceneManager> {
 protected:
  void PrepareScenes() override {
    Save().ResetData();
    nox::Settings* s = nox::Settings::s_pSettings;
    s->RegisterBool("Erase Save Game", false, "2.Debug", nullptr);
    s->RegisterBool("Unlock All Adventure Zones", false, "A0.Adventure", nullptr);
    s->RegisterBool("Activate Quest Cheats", false, "!Quests", nullptr);
    s->RegisterBool("Automatically Complete Minigames", false, "!Quests", nullptr);
  }
  unsigned long Change(ExitReason::eExitReason reason) {
    m_pScenes->DoneScene(reason);
    Settle();
    return m_pScenes->GetSceneId();
  }
  // What the title does to show the settings scene.
  void OpenSettings() {
    noxfw::SceneData row = m_pScenes->GetSceneData();
    row.next[ExitReason::Quit] = game::kSceneSettings;
    m_pScenes->SetSceneData(row);
    m_pScenes->DoneScene(ExitReason::Quit);
    Settle();
  }
  unsigned long Next(unsigned long from, ExitReason::eExitReason reason) {
    m_pScenes->SetSceneData(m_pScenes->GetSceneDataFromTable(from));
    return m_pScenes->GetNextScene(reason).id;
  }
  std::map<unsigned long, const noxfw::SceneData*> Rows() const { return m_pScenes->GetSceneTable(); }
};

TEST_F(GameScenesTest, SettingsOpenedFromAnySceneReturnsToThatScene) {
  for (const noxfw::SceneData& row : GameSceneData::StoryMode) {
    GoTo(row.id);
    OpenSettings();
    ASSERT_EQ(m_pScenes->GetSceneId(), 3u) << row.name;
    EXPECT_EQ(Change(ExitReason::Back), row.id) << row.name;
  }
}

TEST_F(GameScenesTest, PlayAgainMenusJumpToTheirActivityInBothTables) {
  EXPECT_EQ(Next(37, ExitReason::Jump), 15u);
  EXPECT_EQ(Next(34, ExitReason::Jump), 16u);
  m_pScenes->SetGameMode(GameSceneManager::Activity);
  EXPECT_EQ(Next(37, ExitReason::Jump), 15u);
  EXPECT_EQ(Next(34, ExitReason::Jump), 16u);
  // Activity mode leads the activities back to the picker, and pin the tail to its pictures.
  EXPECT_EQ(Next(19, ExitReason::Complete), 15u);
  EXPECT_EQ(Next(16, ExitReason::Back), 29u);
}

TEST_F(GameScenesTest, PlayModesSwapRowsAndTheCurrentModeChangesNothing) {
  const auto story = Rows();
  m_pScenes->SetGameMode(GameSceneManager::Story);
  EXPECT_EQ(Rows(), story);
  m_pScenes->SetGameMode(GameSceneManager::Activity);
  const auto activity = Rows();
  EXPECT_NE(activity, story);
  EXPECT_EQ(activity.at(16), &GameSceneData::ActivityMode[0]);
  m_pScenes->SetGameMode(GameSceneManager::Activity);
  EXPECT_EQ(Rows(), activity);

  m_pScenes->SetGameMode(GameSceneManager::Micromods);
  EXPECT_EQ(Rows().at(16), &GameSceneData::StoryMode[3]);
  EXPECT_EQ(Rows().at(19), &GameSceneData::MicromodsMode[0]);
  EXPECT_EQ(Next(31, ExitReason::Complete), 19u);
  for (int reason : {0, 1, 2, 3, 5}) {
    EXPECT_EQ(Next(19, static_cast<ExitReason::eExitReason>(reason)), 31u) << reason;
  }
  m_pScenes->SetGameMode(GameSceneManager::Story);
  EXPECT_EQ(Rows(), story);
}

TEST_F(GameScenesTest, FramesOf50msOrMoreAddNoPlayTime) {
  const uint32_t before = m_pScenes->GetPlayTimeMs();
  m_pScenes->Update(50);
  EXPECT_EQ(m_pScenes->GetPlayTimeMs(), before);
  m_pScenes->Update(49);
  EXPECT_EQ(m_pScenes->GetPlayTimeMs(), before + 49);
}

TEST_F(GameScenesTest, EraseSaveGameActsOnTheNextSceneChangeAndClearsItself) {
  GoTo(28);
  Save().SetData_PlayTime(1234);
  nox::Settings::s_pSettings->SetBoolValue("Erase Save Game", true);
  for (int i = 0; i < 10; ++i) m_pScenes->Update(20);
  EXPECT_EQ(Save().GetData_PlayTime(), 1234u);
  m_pScenes->DoneScene(ExitReason::Back);
  EXPECT_EQ(Save().GetData_PlayTime(), 0u);
  EXPECT_FALSE(nox::Settings::s_pSettings->GetBoolValue("Erase Save Game"));
}

TEST_F(GameScenesTest, EachSceneMadeLogsItsIdAndTableName) {
  GoTo(10);
  EXPECT_EQ(Change(ExitReason::Complete), 11u);
  EXPECT_EQ(Change(ExitReason::Complete), 12u);
  EXPECT_EQ(Change(ExitReason::Complete), 28u);
  const std::string log = testfiles::ReadText(m_Dir / "debug.log");
  const size_t a = log.find("Scene 10 Morvane\n");
  const size_t b = log.find("Scene 11 Quennet\n");
  const size_t c = log.find("Scene 12 Title\n");
  ASSERT_NE(a, std::string::npos);
  ASSERT_NE(b, std::string::npos);
  ASSERT_NE(c, std::string::npos);
  EXPECT_LT(a, b);
  EXPECT_LT(b, c);
}

TEST_F(GameScenesTest, TheMainMenuSendsTheStoryToTheFirstIntroOnlyBeforeTheAdventureWasVisited) {
  GoTo(28);
  m_pScenes->selection = 2;
  Save().GetBlock().adventureFlag = 1;
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Complete).id, 39u);
  Save().GetBlock().adventureFlag = 0;
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Complete).id, 33u);
  // Back and Quit keep the table, whatever is selected.
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Back).id, 28u);
  m_pScenes->selection = 1;
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Complete).id, 29u);
  EXPECT_EQ(m_pScenes->GetGameMode(), GameSceneManager::Activity);
}

TEST_F(GameScenesTest, AZonePickedForTheFirstTimePlaysItsIntroAndAStartedZoneGoesStraightIn) {
  GoTo(33);
  m_pScenes->selection = 3;
  game::GameSaveData& block = Save().GetBlock();
  block.zoneWords[2] = 9;
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Complete).id, 41u);
  EXPECT_EQ(block.currentZone, 2u);
  EXPECT_EQ(block.zoneWords[2], 0u);
  EXPECT_EQ(block.storyFlags[4], 1);
  block.questData[9].inProgress = 1;
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Complete).id, 13u);
  // The zone's complete byte makes it a fresh start again; zone 5 starts at word 4.
  block.questData[11].complete = 1;
  m_pScenes->selection = 5;
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Complete).id, 43u);
  EXPECT_EQ(block.zoneWords[4], 4u);
}

TEST_F(GameScenesTest, TheAdventureEndsInTheOutroOrOpensTheNextZoneOnce) {
  GoTo(13);
  game::GameSaveData& block = Save().GetBlock();
  m_pScenes->SetJumpSceneId(17);
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Jump).id, 17u);
  block.flag1884 = 1;
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Complete).id, 44u);
  EXPECT_EQ(block.flag1884, 0);
  block.storyPending[0] = 1;
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Complete).id, 40u);
  EXPECT_EQ(block.zoneUnlocked[1], 1);
  EXPECT_EQ(block.currentZone, 1u);
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Complete).id, 28u);
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Back).id, 28u);
}

TEST_F(GameScenesTest, AnActivityLeftEarlyOnTheWayBackToZone2ReturnsToTheAdventureAtItsSpot) {
  GoTo(17);
  game::GameSaveData& block = Save().GetBlock();
  block.questData[7].inProgress = 1;
  block.storyFlags[7] = 1;
  block.questState.flag = 1;
  EXPECT_EQ(m_pScenes->GetNextScene(ExitReason::Back).id, 13u);
  EXPECT_EQ(block.storyFlags[7], 0);
  EXPECT_EQ(block.zoneWords[1], 5u);
  EXPECT_EQ(Save().GetHeroinePosition(1).x, nox::Real(2030));
  // Finished activities count in the save game and go on by the table.
  EXPECT_EQ(Change(ExitReason::Complete), 35u);
  EXPECT_EQ(Save().GetData_SceneCount(17), 1);
  EXPECT_TRUE(Save().GetData_SceneCompleted(17));
}

}  // namespace
