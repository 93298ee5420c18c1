// The framework's question flow: the state table, the counting of first answers, the
// end of a round, the limits, scripts that chain states, and the scene's end. Answers
// and hints are checked in the telemetry the platform writes.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "learning/Logger.h"
#include "learning/QuestionManager.h"
#include "ostra/HostConfig.h"
#include "ostra/LogFile.h"
#include "scenes/SceneManager.h"

namespace {

namespace Host = Hollin::Ostra::Host;
using noxfw::QuestionManager;

// Records the operations entered, and lets a test decide the level rules.
class RecordingManager : public QuestionManager {
 public:
  void Setup() override { Enter("Setup"); }
  void Introduction() override { Enter("Introduction"); }
  void Instruction() override { Enter("Instruction"); }
  void SetupQuestion() override {
    Enter("SetupQuestion");
    QuestionManager::SetupQuestion();
  }
  void AskQuestion() override { Enter("AskQuestion"); }
  void WaitForAnswer() override { Enter("WaitForAnswer"); }
  void ProcessAnswer() override {
    Enter("ProcessAnswer");
    QuestionManager::ProcessAnswer();
  }
  void FeedbackCa() override {
    Enter("FeedbackCa");
    QuestionManager::FeedbackCa();
  }
  void FeedbackWa() override {
    Enter("FeedbackWa");
    QuestionManager::FeedbackWa();
  }
  void PlayHint() override {
    Enter("PlayHint");
    QuestionManager::PlayHint();
  }
  void FeedbackComplete() override {
    Enter("FeedbackComplete");
    QuestionManager::FeedbackComplete();
  }
  void RoundComplete() override {
    Enter("RoundComplete");
    QuestionManager::RoundComplete();
  }
  void Leaving() override {
    Enter("Leaving");
    QuestionManager::Leaving();
  }
  bool SublevelUp() override { return up; }
  bool SublevelDown() override { return down; }

  void SetQuestion(uint32_t id, const char* question, const char* answer) {
    m_QuestionId = id;
    m_QuestionText = question;
    m_AnswerText = answer;
  }

  std::vector<std::string> entered;
  bool up = false;
  bool down = false;

 private:
  void Enter(const char* name) { entered.push_back(name); }
};

// Takes the reason a scene ends with, and nothing else.
class EndingSceneManager : public noxfw::SceneManager {
 public:
  void DoneScene(eExitReason reason) override { reasons.push_back(reason); }
  std::vector<int> reasons;
};

class QuestionManagerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/question-test-XXXXXX";
    m_Dir = mkdtemp(pattern);
    Host::HostConfig config;
    config.saveRoot = m_Dir;
    config.playerId = 3;
    config.quiet = true;
    config.logFile = m_Dir + "/automation.log";
    Host::SetHostConfig(config);
    noxfw::Logger::Create();
  }
  void TearDown() override {
    noxfw::Logger::Destroy();
    Host::SetHostConfig(Host::HostConfig());
    std::string command = "rm -rf '" + m_Dir + "'";
    ASSERT_EQ(system(command.c_str()), 0);
  }
  // The telemetry records' types, in order.
  std::vector<std::string> Records() const {
    std::vector<std::string> types;
    std::ifstream in(CLogFile::Instance()->GetPath());
    for (std::string line; std::getline(in, line);) {
      const size_t at = line.find("\"type\":\"");
      if (at == std::string::npos) continue;
      const size_t from = at + 8;
      types.push_back(line.substr(from, line.find('"', from) - from));
    }
    return types;
  }
  std::string Log() const {
    std::ifstream in(CLogFile::Instance()->GetPath());
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }

  std::string m_Dir;
  RecordingManager m_Manager;
};

}  // namespace

TEST_F(QuestionManagerTest, StartsAtLevelOneWithOneSublevelPerLevelAndTwoQuestionsARound) {
  EXPECT_EQ(m_Manager.GetState(), QuestionManager::SetupState);
  EXPECT_EQ(m_Manager.GetLevel(), 1u);
  EXPECT_EQ(m_Manager.GetSublevel(), 1u);
  EXPECT_EQ(m_Manager.GetMaxLevel(), 1u);
  EXPECT_EQ(m_Manager.GetQuestionsPerRound(), 2u);
  EXPECT_EQ(m_Manager.GetRoundCount(), 0u);
  EXPECT_TRUE(m_Manager.IsFirstAttempt());
  EXPECT_FALSE(m_Manager.IsAnyCorrect());
  EXPECT_TRUE(m_Manager.GetCaLoggingActive());
  EXPECT_TRUE(m_Manager.GetWaLoggingActive());
  for (uint32_t level = 1; level <= QuestionManager::kLevelCount; ++level) {
    EXPECT_EQ(m_Manager.GetSublevelsPerLevel(level), 1u) << level;
  }
}

