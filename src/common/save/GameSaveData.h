// The game's save block: the framework's 316 bytes, then this game's fields, 1888
// bytes in all, stored in "SaveGame.bin" exactly as they lie here (little-endian).
// Every field has a fixed offset, checked below; the pad fields are the block's
// reserved bytes and stay 0. Bools are bytes. Words whose meaning belongs to the
// adventure's scripts are named by their users' terms where known.
#pragma once
#include <cstddef>
#include <cstdint>

#include "learning/SaveGameData.h"

namespace game {

const int kSaveActivities = 8;
const int kSaveBadges = 35;
const int kSaveScenes = 45;
const int kSaveRandomLists = 1;
const int kZoneCount = 5;
const int kPinTheTailObjects = 36;  // also the "no object" value
const int kJournalFacts = 40;
const int kJournalDiagrams = 44;
const int kQuestCount = 20;
const int kGameRandomLists = 9;
const int kPredictionGroups = 5;
const int kStoryFlags = 8;

typedef noxfw::SaveGameData<kSaveActivities, kSaveBadges, kSaveScenes, kSaveRandomLists> FrameworkSaveData;

// A position as three raw Q16.16 numbers (nox::Vector3 as stored).
struct SavedVector3 {
  int32_t x;
  int32_t y;
  int32_t z;
};

// One journal fact item.
struct SavedJournalFact {
  uint8_t locked;    // 1 until the fact is found
  uint8_t flags[2];  // 0 at reset
  uint8_t reserved;
  int32_t marker;       // -1 at reset
  uint32_t voiceIndex;  // next draw from the fact's voice list
  uint32_t voiceSeed;   // seed of that list's order
};

// The state of one random-exhaust list: where the draw stands and its order's seed.
struct SavedRandomList {
  uint32_t index;
  uint32_t seed;
};

// A quest's two flags (in progress, complete), as game::QuestData keeps them.
struct SavedQuestData {
  uint8_t inProgress;
  uint8_t complete;
};

// The quest running when an activity was entered from the story.
struct SavedQuestState {
  uint32_t words[4];
  uint8_t flag;
};

// Game random lists with a fixed owner.
const int kRegaliaRandomList = 6;
const int kTripletsLevelOrderRandomList = 7;

struct GameSaveData {
  FrameworkSaveData framework;  // 0

  uint8_t ridingFirstVisit;  // 316
  uint8_t pad317[3];
  uint32_t ridingBestTimeMS;  // 320, ms
  uint32_t ridingBestScore;   // 324

  uint8_t archeryFirstVisit;  // 328
  uint8_t pad329[3];
  uint32_t archeryBestScore;          // 332
  uint32_t archerySecondStarCounter;  // 336
  uint32_t archeryThirdStarCounter;   // 340

  uint8_t tripletsFirstVisit;  // 344
  uint8_t pad345[3];
  uint32_t tripletsBestTimeS;        // 348, s
  uint32_t tripletsPuzzlesFinished;  // 352
  int32_t tripletsNextLevel;         // 356, a level asked for once; -1 the bonus map

  uint8_t pinTailFirstVisit;  // 360
  uint8_t pad361[3];
  uint32_t pinTailWords[2];  // 364
  uint32_t pinTailObject;    // 372, kPinTheTailObjects when none
  // One flag per pin-the-tail object in each of six arrays.
  uint8_t pinTailObjectFlags[kPinTheTailObjects];        // 376
  uint8_t pinTailPlayedLevel1[kPinTheTailObjects];       // 412
  uint8_t pinTailPlayedLevel2[kPinTheTailObjects];       // 448
  uint8_t pinTailLevelUpProgress[kPinTheTailObjects];    // 484
  uint8_t pinTailLevelDownProgress[kPinTheTailObjects];  // 520
  uint8_t pinTailAchievementFlags[kPinTheTailObjects];   // 556

