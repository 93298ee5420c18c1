// Base of every layer drawn on the screen: scene views, menus, overlays, fades and
// pop-ups. The window manager keeps borrowed pointers to open windows; whoever
// created a window destroys it after closing it.
#pragma once
#include "core/NoCopy.h"

namespace nox {

class Screen;

class Window : public NoCopy {
 public:
  enum WindowState { kClosed = 0, kOpening = 1, kOpen = 2 };

  virtual ~Window() {}
  virtual void Update(unsigned long ms) {}
  virtual void Draw() = 0;
  virtual void Open();
  virtual void Close();
  virtual WindowState GetWindowState() const { return m_State; }
  virtual void SetVisible(bool visible) { m_bVisible = visible; }
  virtual bool GetVisible() const { return m_bVisible; }
  virtual void SetScreen(Screen* screen) { m_pScreen = screen; }
  virtual Screen* GetScreen() const { return m_pScreen; }
  // True when the input was consumed.
  virtual bool HandleInput() { return false; }

 private:
  WindowState m_State = kClosed;
  Screen* m_pScreen = nullptr;  // not owned
  bool m_bVisible = true;
};

}  // namespace nox
