// The loop of a skill activity as a state machine: set up, introduce, instruct, then
// rounds of ask, wait, judge and feedback, and finally leave. Each state is a virtual
// operation; SetState stores the state and calls its operation. The timed script of a
// state runs on the manager's own sequencer, and states chain by queuing SeqState at
// the end of that script rather than by calling one another.
//
// The base keeps the counters that the level rules read (first answers only count for
// the level; every answer is logged) and gives the bodies of the few states that have
// one. The game's level rules live in SublevelUp and SublevelDown of a subclass.
//
// The owning scene creates the manager, sets its limits, enters Setup and calls Update
// once a frame. State operations entered through SeqState run inside that step of the
// script: they may append to the sequencer, but must not Empty() it (that would delete
// the running step); scripts are broken off from input handlers instead.
#pragma once
#include <cstdint>
#include <string>

#include "core/HashString.h"
#include "sequencer/ClassFuncSeqItem.h"
#include "sequencer/Sequencer.h"

namespace nox {
class MemorySound;
class StreamingSound;
class TileAnimation;
}  // namespace nox

namespace noxfw {

class QuestionManager {
 public:
  enum eState {
    SetupState = 0,
    IntroductionState = 1,
    InstructionState = 2,
    SetupQuestionState = 3,
    AskQuestionState = 4,
    WaitForAnswerState = 5,
    ProcessAnswerState = 6,
    FeedbackCaState = 7,
    FeedbackWaState = 8,
    PlayHintState = 9,
    FeedbackCompleteState = 10,
    RoundCompleteState = 11,
    LeavingState = 12,
  };
  static const int kStateCount = 13;
  static const uint32_t kLevelCount = 40;  // levels 1 to 40 have a sublevel count

  QuestionManager();
  virtual ~QuestionManager();

  // Runs the script; nothing else happens per frame.
  virtual void Update(unsigned long ms);

  // The states. Those with a body in the base are described in the .cpp.
  virtual void Setup() {}
  virtual void Introduction() {}
  virtual void Instruction() {}
  virtual void SetupQuestion();
  virtual void AskQuestion() {}
  virtual void WaitForAnswer() {}
  virtual void ProcessAnswer();
  virtual void FeedbackCa();
  virtual void FeedbackWa();
  virtual void PlayHint();
  virtual void FeedbackComplete();
  virtual void RoundComplete();
  virtual void Leaving();

  // Lowers the level to the new maximum when it is above it.
  virtual void SetMaxLevel(uint32_t level);
  virtual uint32_t GetMaxLevel() const { return m_MaxLevel; }
  virtual void SetQuestionsPerRound(uint32_t count) { m_QuestionsPerRound = count; }
  virtual uint32_t GetQuestionsPerRound() const { return m_QuestionsPerRound; }
  // Lowers the sublevel to `count` when `level` is the current one and it is above.
  // Levels outside 1 to 40 are ignored.
  virtual void SetSublevelsPerLevel(uint32_t level, uint32_t count);
  // 1 for a level outside 1 to 40.
  virtual uint32_t GetSublevelsPerLevel(uint32_t level) const;

  virtual uint32_t GetCaCount() const { return m_CaCount; }
  virtual void SetCaCount(uint32_t count) { m_CaCount = count; }
  // Adds to the right answers and their run; a wrong run is broken.
  virtual void IncrementCaCount(uint32_t n);
  virtual uint32_t GetWaCount() const { return m_WaCount; }
  virtual void SetWaCount(uint32_t count) { m_WaCount = count; }
  virtual void IncrementWaCount(uint32_t n);
  virtual uint32_t GetCaRun() const { return m_CaRun; }
  virtual void SetCaRun(uint32_t run) { m_CaRun = run; }
  virtual void IncrementCaRun(uint32_t n) { m_CaRun += n; }
  virtual uint32_t GetWaRun() const { return m_WaRun; }
  virtual void SetWaRun(uint32_t run) { m_WaRun = run; }
  virtual void IncrementWaRun(uint32_t n) { m_WaRun += n; }

  virtual uint32_t GetLevel() const { return m_Level; }
  virtual void SetLevel(uint32_t level) { m_Level = level; }
  virtual uint32_t GetSublevel() const { return m_Sublevel; }
  virtual void SetSublevel(uint32_t sublevel) { m_Sublevel = sublevel; }
  virtual uint32_t GetRound() const { return m_Round; }
  virtual void SetRound(uint32_t round) { m_Round = round; }
  virtual uint32_t GetQuestion() const { return m_Question; }
  virtual void SetQuestion(uint32_t question) { m_Question = question; }

  virtual uint32_t GetRoundCount() const { return m_RoundCount; }
  virtual void SetRoundCount(uint32_t count) { m_RoundCount = count; }
  virtual void IncrementRoundCount(uint32_t n) { m_RoundCount += n; }
  virtual uint32_t GetQuestionCount() const { return m_QuestionCount; }
  virtual void SetQuestionCount(uint32_t count) { m_QuestionCount = count; }
  virtual void IncrementQuestionCount(uint32_t n) { m_QuestionCount += n; }
  virtual uint32_t GetAnswerCount() const { return m_AnswerCount; }
  virtual void SetAnswerCount(uint32_t count) { m_AnswerCount = count; }
  virtual void IncrementAnswerCount(uint32_t n) { m_AnswerCount += n; }

