// The game's question flow: where the level goes at the end of a round, what is kept
// in the activity's save slot, the milestone, the points and the automation lines a
// test harness follows. Telemetry is read back from the platform's log file.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "../save/SaveEnvironment.h"
#include "activity/shared/GameQuestionManager.h"
#include "ostra/LogFile.h"
#include "ostra/Milestones.h"
#include "shell/GameSceneManager.h"

namespace {

using game::GameQuestionManager;
using game::GameSceneManager;
using noxfw::QuestionManager;

// An activity as the derived classes make one: its scene id and its milestone.
class TestQuestionManager : public GameQuestionManager {
 public:
  explicit TestQuestionManager(unsigned long activityId = 17, uint16_t milestoneId = 0)
      : m_ActivityId(activityId), m_MilestoneId(milestoneId) {}
  unsigned long GetActivityId() const override { return m_ActivityId; }
  const char* GetMilestoneName() const override { return "Archery Level Up"; }
  uint16_t GetMilestoneId() const override { return m_MilestoneId; }

  // Level, sublevel and the counters as a judgement finds them.
  void Prepare(uint32_t level, uint32_t sublevel, uint32_t ca, uint32_t wa, uint32_t rounds) {
    SetLevel(level);
    SetSublevel(sublevel);
    SetCaCount(ca);
    SetWaCount(wa);
    SetCaRun(1);
    SetWaRun(1);
    SetRoundCount(rounds);
  }

 private:
  unsigned long m_ActivityId;
  uint16_t m_MilestoneId;
};

class QuestionFlowTest : public savetest::SaveEnvironment {
 protected:
  void SetUp() override {
    SaveEnvironment::SetUp();
    Save().ResetData();
    GameSceneManager::Create();
    m_pScenes = GameSceneManager::Get();
  }
  void TearDown() override {
    GameSceneManager::Destroy();
    SaveEnvironment::TearDown();
  }
  // Types of the telemetry records, in order, with the level text of level records.
  std::vector<std::string> Records() const {
    std::vector<std::string> records;
    std::ifstream in(CLogFile::Instance()->GetPath());
    for (std::string line; std::getline(in, line);) {
      std::string record = Field(line, "type");
      const std::string level = Field(line, "level");
      if (!level.empty()) record += " " + level;
      records.push_back(record);
    }
    return records;
  }
  static std::string Field(const std::string& line, const std::string& key) {
    const std::string start = "\"" + key + "\":\"";
    const size_t at = line.find(start);
    if (at == std::string::npos) return std::string();
    const size_t from = at + start.size();
    return line.substr(from, line.find('"', from) - from);
  }
  std::string AutomationLog() const { return testfiles::ReadText(m_Dir / "debug.log"); }
  bool LevelUpShown() { return m_pScenes->GetRewardPopUp().IsNotificationShowing(); }

  GameSceneManager* m_pScenes = nullptr;
};

}  // namespace

TEST_F(QuestionFlowTest, ConstructionGoesOnFromTheRunningActivitysSlot) {
  Save().SetData_ActivityLevel(1, 3);
  Save().SetData_ActivitySublevel(1, 2);
  Save().SetData_ActivityRound(1, 1);
  Save().SetData_ActivityCa(1, 4);
  Save().SetData_ActivityWa(1, 1);
  m_pScenes->SetSceneData(m_pScenes->GetSceneDataFromTable(17));
  TestQuestionManager manager(17);
  EXPECT_EQ(manager.GetLevel(), 3u);
  EXPECT_EQ(manager.GetSublevel(), 2u);
  EXPECT_EQ(manager.GetRoundCount(), 1u);
  EXPECT_EQ(manager.GetCaCount(), 4u);
  EXPECT_EQ(manager.GetWaCount(), 1u);
  EXPECT_EQ(manager.GetPoints(), 0);

  // A damaged slot starts at the first level rather than below it.
  Save().SetData_ActivityLevel(1, 0);
  Save().SetData_ActivitySublevel(1, 0);
  TestQuestionManager damaged(17);
  EXPECT_EQ(damaged.GetLevel(), 1u);
  EXPECT_EQ(damaged.GetSublevel(), 1u);
}

