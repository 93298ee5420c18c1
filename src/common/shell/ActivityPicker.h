// The activity picker: the four activities as cards, each with its three stars
// (ActivityStars), and a Back button. A touched star says how it was earned or how
// to earn it, flashing while it speaks. The scene manager reads the chosen button's
// place (1 archery, 2 riding, 3 triplets, 4 pin the tail, 5 back to the main menu)
// once the menu ends with Complete; Back (the pad's B or Home) ends it with Back.
//
// An activity that is not unlocked in the save game (unless "Unlock All Games" is on)
// is locked: choosing it gives the invalid feedback and nothing else.
//
// A menu window shown by a noxfw::SimpleScene; the scene manager owns it. Owns its
// star sprites (on the menu's sprite data "M2_Stars") and its script.
#pragma once
#include <string>

#include "core/HashString.h"
#include "core/Vector2.h"
#include "shell/ActivityStars.h"
#include "shell/GameMenu.h"
#include "shell/M2Dialogue.h"

namespace nox {
class TileAnimation;
}

namespace game {

class ActivityPicker : public GameMenu {
  NOX_RTTI_DECLARE

 public:
  enum ButtonIndex { kArchery = 1, kRiding = 2, kTriplets = 3, kPinTheTail = 4, kBack = 5, kButtonCount = 5 };
  static const int kActivityCount = 4;

  ActivityPicker(const char* introVoice = M2Dialogue::kIntro, const char* repeatVoice = M2Dialogue::kRepeat);
  ~ActivityPicker() override;

  void Open() override;
  // Stars are hit before the buttons; a touched star is said at once.
  bool HandleInput() override;
  void Activate() override;
  void Back() override;
  // The framework's feedback and a dead click; the script is emptied.
  void Invalid(noxfw::Button* button) override;

  // Stops what is queued and says the star's description, flashing it meanwhile.
  void SayStar(int star);
  // One sprite per star at its point on the background, gold or gray.
  void InitializeStars();
  // Every star flashing (a new star was earned) or still again.
  void TurnOnStarFlashLoop(bool on);
  // The background's point for star `star`: "Star01" to "Star12"; 0 out of range.
  static nox::NameHash GetHashForIndex(int star);
  // The scene id of the activity on button `index` (1 to 4), 0 for others.
  static unsigned long GetActivitySceneId(int index);
  // Unlocked in the save game, or every activity with "Unlock All Games".
  static bool IsActivityUnlocked(unsigned long sceneId);

  // The star at `point` (its "Hotspot0", else its picture's box), or -1.
  int FindStar(const nox::Vector2& point) const;
  nox::TileAnimation* GetStar(int star) const;
  bool IsStarGold(int star) const;
  noxfw::Button* GetActivityButton(int index) const;

 private:
  void FlashStar(int star);
  void StillStar(int star);
  // Empties the script and puts every star back to rest.
  void StopScript();

  noxfw::Button* m_pButtons[kButtonCount];                      // owned by the menu, by ButtonIndex - 1
  nox::TileAnimation* m_pStars[ActivityStars::kNumStars] = {};  // owned; null without the star art
  bool m_bGold[ActivityStars::kNumStars] = {};
};

}  // namespace game
