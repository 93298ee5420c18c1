// One button of a menu: a sprite whose playing sequence is the button's state.
//
// States are sequences of the button's sprite: "Active" (enabled, idle), "Inactive"
// (disabled), "Select" (has the focus), "Prompt" (asks for attention), "Trigger"
// (pressed), "Activate" (chosen), "Highlight". A state is kept even when the sprite
// lacks its sequence or the sprite is missing altogether, so the menu logic works
// without art; the picture then stays as it was.
//
// The sprite is anchored at its point "Origin" and hit-tested against its frame's
// rectangle "Hotspot0", or its cell box when the frame has none. A locked button can
// take the focus, but the menu answers a press on it with Invalid instead of a
// choice. The button owns its sprite and borrows the sprite's data.
#pragma once
#include <string>

#include "core/HashString.h"
#include "core/NoCopy.h"
#include "core/Vector2.h"

namespace nox {
class TileAnimData;
class TileAnimation;
}  // namespace nox

namespace noxfw {

class Button : public nox::NoCopy {
 public:
  // A button on `data` (may be null or unloaded: the button then has no picture and
  // is never hit). Starts in "Active".
  explicit Button(nox::TileAnimData* data);
  virtual ~Button();

  virtual void Enable();   // "Active"
  virtual void Disable();  // "Inactive"
  virtual void Prompt();   // "Prompt" once, then back to the state before
  virtual void Trigger();  // "Trigger"
  // True while "Active" is the state.
  virtual bool IsActive();
  // True while "Trigger" is the state.
  virtual bool IsTriggered();
  virtual bool IsEnabled();
  virtual void SetLocked(bool locked);
  virtual bool IsLocked() const;

  // Plays the sequence of that name unless it is the state already. "Trigger" and
  // "Activate" stop on their last frame, "Prompt" returns; the others loop.
  void SetState(const char* name);
  void SetState(const std::string& name) { SetState(name.c_str()); }
  void SetState(nox::NameHash state);
  nox::NameHash GetState() const { return m_State; }

  // Inside the frame's "Hotspot0" (or, without one and with `fallBackToCellBox`, its
  // cell box), edges included. A hidden button is hit only with `includeHidden`.
  bool HitTest(const nox::Vector2& point, bool includeHidden = false, bool fallBackToCellBox = true) const;

  void SetVisible(bool visible);
  bool GetVisible() const;
  void SetPosition(const nox::Vector2& position);
  void SetPosition(nox::Real x, nox::Real y) { SetPosition(nox::Vector2(x, y)); }
  nox::Vector2 GetPosition() const;
  void Update(unsigned long ms);
  void Draw();

  // Null when the button has no picture.
  nox::TileAnimation* GetAnimation() const { return m_pAnimation; }

  static const nox::NameHash kActive;
  static const nox::NameHash kInactive;
  static const nox::NameHash kSelect;
  static const nox::NameHash kPrompt;
  static const nox::NameHash kTrigger;
  static const nox::NameHash kActivate;
  static const nox::NameHash kHighlight;

 private:
  nox::TileAnimation* m_pAnimation = nullptr;  // owned; null without data
  nox::Vector2 m_Position;                     // virtual pixels, kept without a sprite too
  nox::NameHash m_State = 0;
  nox::NameHash m_ReturnState = 0;  // the state a finished prompt goes back to
  bool m_bEnabled = true;
  bool m_bLocked = false;
  bool m_bVisible = true;
};

}  // namespace noxfw