TEST_F(QuestionManagerTest, EachStateEntersItsOwnOperationAndAnUnknownOneNone) {
  const char* const names[] = {"Setup",       "Introduction",  "Instruction",      "SetupQuestion",
                               "AskQuestion", "WaitForAnswer", "ProcessAnswer",    "FeedbackCa",
                               "FeedbackWa",  "PlayHint",      "FeedbackComplete", "RoundComplete",
                               "Leaving"};
  for (int state = 0; state < QuestionManager::kStateCount; ++state) {
    m_Manager.entered.clear();
    m_Manager.SetState(static_cast<QuestionManager::eState>(state));
    // FeedbackComplete moves straight on to the next question.
    if (state != QuestionManager::FeedbackCompleteState) EXPECT_EQ(m_Manager.GetState(), state);
    ASSERT_FALSE(m_Manager.entered.empty()) << state;
    EXPECT_EQ(m_Manager.entered[0], names[state]);
  }
  m_Manager.entered.clear();
  m_Manager.SetState(static_cast<QuestionManager::eState>(13));
  EXPECT_TRUE(m_Manager.entered.empty());
}

TEST_F(QuestionManagerTest, AWrongAnswerThenARightOneCountsOnlyTheWrongButLogsBoth) {
  m_Manager.SetQuestion(7, "3+4", "8");
  m_Manager.SetState(QuestionManager::SetupQuestionState);
  m_Manager.SetState(QuestionManager::ProcessAnswerState);
  m_Manager.SetState(QuestionManager::FeedbackWaState);
  m_Manager.SetQuestion(7, "3+4", "7");
  m_Manager.SetState(QuestionManager::ProcessAnswerState);
  m_Manager.SetState(QuestionManager::FeedbackCaState);

  EXPECT_EQ(m_Manager.GetWaCount(), 1u);
  EXPECT_EQ(m_Manager.GetCaCount(), 0u);
  EXPECT_EQ(m_Manager.GetWaRun(), 1u);
  EXPECT_EQ(m_Manager.GetAnswerCount(), 2u);
  EXPECT_TRUE(m_Manager.IsAnyCorrect());
  EXPECT_FALSE(m_Manager.IsFirstAttempt());
  EXPECT_EQ(Records(), (std::vector<std::string>{"WrongAnswer", "CorrectAnswer"}));
  EXPECT_NE(Log().find("\"3+4\""), std::string::npos);

  // The next question starts afresh: its first answer counts, and breaks the wrong run.
  m_Manager.SetState(QuestionManager::SetupQuestionState);
  EXPECT_TRUE(m_Manager.IsFirstAttempt());
  EXPECT_EQ(m_Manager.GetAnswerCount(), 0u);
  EXPECT_EQ(m_Manager.GetQuestionCount(), 2u);
  m_Manager.SetState(QuestionManager::FeedbackCaState);
  EXPECT_EQ(m_Manager.GetCaCount(), 1u);
  EXPECT_EQ(m_Manager.GetCaRun(), 1u);
  EXPECT_EQ(m_Manager.GetWaRun(), 0u);
}

TEST_F(QuestionManagerTest, AnswersGoUnloggedWhileTheActivityTurnedLoggingOff) {
  m_Manager.SetCaLoggingActive(false);
  m_Manager.SetWaLoggingActive(false);
  m_Manager.SetState(QuestionManager::FeedbackWaState);
  m_Manager.SetState(QuestionManager::FeedbackCaState);
  m_Manager.SetState(QuestionManager::PlayHintState);
  EXPECT_EQ(Records(), std::vector<std::string>{"HintRequest"});
  EXPECT_EQ(m_Manager.GetWaCount(), 1u);
}

TEST_F(QuestionManagerTest, FeedbackCompleteAsksAgainUntilTheRoundIsFull) {
  m_Manager.SetQuestionsPerRound(3);
  for (int i = 0; i < 3; ++i) {
    m_Manager.SetState(QuestionManager::SetupQuestionState);
    m_Manager.entered.clear();
    m_Manager.SetState(QuestionManager::FeedbackCompleteState);
    ASSERT_EQ(m_Manager.entered.size(), 2u);
    EXPECT_EQ(m_Manager.entered[1], i < 2 ? "SetupQuestion" : "RoundComplete") << i;
    m_Manager.SetQuestionCount(i + 1);
  }
  EXPECT_EQ(m_Manager.GetRoundCount(), 1u);
}

