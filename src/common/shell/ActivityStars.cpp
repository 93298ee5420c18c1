#include "shell/ActivityStars.h"

#include "core/Settings.h"
#include "save/GameSaveGame.h"

namespace game {

uint32_t ActivityStars::sm_ShownMask = 0;
bool ActivityStars::sm_bShown = false;

namespace {

// The limits of the stars, as the activities save their results.
const uint32_t kRidingScores[2] = {500, 1000};  // at least
const uint32_t kRidingBestTimeMs = 90000;       // at most
const uint32_t kArcheryScoreAbove = 199;
const uint32_t kArcheryBullseyesAbove = 9;
const uint32_t kArcherySecretAbove = 0;
const uint32_t kTripletsPuzzlesAbove = 9;
const uint64_t kTripletsTimesMs[2] = {180000, 60000};  // at most
const uint64_t kPinTheTailPlayedAbove[3] = {10, 21, 34};

struct StarVoices {
  ActivityStars::Description earned;
  ActivityStars::Description open;
};

const StarVoices kVoices[ActivityStars::kNumStars] = {
    {{"KDNA0026", nullptr}, {"KDNA0027", nullptr}},
    {{"KDNA0026", nullptr}, {"KDNA0027", nullptr}},
    {{"KDNA0019", nullptr}, {"KDNA0020", nullptr}},
    {{"KDNA0026", nullptr}, {"KDNA0027", nullptr}},
    {{"KDNA0028", nullptr}, {"KDNA0029", nullptr}},
    {{"KDNA0030", nullptr}, {"KDNA0031", nullptr}},
    {{"KDNA0017", nullptr}, {"KDNA0018", nullptr}},
    {{"KDNA0019", nullptr}, {"KDNA0020", nullptr}},
    {{"KDNA0019", nullptr}, {"KDNA0020", nullptr}},
    {{"KDNA0021", "KDNA0022"}, {"KDNA0023", "KDNA0022"}},
    {{"KDNA0021", "KDNA0022"}, {"KDNA0023", "KDNA0022"}},
    {{"KDNA0024", nullptr}, {"KDNA0025", nullptr}},
};

bool InRange(int star) {
  return star >= 0 && star < ActivityStars::kNumStars;
}

}  // namespace

uint64_t ActivityStars::GetNumPuzzlesPlayed() {
  const GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (!save) return 0;
  uint64_t sum = 0;
  for (uint32_t count : save->GetBlock().pinTailPuzzleCounts) sum += count;
  return sum;
}

bool ActivityStars::StarIsUnlocked(int star) {
  if (!InRange(star)) return false;
  const nox::Settings* settings = nox::Settings::s_pSettings;
  if (settings && settings->GetBoolValue("Unlock All Unlockables")) return true;
  const GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (!save) return false;
  const GameSaveData& data = save->GetBlock();
  // The triplets keep their best time in seconds; the limits are in ms.
  const uint64_t tripletsMs = static_cast<uint64_t>(data.tripletsBestTimeS) * 1000;
  switch (star) {
    case kRidingScore500:
      return data.ridingBestScore >= kRidingScores[0];
    case kRidingScore1000:
      return data.ridingBestScore >= kRidingScores[1];
    case kRidingTime:
      return data.ridingBestTimeMS <= kRidingBestTimeMs;
    case kArcheryScore:
      return data.archeryBestScore > kArcheryScoreAbove;
    case kArcheryBullseyes:
      return data.archerySecondStarCounter > kArcheryBullseyesAbove;
    case kArcherySecret:
      return data.archeryThirdStarCounter > kArcherySecretAbove;
    case kTripletsPuzzles:
      return data.tripletsPuzzlesFinished > kTripletsPuzzlesAbove;
    case kTripletsTime180:
      return tripletsMs <= kTripletsTimesMs[0];
    case kTripletsTime60:
      return tripletsMs <= kTripletsTimesMs[1];
    default:
      return GetNumPuzzlesPlayed() > kPinTheTailPlayedAbove[star - kPinTheTail10];
  }
}

uint32_t ActivityStars::GetUnlockedMask() {
  uint32_t mask = 0;
  for (int star = 0; star < kNumStars; ++star) {
    if (StarIsUnlocked(star)) mask |= 1u << star;
  }
  return mask;
}

ActivityStars::Description ActivityStars::GetEarnedDescription(int star) {
  return InRange(star) ? kVoices[star].earned : Description{nullptr, nullptr};
}

ActivityStars::Description ActivityStars::GetUnearnedDescription(int star) {
  return InRange(star) ? kVoices[star].open : Description{nullptr, nullptr};
}

uint32_t ActivityStars::TakeNewlyEarned(uint32_t mask) {
  // The first opening of a run has nothing to compare with: nothing is new then.
  const uint32_t fresh = sm_bShown ? mask & ~sm_ShownMask : 0;
  sm_ShownMask = mask;
  sm_bShown = true;
  return fresh;
}

void ActivityStars::ForgetShown() {
  sm_ShownMask = 0;
  sm_bShown = false;
}

}  // namespace game
