// Decides which sound may play and what happens to the others. Sounds play in numbered
// categories, each with a fixed number of slots; small rule objects run at four stages of
// every request (PreSlotCheck, ReplacementCheck, PrePlay, PostPlay), so that a policy such
// as "the narrator ducks the music" is declared once. Play requests that are refused
// return false and leave nothing behind.
//
// The manager owns its categories and, at its end, the rules still in their lists. The
// background music is a looping streaming sound handed in by the scene manager and not
// owned. Singleton sm_pInstance; game::GameSoundManager is the game's configuration.
// Everything runs on the game thread; the player's end events arrive through
// SoundPlayer::Update at the top of the frame.
#pragma once
#include <cstdint>
#include <map>
#include <string>

#include "sound/SoundCategoryData.h"
#include "sound/SoundRule.h"

namespace nox {

class Sound;
class StreamingSound;

class SoundManager {
 public:
  typedef std::map<uint32_t, SoundCategoryData*> CategoryMap;

  // Nothing when an instance exists; otherwise makes one and calls Initialise.
  static void Create(uint32_t count, const unsigned long* ids, const unsigned long* slots);
  static void Destroy();
  static SoundManager* sm_pInstance;

  virtual ~SoundManager();

  // One category per entry of the two arrays of `count` values.
  void Initialise(uint32_t count, const unsigned long* ids, const unsigned long* slots);

  // With `copy` the category plays and owns a copy of `sound`; without, the caller keeps
  // the object, which must outlive its playing.
  bool Play(Sound* sound, uint32_t category, bool copy);
  // Plays a copy of the resident sound of that name at `volume`.
  bool PlayFromGroup(const std::string& name, uint32_t category, uint32_t volume);
  bool PlayFromGroup(const char* name, uint32_t category, uint32_t volume);

  // An empty name means silence. The same name while the music plays leaves it alone
  // (unless `restart`), but its volume and ducked flag are set again.
  void PlayBackgroundMusic(const std::string& name, bool restart);
  void StopBackgroundMusic();
  void SetBackgroundMusic(StreamingSound* music) { m_pBackgroundMusic = music; }
  StreamingSound* GetBackgroundMusic() const { return m_pBackgroundMusic; }

  void Stop(uint32_t category);
  void Pause(uint32_t category);
  void Resume(uint32_t category);
  bool IsPlaying(uint32_t category);
  // The oldest active sound of the category, or null.
  Sound* GetSound(uint32_t category);
  // Every category in id order; the background music plays on.
  void StopAll();
  SoundCategoryData* GetCategory(uint32_t id) const;

  // Into the home category's list, or every list for kSoundRuleAll.
  void AddRule(SoundRule* rule);
  // Out of every list; not deleted.
  void RemoveRule(SoundRule* rule);

  // The ducking ramps of every active sound, then of the music.
  void Update(uint32_t dt);

  // False when some rule vetoed.
  bool ExecutePreSlotCheckRules(Sound* sound, SoundCategoryData* category);
  // True when a slot has been freed.
  bool ExecuteReplacementCheckRules(Sound* sound, SoundCategoryData* category);
  void ExecutePrePlayRules(Sound* sound, SoundCategoryData* category);
  void ExecutePostPlayRules(Sound* sound, SoundCategoryData* category);

 protected:
  SoundManager() {}

 private:
  // The shared walk of PreSlotCheck, PrePlay and PostPlay; true when nobody vetoed.
  bool RunRules(SoundRule::Stage stage, Sound* sound, SoundCategoryData* category);
  static bool Applies(const SoundRule* rule, SoundRule::Stage stage, const Sound* sound);

  CategoryMap m_Categories;                      // owned, by id
  StreamingSound* m_pBackgroundMusic = nullptr;  // borrowed
};

}  // namespace nox
