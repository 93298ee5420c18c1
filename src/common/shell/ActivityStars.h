// The twelve stars of the activity picker, three per activity, and what earns each:
// a test on the save game (or the setting "Unlock All Unlockables", which earns them
// all) and the voice lines that tell the child how it was earned or how to earn it.
//
// Plain functions over GameSaveGame::s_pSaveGame and nox::Settings; without a save
// game no star is earned. The picker also keeps here, for the run, which stars it
// last showed gold, so that a star earned since then can be celebrated once.
#pragma once
#include <cstdint>

namespace game {

class ActivityStars {
 public:
  enum ActivityStarsEnum {
    kRidingScore500 = 0,
    kRidingScore1000 = 1,
    kRidingTime = 2,
    kArcheryScore = 3,
    kArcheryBullseyes = 4,
    kArcherySecret = 5,
    kTripletsPuzzles = 6,
    kTripletsTime180 = 7,
    kTripletsTime60 = 8,
    kPinTheTail10 = 9,
    kPinTheTail21 = 10,
    kPinTheTail34 = 11,
    kNumStars = 12
  };
  static const int kStarsPerActivity = 3;

  // One or two voice lines, said in order; `second` is null for one.
  struct Description {
    const char* first;
    const char* second;
  };

  // True when the save game earns the star, or the setting "Unlock All Unlockables"
  // is on; false for a star out of range.
  static bool StarIsUnlocked(int star);
  // A bit per star, bit i for star i.
  static uint32_t GetUnlockedMask();
  // What a touch on the star says when it is earned, and when it is not; both lines
  // null for a star out of range.
  static Description GetEarnedDescription(int star);
  static Description GetUnearnedDescription(int star);
  // The nine pin-the-tail counters of the save game added up (wider than each, so
  // that large counters cannot wrap the sum).
  static uint64_t GetNumPuzzlesPlayed();

  // The stars shown gold when the picker last opened in this run, and whether it
  // opened at all. Stars in `mask` that were not shown before count as new.
  static uint32_t TakeNewlyEarned(uint32_t mask);
  // Forgets what was shown, as at the start of a run.
  static void ForgetShown();

 private:
  static uint32_t sm_ShownMask;
  static bool sm_bShown;
};

}  // namespace game
