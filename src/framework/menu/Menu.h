// The widget container of the game: a window holding Buttons, worked by stylus and
// by the pad.
//
// Stylus: a press on a button gives it the focus, presses it ("Trigger") and chooses
// it (Activate) at once, as a tap on the tablet is expected to; lifting the finger
// puts it back to "Active". Dragging onto another button moves the focus there
// without choosing. A press on a disabled button only prompts it; on a locked one it
// gives Invalid.
//
// Pad: each button has six neighbours, one per eMenuDirection; the directions and
// shoulders move the focus, skipping disabled buttons, and the A button (0x10)
// presses and chooses at once. B (0x20) or Home (0x100) is Back. With no focus, the
// first move focuses the first enabled button.
//
// Subclasses override Activate (what a choice does) and Back. LockInput and Pause
// both make the menu ignore input; Pause also freezes its sprites.
//
// The menu owns the sprite data it loads (background and buttons, by name), the
// buttons made by CreateButton, its background sprite and its animation engines.
// Buttons passed to AddButton from elsewhere are borrowed and must outlive the menu.
// Buttons draw above the background and the extras of GetAnimationEngine.
#pragma once
#include <string>
#include <vector>

#include "core/Vector2.h"
#include "graphics/AnimDataMap.h"
#include "graphics/AnimationEngine.h"
#include "graphics/Window.h"

namespace nox {
class Font;
class TileAnimData;
class TileAnimation;
}  // namespace nox

namespace noxfw {

class Button;

class Menu : public nox::Window {
  NOX_RTTI_DECLARE

 public:
  enum eMenuDirection {
    kUp = 0,
    kDown = 1,
    kLeft = 2,
    kRight = 3,
    kPrevious = 4,  // left shoulder
    kNext = 5,      // right shoulder
    kNumDirections = 6
  };

  // Pad bits the menu reads from controller 0.
  static const uint32_t kBackMask = 0x120;  // B or Home
  static const uint32_t kConfirmBit = 0x10;

  // `background`: the sprite drawn behind the buttons, started at "Idle"; null or ""
  // for none. `font`: the font of the menu's texts at kFontSize, for subclasses; null
  // or "" for none. Missing files leave the menu without that picture or font.
  Menu(const char* background, const char* font);
  ~Menu() override;

  // Window.
  void Update(unsigned long ms) override;
  void Draw() override;
  // True when the menu used the input: a press, drag or lift that concerned one of
  // its buttons, or a pad button it acts on.
  bool HandleInput() override;

  // Enters `button` with its neighbours (null for none), in the order of
  // eMenuDirection. A button added a second time keeps its first entry.
  virtual void AddButton(Button* button, Button* up = nullptr, Button* down = nullptr, Button* left = nullptr,
                         Button* right = nullptr, Button* previous = nullptr, Button* next = nullptr);
  // Follows the direction's neighbours from the focused button past disabled ones,
  // at most as many hops as there are buttons, and focuses what it reaches; without
  // an enabled button on the way the focus stays. True when the focus moved.
  virtual bool Navigate(eMenuDirection direction);
  // Drops a pending press.
  virtual void Cancel();
  // Focuses `button` ("Select"); the previous focus, if any, goes back to "Active".
  virtual void Select(Button* button);
  // The focused button back to "Active"; no focus.
  virtual void Deselect();
  virtual void Trigger();    // "Trigger" on the focused button
  virtual void Untrigger();  // "Active" on the focused button
  // The choice of the focused button: plays its "Activate". Subclasses act here.
  virtual void Activate();
  virtual void Enable(Button* button);
  // A disabled focused button loses the focus.
  virtual void Disable(Button* button);
  virtual void Prompt(Button* button);
  // Feedback for a choice that cannot be made; the base prompts the button.
  virtual void Invalid(Button* button);
  // B or Home; the base cancels.
  virtual void Back();
  virtual Button* GetSelected() const { return m_pSelected; }
  // The focused button's place in the order of AddButton, from 1; 0 for none.
  virtual int GetSelectedId() const;
  virtual void LockInput() { m_bInputLocked = true; }
  virtual void UnlockInput() { m_bInputLocked = false; }
  virtual bool IsInputLocked() const { return m_bInputLocked; }
  virtual void Pause() { m_bPaused = true; }
  virtual void Resume() { m_bPaused = false; }
  virtual bool IsPaused() const { return m_bPaused; }
  // The last added visible button hit at `point` (the one drawn on top), or null.
  virtual Button* FindButton(const nox::Vector2& point);

  // Sprite data of that name, loaded once and kept by the menu; null when missing.
  nox::TileAnimData* GetAnimData(const char* name);
  // A button on the sprite of that name, owned by the menu and drawn by it; not yet
  // entered for navigation (see AddButton).
  Button* CreateButton(const char* name);
  // Puts the button at the background's point `point` of the current frame; false
  // when the background has no such point.
  bool PlaceButton(Button* button, const char* point);
  // Null without a background.
  nox::TileAnimation* GetBackground() const { return m_pBackground; }
  // Further sprites of a subclass may be added here; they are drawn with the menu.
  nox::AnimationEngine& GetAnimationEngine() { return m_Engine; }
  nox::Font* GetFont() const { return m_pFont; }
  int GetButtonCount() const { return static_cast<int>(m_Entries.size()); }
  // By the order of AddButton, from 0; null past the end.
  Button* GetButton(int index) const;
  Button* GetNeighbour(Button* button, eMenuDirection direction) const;

  static const unsigned long kFontSize = 16;

 protected:
  // The stylus and the pad parts of HandleInput, for subclasses that want only one.
  bool HandleTouch();
  bool HandlePad();

 private:
  struct Entry {
    Button* button;                      // borrowed or in m_OwnedButtons
    Button* neighbours[kNumDirections];  // borrowed
  };
  const Entry* FindEntry(const Button* button) const;
  void Press(Button* button);
  void Release();
  void Drag(const nox::Vector2& point);
  Button* FirstEnabled() const;

  nox::AnimDataMap m_AnimData;                  // owns the loaded sprite data
  nox::AnimationEngine m_Engine;                // background and extras, updated and drawn
  nox::AnimationEngine m_ButtonSprites;         // drawn only: buttons update themselves
  nox::TileAnimation* m_pBackground = nullptr;  // owned
  nox::Font* m_pFont = nullptr;                 // one reference held at the font manager
  std::vector<Entry> m_Entries;                 // in the order added
  std::vector<Button*> m_OwnedButtons;          // made by CreateButton
  Button* m_pSelected = nullptr;                // the focus, one of m_Entries
  bool m_bTracking = false;                     // a touch that began on a button is still down
  bool m_bInputLocked = false;
  bool m_bPaused = false;
};

}  // namespace noxfw
