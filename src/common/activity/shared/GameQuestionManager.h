// What every activity of this game adds to the framework's question flow: the level
// rules judged at the end of a round (up at 80 percent right first answers or more,
// down below 60, judged every second round), the activity's slot in the save game,
// points, milestones, and the automation lines a test harness follows ("Name=A1",
// "Level=[..],Sublevel=[..]", "[Correct Answer]", "[Wrong Answer]").
//
// The activities derive from it (A1 to A4) and give their scene id as activity id;
// the save game slot is that id minus 16. Construction reads level, sublevel, round
// count and the counters of the running scene's activity, so that a visit goes on
// where the last one stopped. Changes are written into the save game in memory; the
// scene flow writes the file at its checkpoints.
#pragma once
#include <cstdint>
#include <string>

#include "learning/QuestionManager.h"

namespace game {

class GameSaveGame;

class GameQuestionManager : public noxfw::QuestionManager {
 public:
  static const unsigned long kFirstActivityId = 16;

  GameQuestionManager();
  ~GameQuestionManager() override;

  // The scene id of the activity: 16 to 19 in the activities.
  virtual unsigned long GetActivityId() const { return kFirstActivityId; }
  // Appends a CAchievementEarned record with `id` to the telemetry.
  virtual void AwardAchievement(uint16_t id);
  // The milestone that rising a level earns; none when the id is 0.
  virtual const char* GetMilestoneName() const { return ""; }
  virtual uint16_t GetMilestoneId() const { return 0; }

  // Prints "Name=A1" to "Name=A4".
  void Setup() override;
  // Prints "Level=[%d],Sublevel=[%d]".
  void AskQuestion() override;
  void FeedbackCa() override;
  void FeedbackWa() override;
  // The framework's hint record and the hint button's sound.
  void PlayHint() override;
  // After the framework's judgement, a second round without a decision starts the
  // count again; the round count and the counters are saved either way.
  void RoundComplete() override;

  void SetMaxLevel(uint32_t level) override;
  void SetSublevelsPerLevel(uint32_t level, uint32_t count) override;
  bool SublevelUp() override;
  bool SublevelDown() override;

  // Points never go below 0; prints "AddPoints(%d) Points=[%d]".
  void AddPoints(int32_t n);
  int32_t GetPoints() const { return m_Points; }

  // The share of right first answers, 0 to 100 (in 8 bits, as it was always taken);
  // false when nothing was answered since the last judgement.
  bool GetPercentCorrect(uint8_t& percent) const;

  // The activity's first-visit flag in the save game: set until a question was asked.
  bool IsFirstVisit() const;
  void ClearFirstVisit();

 protected:
  // The activity's save game slot, or -1 when there is no save game or no slot.
  int GetSaveSlot() const;
  void SaveLevel();
  void SaveRound();
  void ClearCounters();

  int32_t m_Points = 0;
  bool m_bActivityFlag = false;  // for the activities' own use
};

}  // namespace game