  uint8_t journalTutorialSeen;  // 592
  uint8_t badgeMenuSeen;        // 593
  uint8_t firstQuestStarted;    // 594, also read as a new-drawing flag
  uint8_t pad595;
  uint32_t zoneWords[kZoneCount];            // 596
  SavedVector3 heroinePosition[kZoneCount];  // 616
  uint32_t currentZone;                      // 676, 0 to 4
  uint32_t runeBits[kZoneCount];             // 680, one bit per rune found, 20 a zone
  uint8_t adventureFlag;                     // 700, the adventure's first visit
  uint8_t adventureLogUnlocked;              // 701
  uint8_t bowAndArrowUnlocked;               // 702
  uint8_t zoneUnlocked[kZoneCount];          // 703
  uint8_t modState;                          // 708
  uint8_t modLimits[4];                      // 709
  uint8_t modBytes[3];                       // 713: riding patterns, archery extras, spare
  uint32_t mainMenuWispSkin;                 // 716, NameHash of its sequence
  uint8_t modSkinBytes[3];                   // 720: journal wisp skin, triplets bonus map, spare
  uint8_t pad723;
  SavedJournalFact journalFacts[kJournalFacts];     // 724
  uint8_t journalDiagramPlayed[kJournalDiagrams];   // 1364
  uint32_t questConditions[kQuestCount][2];         // 1408, 64 bits a quest, low word first
  SavedQuestData questData[kQuestCount];            // 1568
  SavedRandomList randomLists[kGameRandomLists];    // 1608
  uint8_t bytes1680[2];                             // 1680
  uint8_t predictionPlayed[kPredictionGroups][12];  // 1682
  uint8_t pad1742[2];
  uint32_t words1744[3];  // 1744
  // Five bytes from 1756: the fifth is the first byte of the word at 1760.
  uint8_t bytes1756[4];  // 1756
  uint32_t word1760;     // 1760
  uint8_t bytes1764[2];  // 1764; 1765 is a new-drawing flag
  uint8_t pad1766[2];
  SavedQuestState questState;  // 1768
  uint8_t pad1788[16];
  uint32_t pinTailPuzzleCounts[9];  // 1804
  uint8_t pad1840[28];
  uint32_t word1868;                // 1868
  uint8_t storyFlags[kStoryFlags];  // 1872, read by the scene manager
  uint8_t storyPending[4];          // 1880: zone 2 and 3 unlocks, zone 3 and 4 pending
  uint8_t flag1884;                 // 1884
  uint8_t pad1885[3];
};

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the block is stored as it lies in memory");
static_assert(sizeof(SavedVector3) == 12, "");
static_assert(sizeof(SavedJournalFact) == 16, "");
static_assert(offsetof(SavedJournalFact, marker) == 4, "");
static_assert(offsetof(SavedJournalFact, voiceIndex) == 8, "");
static_assert(offsetof(SavedJournalFact, voiceSeed) == 12, "");
static_assert(sizeof(SavedRandomList) == 8, "");
static_assert(sizeof(SavedQuestData) == 2, "");
static_assert(offsetof(SavedQuestState, flag) == 16, "");

static_assert(sizeof(GameSaveData) == 1888, "the save block");
static_assert(offsetof(GameSaveData, framework) == 0, "");
static_assert(offsetof(GameSaveData, ridingFirstVisit) == 316, "");
static_assert(offsetof(GameSaveData, ridingBestTimeMS) == 320, "");
static_assert(offsetof(GameSaveData, ridingBestScore) == 324, "");
static_assert(offsetof(GameSaveData, archeryFirstVisit) == 328, "");
static_assert(offsetof(GameSaveData, archeryBestScore) == 332, "");
static_assert(offsetof(GameSaveData, archerySecondStarCounter) == 336, "");
static_assert(offsetof(GameSaveData, archeryThirdStarCounter) == 340, "");
static_assert(offsetof(GameSaveData, tripletsFirstVisit) == 344, "");
static_assert(offsetof(GameSaveData, tripletsBestTimeS) == 348, "");
static_assert(offsetof(GameSaveData, tripletsPuzzlesFinished) == 352, "");
static_assert(offsetof(GameSaveData, tripletsNextLevel) == 356, "");
static_assert(offsetof(GameSaveData, pinTailFirstVisit) == 360, "");
static_assert(offsetof(GameSaveData, pinTailWords) == 364, "");
static_assert(offsetof(GameSaveData, pinTailObject) == 372, "");
static_assert(offsetof(GameSaveData, pinTailObjectFlags) == 376, "");
static_assert(offsetof(GameSaveData, pinTailPlayedLevel1) == 412, "");
static_assert(offsetof(GameSaveData, pinTailPlayedLevel2) == 448, "");
static_assert(offsetof(GameSaveData, pinTailLevelUpProgress) == 484, "");
static_assert(offsetof(GameSaveData, pinTailLevelDownProgress) == 520, "");
static_assert(offsetof(GameSaveData, pinTailAchievementFlags) == 556, "");
static_assert(offsetof(GameSaveData, journalTutorialSeen) == 592, "");
static_assert(offsetof(GameSaveData, badgeMenuSeen) == 593, "");
static_assert(offsetof(GameSaveData, firstQuestStarted) == 594, "");
static_assert(offsetof(GameSaveData, zoneWords) == 596, "");
static_assert(offsetof(GameSaveData, heroinePosition) == 616, "");
static_assert(offsetof(GameSaveData, currentZone) == 676, "");
static_assert(offsetof(GameSaveData, runeBits) == 680, "");
static_assert(offsetof(GameSaveData, adventureFlag) == 700, "");
static_assert(offsetof(GameSaveData, adventureLogUnlocked) == 701, "");
static_assert(offsetof(GameSaveData, bowAndArrowUnlocked) == 702, "");
static_assert(offsetof(GameSaveData, zoneUnlocked) == 703, "");
static_assert(offsetof(GameSaveData, modState) == 708, "");
static_assert(offsetof(GameSaveData, modLimits) == 709, "");
static_assert(offsetof(GameSaveData, modBytes) == 713, "");
static_assert(offsetof(GameSaveData, mainMenuWispSkin) == 716, "");
static_assert(offsetof(GameSaveData, modSkinBytes) == 720, "");
static_assert(offsetof(GameSaveData, journalFacts) == 724, "");
static_assert(offsetof(GameSaveData, journalDiagramPlayed) == 1364, "");
static_assert(offsetof(GameSaveData, questConditions) == 1408, "");
static_assert(offsetof(GameSaveData, questData) == 1568, "");
static_assert(offsetof(GameSaveData, randomLists) == 1608, "");
static_assert(offsetof(GameSaveData, randomLists) + 8 * kRegaliaRandomList == 1656, "");
static_assert(offsetof(GameSaveData, randomLists) + 8 * kTripletsLevelOrderRandomList == 1664, "");
static_assert(offsetof(GameSaveData, bytes1680) == 1680, "");
static_assert(offsetof(GameSaveData, predictionPlayed) == 1682, "");
static_assert(offsetof(GameSaveData, words1744) == 1744, "");
static_assert(offsetof(GameSaveData, bytes1756) == 1756, "");
static_assert(offsetof(GameSaveData, word1760) == 1760, "");
static_assert(offsetof(GameSaveData, bytes1764) == 1764, "");
static_assert(offsetof(GameSaveData, questState) == 1768, "");
static_assert(offsetof(GameSaveData, pinTailPuzzleCounts) == 1804, "");
static_assert(offsetof(GameSaveData, word1868) == 1868, "");
static_assert(offsetof(GameSaveData, storyFlags) == 1872, "");
static_assert(offsetof(GameSaveData, storyPending) == 1880, "");
static_assert(offsetof(GameSaveData, flag1884) == 1884, "");

}  // namespace game
