// The game's configuration of the sound manager: thirteen categories and four rules. The
// narrator (category 1) ducks the story soundtrack (category 0) and the background music;
// world sounds (category 4) give way to the quietest. It also holds the resident effects
// group (id 0, "Audio/SFX/"), which starts empty.
//
// Categories and their slots (10 to 12 have a limit that the count never reaches):
//   0 story soundtrack 1 | 1 speech 1 | 2 free 2 | 3 nothing 0 | 4 world agents 2
//   5 free 1 | 6 activity feedback 1 | 7 menu buttons 4 | 8 journal and menu speech 1
//   9 free 1 | 10 effects | 11 menu confirmation | 12 free
//
// The rules are members; the destructor takes them out of the lists before the base
// destructor stops everything and deletes what is left in the lists.
#pragma once
#include "sound/SoundGroup.h"
#include "sound/SoundManager.h"
#include "sound/SoundRules.h"

namespace game {

class GameSoundManager : public nox::SoundManager {
 public:
  enum Category : uint32_t {
    kStorySoundtrack = 0,
    kSpeech = 1,
    kWorldAgents = 4,
    kActivityFeedback = 6,
    kMenu = 7,
    kMenuSpeech = 8,
    kCutSceneSpeech = 9,
    kEffects = 10,
    kMenuConfirmation = 11,
  };
  static constexpr uint32_t kCategoryCount = 13;
  static constexpr uint32_t kUnlimited = 0xFFFFFFFFu;  // a limit the active count never reaches

  // Nothing when a sound manager exists; otherwise installs a new GameSoundManager.
  static void Create();
  // The instance, if it is the game's.
  static GameSoundManager* Get();

  ~GameSoundManager() override;

  // The resident group starts with nothing in it.
  void LoadResidentSFX() {}
  void UnloadResidentSFX() { m_ResidentSFX.Unload(); }
  nox::SoundGroup& GetResidentSFX() { return m_ResidentSFX; }

 private:
  GameSoundManager();

  noxfw::OverrideSameWithLowestVolumeSoundRule m_OverrideSame;
  noxfw::OverrideAnyWithLowestVolumeSoundRule m_OverrideAny;
  noxfw::DuckMusicForNarratorSoundRule m_Duck;
  noxfw::RestoreMusicAfterNarratorSoundRule m_Restore;
  nox::SoundGroup m_ResidentSFX;
};

}  // namespace game
