// Everything the game remembers of a player: the 1888-byte block of GameSaveData,
// embedded here and kept in "SaveGame.bin" in the player's save directory. The
// framework part is reached through the SaveGame accessors; the game's fields through
// GetBlock() and the checked helpers below.
//
// A singleton (s_pSaveGame) made at the title's start after the scene manager and
// destroyed at its end. Making it touches no file: the title calls ReadAllData once,
// and the scene flow calls WriteAllData at its checkpoints. Activity slots are the
// activity's scene id minus 16: 0 riding, 1 archery, 2 triplets, 3 pin the tail.
#pragma once
#include <cstdint>

#include "core/Vector3.h"
#include "learning/SaveGame.h"
#include "save/GameSaveData.h"

namespace game {

class GameSaveGame : public noxfw::SaveGame<kSaveActivities, kSaveBadges, kSaveScenes, kSaveRandomLists> {
 public:
  static constexpr uint32_t kIdent = 0x00524150;  // "PAR\0" in the file
  static const char* const kFileName;             // "/SaveGame.bin"
  static constexpr int kFirstActivityScene = 16;

  static void Create();
  static void Destroy();
  static GameSaveGame* s_pSaveGame;

  GameSaveGame();
  ~GameSaveGame() override;

  uint32_t GetSaveGameDataIdent() override { return kIdent; }
  // Clears the block when `reset`, then sets up the framework's part and every game
  // field with its new-game value; the seeds are fresh.
  void InitializeData(Data* data, bool reset, bool noPersist) override;
  // A changed grade starts every activity again: at level 2 for grades 1 to 8 of a
  // player with a profile, at level 1 otherwise.
  void InitializeLevelData(Data* data, bool noPersist) override;

  // The title's check at start of the profile's grade against the saved one (255 is
  // "none"): a higher grade, or a first grade after none, sets the levels up anew.
  // True when it did.
  bool ApplyPlayerGrade(uint8_t grade);
  // Adds this run's play time at the title's end: the whole part of Real(frameMS) /
  // 1000. Real(frameMS) is a plain shift with no overflow check, so the run's share
  // wraps every 65536 ms and is negative in the upper half; the saved total has
  // always been counted this way and stays so.
  void AddRunPlayTime(uint32_t frameMS);

  void UnlockAdventureLog(bool unlock) { m_Block.adventureLogUnlocked = unlock; }
  void UnlockBowAndArrow(bool unlock) { m_Block.bowAndArrowUnlocked = unlock; }

  GameSaveData& GetBlock() { return m_Block; }
  const GameSaveData& GetBlock() const { return m_Block; }

  static int ActivitySlot(int sceneId) { return sceneId - kFirstActivityScene; }

  // Checked access to fields used by index; out of range reads 0 and writes nothing.
  uint64_t GetQuestConditions(int quest) const;
  void SetQuestConditions(int quest, uint64_t conditions);
  nox::Vector3 GetHeroinePosition(int zone) const;
  void SetHeroinePosition(int zone, const nox::Vector3& position);
  // The current zone, 0 to 4 even when the file held something else.
  int GetCurrentZone() const;
  bool GetStoryFlag(int i) const;
  void SetStoryFlag(int i, bool set);

 private:
  GameSaveData m_Block;
};

}  // namespace game
