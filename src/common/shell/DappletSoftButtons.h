// The tablet's two permanent on-screen buttons, Home and Hint, as a small menu drawn
// above the scenes. Their sprites place them (Home at the top left and Hint at the
// top right in the title's art): each is drawn with its "Origin" at the screen's
// corner and takes touches in its "Hotspot0". A touch that comes down on one of them
// marks it touched for the rest of that frame: the title reads the Home mark and the
// activities the Hint mark while they handle input, and the marks are cleared when
// the frame's update comes. The buttons react to the stylus only; the pad goes on to
// the windows below.
//
// The scene manager owns the soft buttons, shows or hides each one by scene, and
// plays their sounds; this class only draws, animates and reports.
#pragma once
#include "menu/Menu.h"

namespace game {

class DappletSoftButtons : public noxfw::Menu {
  NOX_RTTI_DECLARE

 public:
  static const char* const kHomeSprite;  // "SoftButton_Home"
  static const char* const kHintSprite;  // "SoftButton_Hint"

  // The sprites of the two buttons, by name; missing sprites give buttons that are
  // never touched.
  DappletSoftButtons(const char* home = kHomeSprite, const char* hint = kHintSprite);
  ~DappletSoftButtons() override;

  bool HandleInput() override;
  void Update(unsigned long ms) override;

  bool GetHomeButtonTouched() const { return m_bHomeTouched; }
  bool GetHintButtonTouched() const { return m_bHintTouched; }
  void ClearTouches();

  void TriggerHomeButton();      // "Trigger"
  void TriggerHintButton();      // "Trigger"
  void HighlightHintButton();    // "Highlight"
  void UnHighlightHintButton();  // "Active"
  void SetButtonsVisible(bool visible);
  void SetHomeButtonVisible(bool visible);
  void SetHintButtonVisible(bool visible);
  bool IsHomeButtonVisible() const;
  bool IsHintButtonVisible() const;

  noxfw::Button* GetHomeButton() const { return m_pHome; }
  noxfw::Button* GetHintButton() const { return m_pHint; }

 private:
  noxfw::Button* m_pHome;  // owned by the menu
  noxfw::Button* m_pHint;  // owned by the menu
  bool m_bHomeTouched = false;
  bool m_bHintTouched = false;
};

}  // namespace game