TEST_F(QuestionFlowTest, TheLevelFollowsTheShareOfRightFirstAnswersEverySecondRound) {
  struct Case {
    uint32_t ca, wa, roundsBefore;
    uint32_t level, sublevel;  // after the round
    uint32_t roundsAfter, caAfter;
  };
  // From level 2 sublevel 1, two sublevels a level.
  const Case cases[] = {
      {4, 1, 1, 2, 2, 0, 0},     // 80 percent in the second round rises
      {4, 1, 0, 2, 1, 1, 4},     // the first round is never judged
      {79, 21, 1, 2, 1, 0, 0},   // 79 stays, and the judgement starts again
      {3, 2, 1, 2, 1, 0, 0},     // 60 stays
      {59, 41, 1, 1, 1, 0, 0},   // 59 falls to the top sublevel of level 1 (which has one)
      {59, 41, 0, 2, 1, 1, 59},  // but not in the first round
      {0, 5, 1, 1, 1, 0, 0},     // nothing right
  };
  for (const Case& c : cases) {
    TestQuestionManager manager;
    manager.SetMaxLevel(5);
    manager.SetSublevelsPerLevel(2, 2);
    manager.Prepare(2, 1, c.ca, c.wa, c.roundsBefore);
    manager.SetState(QuestionManager::RoundCompleteState);
    const std::string which =
        std::to_string(c.ca) + "/" + std::to_string(c.wa) + " after " + std::to_string(c.roundsBefore);
    EXPECT_EQ(manager.GetLevel(), c.level) << which;
    EXPECT_EQ(manager.GetSublevel(), c.sublevel) << which;
    EXPECT_EQ(manager.GetRoundCount(), c.roundsAfter) << which;
    EXPECT_EQ(manager.GetCaCount(), c.caAfter) << which;
    // What stays in memory is what the slot holds.
    EXPECT_EQ(Save().GetData_ActivityRound(1), c.roundsAfter) << which;
    EXPECT_EQ(Save().GetData_ActivityCa(1), c.caAfter) << which;
  }
  EXPECT_FALSE(LevelUpShown());  // sublevels alone never show the banner
}

TEST_F(QuestionFlowTest, RisingPastTheLastSublevelShowsTheBannerAndLogsTheNewLevel) {
  TestQuestionManager manager;
  manager.SetMaxLevel(4);
  manager.SetSublevelsPerLevel(2, 3);
  manager.Prepare(2, 3, 9, 1, 2);
  EXPECT_TRUE(manager.SublevelUp());
  EXPECT_EQ(manager.GetLevel(), 3u);
  EXPECT_EQ(manager.GetSublevel(), 1u);
  EXPECT_EQ(manager.GetCaRun(), 0u);
  EXPECT_EQ(manager.GetWaRun(), 0u);
  EXPECT_TRUE(LevelUpShown());
  EXPECT_EQ(Records(), std::vector<std::string>{"LevelUp 3.1"});
  EXPECT_EQ(Save().GetData_ActivityLevel(1), 3);
  EXPECT_EQ(Save().GetData_ActivitySublevel(1), 1);

  // Falling from sublevel 1 lands on the last sublevel of the level below.
  manager.Prepare(3, 1, 1, 9, 2);
  EXPECT_TRUE(manager.SublevelDown());
  EXPECT_EQ(manager.GetLevel(), 2u);
  EXPECT_EQ(manager.GetSublevel(), 3u);
  EXPECT_EQ(Records().back(), "LevelDown 2.3");
}

TEST_F(QuestionFlowTest, AtTheEndsTheJudgementClearsTheCountersButMovesAndShowsNothing) {
  TestQuestionManager manager;
  manager.SetMaxLevel(3);
  manager.Prepare(3, 1, 5, 0, 2);
  EXPECT_TRUE(manager.SublevelUp());
  EXPECT_EQ(manager.GetLevel(), 3u);
  EXPECT_EQ(manager.GetSublevel(), 1u);
  EXPECT_EQ(manager.GetCaCount(), 0u);
  EXPECT_EQ(manager.GetCaRun(), 0u);
  EXPECT_FALSE(LevelUpShown());

  manager.Prepare(1, 1, 0, 5, 2);
  EXPECT_TRUE(manager.SublevelDown());
  EXPECT_EQ(manager.GetLevel(), 1u);
  EXPECT_EQ(manager.GetSublevel(), 1u);
  EXPECT_EQ(manager.GetWaCount(), 0u);
  EXPECT_EQ(manager.GetWaRun(), 0u);
  EXPECT_TRUE(Records().empty());

  // Nothing answered since the last judgement decides nothing either way.
  manager.Prepare(2, 1, 0, 0, 3);
  EXPECT_FALSE(manager.SublevelUp());
  EXPECT_FALSE(manager.SublevelDown());
}