TEST_F(QuestionManagerTest, ALevelDecisionStartsTheRoundCountAgain) {
  m_Manager.SetState(QuestionManager::RoundCompleteState);
  m_Manager.SetState(QuestionManager::RoundCompleteState);
  EXPECT_EQ(m_Manager.GetRoundCount(), 2u);
  EXPECT_FALSE(m_Manager.GetSubleveledUp());
  EXPECT_FALSE(m_Manager.GetSubleveledDown());

  m_Manager.down = true;
  m_Manager.SetState(QuestionManager::RoundCompleteState);
  EXPECT_EQ(m_Manager.GetRoundCount(), 0u);
  EXPECT_TRUE(m_Manager.GetSubleveledDown());

  // Up wins over down, which is then not asked.
  m_Manager.up = true;
  m_Manager.SetState(QuestionManager::RoundCompleteState);
  EXPECT_TRUE(m_Manager.GetSubleveledUp());
  EXPECT_FALSE(m_Manager.GetSubleveledDown());
  EXPECT_EQ(m_Manager.GetRoundCount(), 0u);
}

TEST_F(QuestionManagerTest, LimitsClampTheLevelAndTheSublevelOfTheCurrentLevelOnly) {
  m_Manager.SetMaxLevel(5);
  m_Manager.SetLevel(5);
  m_Manager.SetSublevel(4);
  m_Manager.SetSublevelsPerLevel(4, 2);
  EXPECT_EQ(m_Manager.GetSublevel(), 4u);  // another level
  m_Manager.SetSublevelsPerLevel(5, 3);
  EXPECT_EQ(m_Manager.GetSublevel(), 3u);
  EXPECT_EQ(m_Manager.GetSublevelsPerLevel(5), 3u);
  m_Manager.SetMaxLevel(3);
  EXPECT_EQ(m_Manager.GetLevel(), 3u);
  m_Manager.SetMaxLevel(9);
  EXPECT_EQ(m_Manager.GetLevel(), 3u);  // raising the limit leaves the level

  // Levels without a row are refused, and read as one sublevel.
  m_Manager.SetSublevelsPerLevel(0, 7);
  m_Manager.SetSublevelsPerLevel(41, 7);
  EXPECT_EQ(m_Manager.GetSublevelsPerLevel(0), 1u);
  EXPECT_EQ(m_Manager.GetSublevelsPerLevel(41), 1u);
  EXPECT_EQ(m_Manager.GetSublevelsPerLevel(40), 1u);
}

TEST_F(QuestionManagerTest, ScriptsChainStatesOneStepAFrame) {
  m_Manager.SeqWait(40);
  m_Manager.SeqState(QuestionManager::AskQuestionState);
  m_Manager.SeqState(QuestionManager::WaitForAnswerState, 9);
  EXPECT_EQ(m_Manager.GetSequencer().HasSeqID(9), 1);
  m_Manager.Update(20);
  m_Manager.Update(20);  // the wait ends
  EXPECT_TRUE(m_Manager.entered.empty());
  m_Manager.Update(20);
  EXPECT_EQ(m_Manager.entered, std::vector<std::string>{"AskQuestion"});
  EXPECT_EQ(m_Manager.GetState(), QuestionManager::AskQuestionState);
  m_Manager.Update(20);
  EXPECT_EQ(m_Manager.GetState(), QuestionManager::WaitForAnswerState);
  EXPECT_TRUE(m_Manager.GetSequencer().IsEmpty());
}

TEST_F(QuestionManagerTest, LeavingEndsTheSceneCompleteOnlyAfterSomeRightAnswer) {
  EndingSceneManager* scenes = new EndingSceneManager();
  noxfw::SceneManager::sm_pInstance = scenes;
  m_Manager.SetState(QuestionManager::FeedbackWaState);
  m_Manager.SetState(QuestionManager::LeavingState);
  m_Manager.SetState(QuestionManager::FeedbackCaState);
  m_Manager.SetState(QuestionManager::LeavingState);
  EXPECT_EQ(scenes->reasons, (std::vector<int>{noxfw::ExitReason::Incomplete, noxfw::ExitReason::Complete}));
  noxfw::SceneManager::Destroy();

  // Without a scene manager there is nobody to ask, and nothing happens.
  m_Manager.SetState(QuestionManager::LeavingState);
}
