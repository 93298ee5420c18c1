#include "activity/shared/GameQuestionManager.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "core/Debug.h"
#include "learning/Logger.h"
#include "ostra/LogFile.h"
#include "ostra/LogRecords.h"
#include "ostra/Milestones.h"
#include "save/GameSaveGame.h"
#include "shell/GameSceneManager.h"

namespace game {

namespace {

// The stock sound of the hint button, in the category no rule or pause touches.
const char* const kHintSound = "h_OSTM_HintButtonSfx_6";
const unsigned long kHintCategory = 12;

// The level moves up from this share of right first answers, and down below the other.
const uint8_t kRisePercent = 80;
const uint8_t kStayPercent = 60;

// Which activity a scene id is (slot 0 to 7), or -1.
int SlotOf(unsigned long sceneId) {
  const long slot = static_cast<long>(sceneId) - static_cast<long>(GameQuestionManager::kFirstActivityId);
  return slot >= 0 && slot < kSaveActivities ? static_cast<int>(slot) : -1;
}

uint8_t* FirstVisitFlag(GameSaveData& block, int slot) {
  switch (slot) {
    case 0:
      return &block.ridingFirstVisit;
    case 1:
      return &block.archeryFirstVisit;
    case 2:
      return &block.tripletsFirstVisit;
    case 3:
      return &block.pinTailFirstVisit;
    default:
      return nullptr;
  }
}

}  // namespace

GameQuestionManager::GameQuestionManager() {
  // The running scene is the activity being built; without one, the first activity.
  GameSceneManager* scenes = GameSceneManager::Get();
  const int slot = SlotOf(scenes ? scenes->GetSceneId() : kFirstActivityId);
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (!save || slot < 0) return;
  m_Level = save->GetData_ActivityLevel(slot);
  m_Sublevel = save->GetData_ActivitySublevel(slot);
  m_RoundCount = save->GetData_ActivityRound(slot);
  m_CaCount = save->GetData_ActivityCa(slot);
  m_WaCount = save->GetData_ActivityWa(slot);
  // A damaged slot must not send the level rules below the first level.
  m_Level = std::max<uint32_t>(m_Level, 1);
  m_Sublevel = std::max<uint32_t>(m_Sublevel, 1);
}

GameQuestionManager::~GameQuestionManager() {}

int GameQuestionManager::GetSaveSlot() const {
  return GameSaveGame::s_pSaveGame ? SlotOf(GetActivityId()) : -1;
}

void GameQuestionManager::SaveLevel() {
  const int slot = GetSaveSlot();
  if (slot < 0) return;
  GameSaveGame::s_pSaveGame->SetData_ActivityLevel(slot, static_cast<uint8_t>(m_Level));
  GameSaveGame::s_pSaveGame->SetData_ActivitySublevel(slot, static_cast<uint8_t>(m_Sublevel));
}

void GameQuestionManager::SaveRound() {
  const int slot = GetSaveSlot();
  if (slot < 0) return;
  GameSaveGame::s_pSaveGame->SetData_ActivityRound(slot, static_cast<uint16_t>(m_RoundCount));
  GameSaveGame::s_pSaveGame->SetData_ActivityCa(slot, static_cast<uint16_t>(m_CaCount));
  GameSaveGame::s_pSaveGame->SetData_ActivityWa(slot, static_cast<uint16_t>(m_WaCount));
}

void GameQuestionManager::ClearCounters() {
  m_CaCount = 0;
  m_WaCount = 0;
  m_CaRun = 0;
  m_WaRun = 0;
}

bool GameQuestionManager::IsFirstVisit() const {
  const int slot = GetSaveSlot();
  if (slot < 0) return false;
  const uint8_t* flag = FirstVisitFlag(GameSaveGame::s_pSaveGame->GetBlock(), slot);
  return flag && *flag != 0;
}

void GameQuestionManager::ClearFirstVisit() {
  const int slot = GetSaveSlot();
  if (slot < 0) return;
  if (uint8_t* flag = FirstVisitFlag(GameSaveGame::s_pSaveGame->GetBlock(), slot)) *flag = 0;
}

void GameQuestionManager::AwardAchievement(uint16_t id) {
  CLogFile::Instance()->Append(LogData::Foxglove::CAchievementEarned(id));
}

void GameQuestionManager::Setup() {
  noxfw::QuestionManager::Setup();
  nox::AutomationPrintf("Name=A%lu", GetActivityId() - kFirstActivityId + 1);
}

void GameQuestionManager::AskQuestion() {
  noxfw::QuestionManager::AskQuestion();
  nox::AutomationPrintf("Level=[%u],Sublevel=[%u]", m_Level, m_Sublevel);
}

void GameQuestionManager::FeedbackCa() {
  noxfw::QuestionManager::FeedbackCa();
  nox::AutomationPrintf("[Correct Answer]");
}

void GameQuestionManager::FeedbackWa() {
  noxfw::QuestionManager::FeedbackWa();
  nox::AutomationPrintf("[Wrong Answer]");
}

void GameQuestionManager::PlayHint() {
  noxfw::QuestionManager::PlayHint();
  SeqStreamingSound(kHintSound, false, kHintCategory);
}

void GameQuestionManager::RoundComplete() {
  noxfw::QuestionManager::RoundComplete();
  // Two rounds in the middle band: the next judgement starts from nothing.
  if (GetRoundCount() > 1) {
    ClearCounters();
    SetRoundCount(0);
  }
  SaveRound();
}

void GameQuestionManager::SetMaxLevel(uint32_t level) {
  noxfw::QuestionManager::SetMaxLevel(level);
  SaveLevel();
}

void GameQuestionManager::SetSublevelsPerLevel(uint32_t level, uint32_t count) {
  noxfw::QuestionManager::SetSublevelsPerLevel(level, count);
  SaveLevel();
}

bool GameQuestionManager::GetPercentCorrect(uint8_t& percent) const {
  const uint32_t answers = m_CaCount + m_WaCount;
  if (answers == 0) return false;
  percent = static_cast<uint8_t>(100u * m_CaCount / answers);
  return true;
}

bool GameQuestionManager::SublevelUp() {
  uint8_t percent = 0;
  const bool rises = GetRoundCount() > 1 && GetPercentCorrect(percent) && percent >= kRisePercent;
  if (GetMilestoneId() != 0 && rises) {
    const std::string name = GetMilestoneName();
    const std::vector<std::string> reached = CMilestones::Get();
    if (std::find(reached.begin(), reached.end(), name) == reached.end()) {
      CMilestones::Add(name);
      AwardAchievement(GetMilestoneId());
    }
  }
  if (!rises) return false;
  ClearCounters();
  if (m_Sublevel < GetSublevelsPerLevel(m_Level)) {
    ++m_Sublevel;
  } else if (m_Level < m_MaxLevel) {
    m_Sublevel = 1;
    ++m_Level;
    if (GameSceneManager* scenes = GameSceneManager::Get()) scenes->ShowLevelUp();
    noxfw::Logger::LogLevelUp(static_cast<int>(m_Level), static_cast<int>(m_Sublevel));
  }
  SaveLevel();
  return true;
}

bool GameQuestionManager::SublevelDown() {
  if (GetRoundCount() < 2) return false;
  uint8_t percent = 0;
  if (!GetPercentCorrect(percent) || percent >= kStayPercent) return false;
  ClearCounters();
  bool moved = false;
  if (m_Sublevel > 1) {
    --m_Sublevel;
    moved = true;
  } else if (m_Level > 1) {
    --m_Level;
    m_Sublevel = GetSublevelsPerLevel(m_Level);
    moved = true;
  }
  if (moved) noxfw::Logger::LogLevelDown(static_cast<int>(m_Level), static_cast<int>(m_Sublevel));
  SaveLevel();
  return true;
}

void GameQuestionManager::AddPoints(int32_t n) {
  const int64_t points = static_cast<int64_t>(m_Points) + n;
  m_Points = static_cast<int32_t>(std::min<int64_t>(std::max<int64_t>(points, 0), INT32_MAX));
  nox::AutomationPrintf("AddPoints(%d) Points=[%d]", n, m_Points);
}

}  // namespace game
