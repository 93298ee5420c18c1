// The game's scene tables. StoryMode is the whole chain as the story plays it;
// ActivityMode and MicromodsMode hold the rows that differ when the activities are
// played from the activity picker or the micromod menu (see
// GameSceneManager::SetGameMode). GameData is the music table: what plays in each
// scene and the activity id that the telemetry uses.
#pragma once
#include <cstdint>

#include "scenes/SceneData.h"

namespace game {

// One row of the music table.
struct SceneData {
  uint32_t id;             // scene id
  const char* music;       // track name without suffix
  uint8_t restart;         // restart the track when it is already playing
  const char* activityId;  // the activity's id in the telemetry, "" for none
  uint32_t word;
};

// Scene ids the game's code names.
enum GameSceneId : uint32_t {
  kSceneMain = 1,
  kSceneSettings = 3,
  kSceneTessalyLogo = 9,
  kSceneMorvaneLogo = 10,
  kSceneQuennetLogo = 11,
  kSceneTitleCard = 12,
  kSceneAdventure = 13,
  kSceneAdventureLog = 14,
  kScenePicturePartsPicker = 15,
  kSceneActivity1 = 16,
  kSceneActivity4 = 19,
  kSceneMainMenu = 28,
  kSceneActivityPicker = 29,
  kSceneBadgeMenu = 30,
  kSceneMicromodMenu = 31,
  kScenePlayAgain = 32,
  kSceneZonePicker = 33,
  kScenePlayAgainA1 = 34,
  kScenePlayAgainA4 = 37,
  kSceneMusicPlayer = 38,
  kSceneZone1Intro = 39,
  kSceneZone5Outro = 44,
  kSceneIdCount = 45,  // ids are below this
};

struct GameSceneData {
  static const int kStoryCount = 35;
  static const int kActivityCount = 8;
  static const int kMicromodsCount = 1;
  static const int kMusicCount = 20;
  static const noxfw::SceneData StoryMode[kStoryCount];
  static const noxfw::SceneData ActivityMode[kActivityCount];
  static const noxfw::SceneData MicromodsMode[kMicromodsCount];
  static const SceneData GameData[kMusicCount];
};

// The index of the row with that id, or -1.
int FindSceneDataIndex(const noxfw::SceneData* table, int count, unsigned long id);

}  // namespace game
