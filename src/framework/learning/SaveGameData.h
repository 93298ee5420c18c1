// The part of a save block that every title has, as it lies in memory and in the file:
// little-endian, fixed-width fields, in this order. Bools are bytes so that any byte
// a damaged file holds reads back as a defined value. The compiler's natural alignment
// supplies the reserved bytes (one before the 16-bit arrays, three before the 32-bit
// words, one before the play time); SaveGame.h checks every offset for the game's sizes.
//
//   A activities, B badges, S scenes, R random-exhaust lists.
#pragma once
#include <cstdint>

namespace noxfw {

template <int A, int B, int S, int R>
struct SaveGameData {
  uint32_t ident;               // the title's GetSaveGameDataIdent()
  uint8_t grade;                // the player's grade at the last check; 99 after a reset
  uint8_t activityLevel[A];     // 1 and up
  uint8_t activitySublevel[A];  // 1 and up
  uint16_t activityRound[A];
  uint16_t activityCa[A];  // correct answers
  uint16_t activityWa[A];  // wrong answers
  uint8_t activityPlayedTutorial[A];
  uint16_t sceneCount[S];  // times played
  uint8_t sceneUnlocked[S];
  uint8_t sceneCompleted[S];
  uint8_t badge[B];
  uint32_t randomExhaustSeed[R];
  uint32_t randomExhaustIndex[R];
  uint8_t unlockedCount;
  uint8_t lastSeenUnlockedCount;
  uint8_t firstActivation;
  uint32_t playTime;  // s
  uint32_t modCount;
};

}  // namespace noxfw
