#include "learning/QuestionManager.h"

#include "learning/Logger.h"
#include "scenes/SceneManager.h"
#include "sequencer/AnimSeqItems.h"
#include "sequencer/ChangeStateSeqItem.h"
#include "sequencer/FaderSeqItem.h"
#include "sequencer/SoundSeqItems.h"
#include "sequencer/WaitSeqItem.h"

namespace noxfw {

namespace {

typedef void (QuestionManager::*StateOperation)();

// The operation each state enters, by value.
const StateOperation kStateOperations[QuestionManager::kStateCount] = {
    &QuestionManager::Setup,         &QuestionManager::Introduction,     &QuestionManager::Instruction,
    &QuestionManager::SetupQuestion, &QuestionManager::AskQuestion,      &QuestionManager::WaitForAnswer,
    &QuestionManager::ProcessAnswer, &QuestionManager::FeedbackCa,       &QuestionManager::FeedbackWa,
    &QuestionManager::PlayHint,      &QuestionManager::FeedbackComplete, &QuestionManager::RoundComplete,
    &QuestionManager::Leaving,
};

}  // namespace

QuestionManager::QuestionManager() {
  for (uint32_t& count : m_SublevelsPerLevel) count = 1;
}

QuestionManager::~QuestionManager() {}

void QuestionManager::Update(unsigned long ms) {
  m_Sequencer.Update(ms);
}

void QuestionManager::SetState(eState state) {
  m_State = state;
  const unsigned index = static_cast<unsigned>(state);
  if (index < static_cast<unsigned>(kStateCount)) (this->*kStateOperations[index])();
}

void QuestionManager::SetupQuestion() {
  IncrementQuestionCount(1);
  m_bFirstAttempt = true;
  SetAnswerCount(0);
}

void QuestionManager::ProcessAnswer() {
  IncrementAnswerCount(1);
}

// Every answer is logged, but only the first one to a question counts for the level.
void QuestionManager::FeedbackCa() {
  m_bAnyCorrect = true;
  if (m_bCaLoggingActive) Logger::LogAnswer(m_QuestionId, m_QuestionText, m_AnswerText, true);
  if (m_bFirstAttempt) IncrementCaCount(1);
  m_bFirstAttempt = false;
}

void QuestionManager::FeedbackWa() {
  if (m_bWaLoggingActive) Logger::LogAnswer(m_QuestionId, m_QuestionText, m_AnswerText, false);
  if (m_bFirstAttempt) IncrementWaCount(1);
  m_bFirstAttempt = false;
}

void QuestionManager::PlayHint() {
  Logger::LogHint(m_QuestionId, m_QuestionText);
}

void QuestionManager::FeedbackComplete() {
  if (GetQuestionCount() < GetQuestionsPerRound()) {
    SetState(SetupQuestionState);
  } else {
    SetState(RoundCompleteState);
  }
}

void QuestionManager::RoundComplete() {
  IncrementRoundCount(1);
  m_bSubleveledUp = SublevelUp();
  m_bSubleveledDown = !m_bSubleveledUp && SublevelDown();
  if (m_bSubleveledUp || m_bSubleveledDown) SetRoundCount(0);
}

void QuestionManager::Leaving() {
  if (!SceneManager::sm_pInstance) return;
  SceneManager::sm_pInstance->DoneScene(m_bAnyCorrect ? ExitReason::Complete : ExitReason::Incomplete);
}

void QuestionManager::IncrementCaCount(uint32_t n) {
  m_CaCount += n;
  SetWaRun(0);
  IncrementCaRun(n);
}

void QuestionManager::IncrementWaCount(uint32_t n) {
  m_WaCount += n;
  SetCaRun(0);
  IncrementWaRun(n);
}

void QuestionManager::SetMaxLevel(uint32_t level) {
  m_MaxLevel = level;
  if (m_Level > level) m_Level = level;
}

void QuestionManager::SetSublevelsPerLevel(uint32_t level, uint32_t count) {
  if (level < 1 || level > kLevelCount) return;
  m_SublevelsPerLevel[level - 1] = count;
  if (level == m_Level && m_Sublevel > count) m_Sublevel = count;
}

uint32_t QuestionManager::GetSublevelsPerLevel(uint32_t level) const {
  if (level < 1 || level > kLevelCount) return 1;
  return m_SublevelsPerLevel[level - 1];
}

void QuestionManager::StartTutorial(unsigned long id, const char* name, const char* subName) {
  std::string text = "tutorialId=";
  if (name) text += name;
  if (subName && *subName) text += subName;
  // The text goes nowhere: Logger::LogTutorialStart was never called for it.
  (void)text;
}

// Script builders.

Sequencer::iterator QuestionManager::SeqState(eState state, unsigned long id) {
  return m_Sequencer.AppendItem(new ChangeStateSeqItem(this, state, id));
}

Sequencer::iterator QuestionManager::SeqFunction(ClassFuncSeqItem* item) {
  return m_Sequencer.AppendItem(item);
}

Sequencer::iterator QuestionManager::SeqRetBoolFunction(ClassCheckBoolFuncSeqItem* item) {
  return m_Sequencer.AppendItem(item);
}

Sequencer::iterator QuestionManager::SeqWait(unsigned long ms, unsigned long id) {
  return m_Sequencer.AppendItem(new WaitSeqItem(ms, id));
}

Sequencer::iterator QuestionManager::SeqFade(bool fadeIn, unsigned short ms, unsigned long id) {
  return m_Sequencer.AppendItem(new FaderSeqItem(ms, fadeIn, id));
}

Sequencer::iterator QuestionManager::SeqAnim(nox::TileAnimation& animation, nox::NameHash sequence, bool wait,
                                             unsigned long id) {
  return m_Sequencer.AppendItem(new PlayAnimSequenceSeqItem(&animation, sequence, 0, !wait, id));
}

Sequencer::iterator QuestionManager::SeqHold(nox::TileAnimation& animation, nox::NameHash sequence,
                                             long frame, unsigned long id) {
  return m_Sequencer.AppendItem(new HoldAnimSequenceSeqItem(&animation, sequence, frame, id));
}

Sequencer::iterator QuestionManager::SeqMemorySound(const char* name, bool bind, unsigned long category,
                                                    unsigned long id) {
  return m_Sequencer.AppendItem(new PlayMemorySoundSeqItem(name, category, id, !bind));
}

Sequencer::iterator QuestionManager::SeqMemorySound(nox::MemorySound& sound, bool bind,
                                                    unsigned long category, unsigned long id) {
  return m_Sequencer.AppendItem(new PlayMyMemorySoundSeqItem(&sound, category, !bind, id));
}

Sequencer::iterator QuestionManager::SeqStreamingSound(const char* name, bool bind, unsigned long category,
                                                       unsigned long id) {
  return m_Sequencer.AppendItem(new PlayStreamingSoundSeqItem(name, category, id, !bind));
}

Sequencer::iterator QuestionManager::SeqStreamingSound(nox::StreamingSound& sound, const char* name,
                                                       bool bind, unsigned long category, unsigned long id) {
  return m_Sequencer.AppendItem(
      new PlayMyStreamingSoundSeqItem(&sound, category, name ? name : "", !bind, id));
}

}  // namespace noxfw
