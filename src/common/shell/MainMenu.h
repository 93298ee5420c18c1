// The main menu: the five big buttons of the game's shell over the meadow. The scene
// manager reads the chosen button's place (1 activities, 2 the story, 3 micromods,
// 4 badges, 5 the journal) as the way on once the menu ends with Complete.
//
// It speaks: the greeting on opening (again on the hint key), the name of a button
// reached with the pad, the name of the chosen button between its click and the
// scene's end, and the reminder after a while without a touch. Opened for a player in
// the last zone who holds every badge, it gives the achievement for all badges once,
// cheering before the greeting.
//
// A menu window shown by a noxfw::SimpleScene; the scene manager owns it. Its script
// (the prompt on opening, the click and voice of a choice, the scene's end) runs on
// its own sequencer and holds while the menu is paused.
#pragma once
#include <string>

#include "shell/GameMenu.h"
#include "shell/M1Dialogue.h"

namespace game {

class MainMenu : public GameMenu {
  NOX_RTTI_DECLARE

 public:
  enum ButtonIndex {
    kActivity = 1,
    kAdventure = 2,
    kMicroMod = 3,
    kBadge = 4,
    kJournal = 5,
    kButtonCount = 5
  };

  // `first`: the first visit of this run; the other three say what is new since the
  // menu was last shown. None of them changes the menu's flow.
  MainMenu(bool first, bool newBadge, bool newDownloads, bool newDrawing,
           const char* introVoice = M1Dialogue::kIntro, const char* repeatVoice = M1Dialogue::kRepeat);
  ~MainMenu() override;

  void Open() override;
  // The framework's flow, then the pad's sounds: a move clicks and a new focus says
  // the button's name; the hint key says the greeting again.
  bool HandleInput() override;
  void Activate() override;

  // What button `index` (a ButtonIndex) is called aloud; "NONE" out of range.
  static const char* GetButtonVoice(int index);
  // The save game's zone in which the menu checks the badges on opening.
  static const int kLastZone = 4;

  bool IsFirstVisit() const { return m_bFirst; }
  bool HasNewBadge() const { return m_bNewBadge; }
  bool HasNewDownloads() const { return m_bNewDownloads; }
  bool HasNewDrawing() const { return m_bNewDrawing; }

 private:
  // In the last zone, unless "Award All Badges" is on: with every badge in the save
  // game, the achievement for all badges. True when it was awarded now.
  bool CheckBadges();

  noxfw::Button* m_pButtons[kButtonCount];  // owned by the menu, by ButtonIndex - 1
  bool m_bFirst;
  bool m_bNewBadge;
  bool m_bNewDownloads;
  bool m_bNewDrawing;
};

}  // namespace game