TEST_F(QuestionFlowTest, ValuesGoIntoTheSlotOfTheActivityAndNoOther) {
  const savetest::Bytes before = Block();
  TestQuestionManager manager(19);
  manager.SetMaxLevel(5);
  manager.Prepare(2, 1, 1, 0, 0);
  manager.SetState(QuestionManager::RoundCompleteState);
  EXPECT_EQ(Save().GetData_ActivityRound(3), 1);
  EXPECT_EQ(Save().GetData_ActivityCa(3), 1);
  manager.Prepare(2, 1, 4, 0, 1);
  manager.SetState(QuestionManager::RoundCompleteState);
  EXPECT_EQ(Save().GetData_ActivityLevel(3), 3);
  EXPECT_EQ(Save().GetData_ActivitySublevel(3), 1);
  EXPECT_EQ(Save().GetData_ActivityRound(3), 0);
  const savetest::Bytes after = Block();
  for (int slot = 0; slot < 3; ++slot) {
    EXPECT_EQ(after[5 + slot], before[5 + slot]) << slot;            // level
    EXPECT_EQ(after[13 + slot], before[13 + slot]) << slot;          // sublevel
    EXPECT_EQ(after[22 + 2 * slot], before[22 + 2 * slot]) << slot;  // round
  }

  // Limits are saved when they move the level.
  manager.SetMaxLevel(2);
  EXPECT_EQ(Save().GetData_ActivityLevel(3), 2);
}

TEST_F(QuestionFlowTest, TheMilestoneIsEarnedOnceWithTheFirstRise) {
  TestQuestionManager manager(17, 41);
  manager.SetMaxLevel(9);
  manager.Prepare(2, 1, 1, 9, 2);
  manager.SublevelUp();  // no rise: nothing earned
  manager.Prepare(2, 1, 9, 1, 2);
  manager.SublevelUp();
  manager.Prepare(3, 1, 9, 1, 2);
  manager.SublevelUp();
  const std::vector<std::string> reached = CMilestones::Get();
  EXPECT_EQ(std::count(reached.begin(), reached.end(), "Archery Level Up"), 1);
  const std::vector<std::string> records = Records();
  EXPECT_EQ(std::count(records.begin(), records.end(), "AchievementEarned"), 1);
  EXPECT_NE(testfiles::ReadText(CLogFile::Instance()->GetPath()).find("\"id\":41"), std::string::npos);
}

TEST_F(QuestionFlowTest, TheHarnessFollowsTheFlowInTheAutomationLog) {
  TestQuestionManager manager(18);
  manager.SetLevel(2);
  manager.SetState(QuestionManager::SetupState);
  manager.SetState(QuestionManager::AskQuestionState);
  manager.SetState(QuestionManager::FeedbackWaState);
  manager.SetState(QuestionManager::FeedbackCaState);
  manager.AddPoints(5);
  manager.AddPoints(-9);
  manager.SetState(QuestionManager::PlayHintState);
  EXPECT_EQ(manager.GetPoints(), 0);
  EXPECT_FALSE(manager.GetSequencer().IsEmpty());  // the hint button's sound

  const std::string log = AutomationLog();
  const char* const lines[] = {
      "Name=A3\n",          "Level=[2],Sublevel=[1]\n",  "[Wrong Answer]\n",
      "[Correct Answer]\n", "AddPoints(5) Points=[5]\n", "AddPoints(-9) Points=[0]\n"};
  size_t at = 0;
  for (const char* line : lines) {
    const size_t found = log.find(line, at);
    ASSERT_NE(found, std::string::npos) << line;
    at = found;
  }
  EXPECT_EQ(Records(), (std::vector<std::string>{"WrongAnswer", "CorrectAnswer", "HintRequest"}));
}

TEST_F(QuestionFlowTest, TheFirstVisitFlagIsTheActivitysOwn) {
  TestQuestionManager triplets(18);
  TestQuestionManager archery(17);
  EXPECT_TRUE(triplets.IsFirstVisit());
  triplets.ClearFirstVisit();
  EXPECT_FALSE(triplets.IsFirstVisit());
  EXPECT_EQ(Save().GetBlock().tripletsFirstVisit, 0);
  EXPECT_TRUE(archery.IsFirstVisit());
}
