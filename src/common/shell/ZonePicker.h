// The zone picker: the map of the story's five places. Each card shows how many of
// the zone's twenty runes were found ("%d/20", from the save game's rune word), the
// zone being played wears the highlight star, and zones not yet unlocked (unless
// "Unlock All Adventure Zones" is on) are shown inactive and only give a dead click.
// The scene manager reads the chosen card's place, 1 to 5, as the zone to enter once
// the menu ends with Complete; Back (the pad's B or Home) ends it with Back.
//
// A menu window shown by a noxfw::SimpleScene; the scene manager owns it. Owns the
// highlight sprite, the text of the rune counts and the sprite engine that draws both
// above the cards.
#pragma once
#include <string>

#include "graphics/AnimationEngine.h"
#include "graphics/TextSurface.h"
#include "shell/GameMenu.h"
#include "shell/M6Dialogue.h"

namespace nox {
class TileAnimation;
}

namespace game {

class ZonePicker : public GameMenu {
  NOX_RTTI_DECLARE

 public:
  static const int kZoneCount = 5;
  static const int kRunesPerZone = 20;

  ZonePicker(const char* introVoice = M6Dialogue::kIntro, const char* repeatVoice = M6Dialogue::kRepeat);
  ~ZonePicker() override;

  void Open() override;
  void Update(unsigned long ms) override;
  void Draw() override;
  bool HandleInput() override;
  void Activate() override;
  void Back() override;
  // An inactive zone that is touched gives a dead click as well.
  void Prompt(noxfw::Button* button) override;

  // Writes each zone's count of runes found on its card, from the save game.
  void DrawRuneCount();
  // The set bits of the zone's rune word (0 to 4); 0 without a save game.
  static int CountRunes(int zone);
  // Unlocked in the save game, or every zone with "Unlock All Adventure Zones".
  static bool IsZoneUnlocked(int zone);
  // The last zone's story is done.
  static bool IsStoryComplete();
  // What the menu says on opening: the greeting, or once the story is done (and
  // "Award All Badges" is off) a line that depends on the badges earned.
  const char* GetOpeningVoice() const;

  const char* GetRuneText(int zone) const;        // "" out of range
  noxfw::Button* GetZoneButton(int index) const;  // 1 to 5
  nox::TileAnimation* GetHighlight() const { return m_pHighlight; }
  // The button (1 to 5) the highlight stands on, 0 for none.
  int GetHighlightedZone() const { return m_HighlightIndex; }

 private:
  void MoveHighlight(int index);
  void ShowZoneName(int index);
  bool IsChoiceShown();

  noxfw::Button* m_pButtons[kZoneCount];       // owned by the menu, zone by zone
  nox::TileAnimation* m_pHighlight = nullptr;  // owned; null without its art
  nox::TextSurface m_RuneText;                 // the counts, screen-sized
  nox::AnimationEngine m_Overlay;              // the highlight and the counts, over the cards
  char m_RuneCounts[kZoneCount][12] = {};
  int m_HighlightIndex = 0;
  int m_ChosenIndex = 0;
};

}  // namespace game