  virtual eState GetState() const { return m_State; }
  // Stores the state, then calls its operation. An unknown value is stored and
  // calls nothing.
  virtual void SetState(eState state);

  virtual bool GetSubleveledUp() const { return m_bSubleveledUp; }
  virtual void SetSubleveledUp(bool up) { m_bSubleveledUp = up; }
  virtual bool GetSubleveledDown() const { return m_bSubleveledDown; }
  virtual void SetSubleveledDown(bool down) { m_bSubleveledDown = down; }
  virtual bool GetCaLoggingActive() const { return m_bCaLoggingActive; }
  virtual void SetCaLoggingActive(bool active) { m_bCaLoggingActive = active; }
  virtual bool GetWaLoggingActive() const { return m_bWaLoggingActive; }
  virtual void SetWaLoggingActive(bool active) { m_bWaLoggingActive = active; }

  // Composes "tutorialId=" and the two names, and hands the text to nobody: the
  // telemetry of tutorials was never switched on.
  virtual void StartTutorial(unsigned long id, const char* name, const char* subName);
  // The level rules, run at the end of a round; true when the level moved or was
  // judged. The framework has none.
  virtual bool SublevelUp() { return false; }
  virtual bool SublevelDown() { return false; }

  bool IsFirstAttempt() const { return m_bFirstAttempt; }
  bool IsAnyCorrect() const { return m_bAnyCorrect; }
  Sequencer& GetSequencer() { return m_Sequencer; }

  // Script builders: each appends one step to the manager's sequencer. `id` is the
  // step's ID for TerminateItemID.
  Sequencer::iterator SeqState(eState state, unsigned long id = 0);
  // Prepared steps that call back into the scene (owned by the sequencer from here).
  Sequencer::iterator SeqFunction(ClassFuncSeqItem* item);
  Sequencer::iterator SeqRetBoolFunction(ClassCheckBoolFuncSeqItem* item);
  Sequencer::iterator SeqWait(unsigned long ms, unsigned long id = 0);
  Sequencer::iterator SeqFade(bool fadeIn, unsigned short ms, unsigned long id = 0);
  // With `wait` the script holds until the sequence ends.
  Sequencer::iterator SeqAnim(nox::TileAnimation& animation, nox::NameHash sequence, bool wait,
                              unsigned long id = 0);
  Sequencer::iterator SeqHold(nox::TileAnimation& animation, nox::NameHash sequence, long frame,
                              unsigned long id = 0);
  // Sounds in a category. With `bind` the script is bound to the sound: it holds until
  // the sound ends and a cancelled step stops it. Without, the sound plays on by itself
  // and the script goes on at once. A name makes a sound of the step's own at priority
  // 100; a streaming sound object is loaded with `name` when the step starts, so one
  // object serves a whole script.
  Sequencer::iterator SeqMemorySound(const char* name, bool bind, unsigned long category,
                                     unsigned long id = 0);
  Sequencer::iterator SeqMemorySound(nox::MemorySound& sound, bool bind, unsigned long category,
                                     unsigned long id = 0);
  Sequencer::iterator SeqStreamingSound(const char* name, bool bind, unsigned long category,
                                        unsigned long id = 0);
  Sequencer::iterator SeqStreamingSound(nox::StreamingSound& sound, const char* name, bool bind,
                                        unsigned long category, unsigned long id = 0);

  QuestionManager(const QuestionManager&) = delete;
  QuestionManager& operator=(const QuestionManager&) = delete;

 protected:
  Sequencer m_Sequencer;
  bool m_bFirstAttempt = true;  // no answer to the current question judged yet
  uint32_t m_MaxLevel = 1;
  uint32_t m_CaCount = 0;  // right first answers since the last judgement
  uint32_t m_WaCount = 0;  // wrong first answers since the last judgement
  uint32_t m_CaRun = 0;    // unbroken runs
  uint32_t m_WaRun = 0;
  uint32_t m_Level = 1;
  uint32_t m_Sublevel = 1;
  uint32_t m_Round = 1;
  uint32_t m_Question = 1;
  uint32_t m_RoundCount = 0;     // rounds since the last level change
  uint32_t m_QuestionCount = 0;  // questions asked in this round
  uint32_t m_AnswerCount = 0;    // answers to the current question
  eState m_State = SetupState;
  uint32_t m_QuestionsPerRound = 2;
  uint32_t m_SublevelsPerLevel[kLevelCount];  // [level - 1], each 1 at start
  // What the log says of the current question; the activity fills them in.
  uint32_t m_QuestionId = 0;
  std::string m_QuestionText;
  std::string m_AnswerText;
  bool m_bSubleveledUp = false;
  bool m_bSubleveledDown = false;
  bool m_bCaLoggingActive = true;
  bool m_bWaLoggingActive = true;
  bool m_bAnyCorrect = false;  // some answer in this visit was right
};

}  // namespace noxfw
