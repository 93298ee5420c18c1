// The game's title: the framework title plus what only this game has: its own
// sequencer for the exit prompt's sounds, the Home button rules, the game's settings,
// the badge table, and pausing the scene while the device has the screen.
#pragma once
#include "app/Title.h"

namespace game {

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
  // True while the exit pop-up is open: it has paused the scene itself.
  bool IsExitPopUpOpen() const { return m_bExitPopUpOpen; }
  void SetExitPopUpOpen(bool open) { m_bExitPopUpOpen = open; }

 private:
  void LogTitleStart();

  bool m_bExitFromMainMenu = false;
  bool m_bSuspended = false;
  bool m_bExitPopUpOpen = false;
};

}  // namespace game
