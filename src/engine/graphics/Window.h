// Base of every layer drawn on the screen: scene views, menus, overlays, fades and
// pop-ups. The window manager keeps borrowed pointers to open windows; whoever
// created a window destroys it after closing it.
//
// A window's place on screen is its place in the manager's lists (opening order,
// overlays above), not its depth: the depth buffer is wiped before each window, so
// depth only orders what one window draws. Position and depth are kept for the
// window's own use. A listed window must stay visible; to hide it, close it.
#pragma once
#include "core/NoCopy.h"
#include "core/RTTIBase.h"
#include "core/Real.h"
#include "core/Vector2.h"

namespace nox {

class Screen;

class Window : public NoCopy, public RTTIBase {
  NOX_RTTI_DECLARE

 public:
  enum WindowState { kClosed = 0, kOpening = 1, kOpen = 2 };

  Window() = default;
  virtual ~Window() {}
  // Gets the frame's delta in ms; the base does nothing.
  virtual void Update(unsigned long ms) {}
  virtual void Draw() = 0;
  // To kOpen, unless already opening or open.
  virtual void Open();
  // To kClosed, only from opening or open.
  virtual void Close();
  virtual WindowState GetWindowState() const { return m_State; }
  virtual void SetSize(const Vector2& size) { m_Size = size; }
  virtual Vector2 GetSize() const { return m_Size; }
  virtual void SetPosition(const Vector2& position) { m_Position = position; }
  virtual Vector2 GetPosition() const { return m_Position; }
  virtual void SetDepth(Real depth) { m_Depth = depth; }
  virtual Real GetDepth() const { return m_Depth; }
  virtual void SetVisible(bool visible) { m_bVisible = visible; }
  virtual bool GetVisible() const { return m_bVisible; }
  // Stores the screen; a window of size exactly (0, 0) takes the whole size of the
  // screen's virtual rectangle.
  virtual void SetScreen(Screen* screen);
  virtual Screen* GetScreen() const { return m_pScreen; }
  // True when the input was consumed.
  virtual bool HandleInput() { return false; }

  // With a centred projection the window's projection has its origin at the centre of
  // its size (see ApplyOrthographicProjection).
  void SetCentredProjection(bool centred) { m_bCentredProjection = centred; }
  bool IsCentredProjection() const { return m_bCentredProjection; }

 private:
  WindowState m_State = kClosed;
  Vector2 m_Position;           // virtual pixels
  Vector2 m_Size;               // virtual pixels
  Real m_Depth;                 // for the window's own drawing
  Screen* m_pScreen = nullptr;  // not owned
  bool m_bVisible = true;
  bool m_bCentredProjection = false;
};

}  // namespace nox
