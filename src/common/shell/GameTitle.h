// The game's title: the framework title plus what only this game has: its own
// sequencer for the exit prompt's sounds, the Home button rules, the game's settings,
// the badge table, and pausing the scene while the device has the screen.
#pragma once
#include "app/Title.h"
#include "learning/BadgeManager.h"

namespace game {

class GameSaveGame;

class GameTitle : public noxfw::Title {
 public:
  GameTitle();
  ~GameTitle() override;
  void Enter() override;
  void HandleInput() override;
  void Update() override;
  void Draw() override;
  void Leave() override;
  void RegisterSettings() override;

  void Suspend();
  void Resume();
  bool IsSuspended() const { return m_bSuspended; }
  // True while the exit pop-up is open: it has paused the scene itself. Read from the
  // scene manager's pop-up after each frame's input and update.
  bool IsExitPopUpOpen() const { return m_bExitPopUpOpen; }
  void SetExitPopUpOpen(bool open) { m_bExitPopUpOpen = open; }

  // The game's badges: row i is badge i (GameBadge::eGameBadge) with its id on the
  // device; the earned flags come from the save game at start.
  static const int kBadgeCount = 35;
  static noxfw::BadgeManager::Badge s_Badges[kBadgeCount];

 private:
  void LogTitleStart();
  // One automation line on the save game just read (or begun anew when `read` is false).
  void LogSaveGame(GameSaveGame& save, bool read);

  bool m_bExitFromMainMenu = false;
  bool m_bSuspended = false;
  bool m_bExitPopUpOpen = false;
};

}  // namespace game
