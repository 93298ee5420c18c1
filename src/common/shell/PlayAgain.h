// The play-again menu shown after an activity: "Yes" plays the same activity again
// (the scene ends with Jump, whose row names the activity), "No" goes on (MenuBack,
// whose row leads back to the adventure or the picker). The pad's B or Home answers
// No. The scene manager builds it for each of the play-again rows, 34 to 37.
//
// A menu window shown by a noxfw::SimpleScene; the scene manager owns it. The two
// buttons stand at the background's points "YesButton" and "NoButton".
#pragma once
#include <string>

#include "scenes/ExitReason.h"
#include "shell/GameMenu.h"
#include "shell/M5Dialogue.h"

namespace game {

class PlayAgain : public GameMenu {
  NOX_RTTI_DECLARE

 public:
  enum ButtonIndex { kYes = 1, kNo = 2, kButtonCount = 2 };

  PlayAgain(const char* introVoice = M5Dialogue::kIntro, const char* repeatVoice = M5Dialogue::kRepeat);
  ~PlayAgain() override;

  void Open() override;
  bool HandleInput() override;
  void Activate() override;
  void Back() override;

  noxfw::Button* GetButton(ButtonIndex index) const;

 private:
  // Click, then the scene's end with `reason`; input stays locked from here on.
  void Answer(const char* click, noxfw::ExitReason::eExitReason reason);

  noxfw::Button* m_pButtons[kButtonCount];  // owned by the menu, by ButtonIndex - 1
};

}  // namespace game
