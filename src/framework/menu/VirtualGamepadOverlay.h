// A debug aid for a device without buttons: areas of the screen that act as pad
// buttons. Each area is a rectangle or a circle with the raw button bits it presses;
// while a finger is down in an area, its bits are pressed on a script controller
// that the overlay puts in front of controller slot 0 (passing the real buttons
// through), so everything that reads the pad sees them from the next frame on.
//
// A window for the overlay list. Open pushes the controller and Close takes it away
// again. The overlay owns its areas and its controller.
#pragma once
#include <cstdint>
#include <vector>

#include "core/Vector2.h"
#include "graphics/Rectangle.h"
#include "graphics/Window.h"
#include "input/ScriptController.h"
#include "platform/VirtualGamepadOverlay_pf.h"

namespace noxfw {

// One area: the bits it presses and its shape.
class ButtonArea {
 public:
  static const int kOutlinePoints = 16;

  explicit ButtonArea(unsigned long mask) : m_Mask(mask) {}
  virtual ~ButtonArea() {}
  // Edges included.
  virtual bool Contains(const nox::Vector2& point) const = 0;
  unsigned long GetMask() const { return m_Mask; }
  // The outline as x, y pairs, made once when the area is made.
  const nox::Real* GetOutline() const { return m_Outline; }
  int GetOutlineCount() const { return m_OutlineCount; }

 protected:
  nox::Real m_Outline[kOutlinePoints * 2];
  int m_OutlineCount = 0;

 private:
  unsigned long m_Mask;
};

class RectButton : public ButtonArea {
 public:
  RectButton(unsigned long mask, const nox::Rectangle& rect);
  bool Contains(const nox::Vector2& point) const override;
  const nox::Rectangle& GetRect() const { return m_Rect; }

 private:
  nox::Rectangle m_Rect;
};

class CircularButton : public ButtonArea {
 public:
  CircularButton(unsigned long mask, const nox::Vector2& centre, nox::Real radius);
  bool Contains(const nox::Vector2& point) const override;

 private:
  nox::Vector2 m_Centre;
  nox::Real m_Radius;
};

class VirtualGamepadOverlay : public nox::Window, private VirtualGamepadOverlay_pf {
  NOX_RTTI_DECLARE

 public:
  VirtualGamepadOverlay();
  ~VirtualGamepadOverlay() override;

  // The d-pad on the left, the face buttons in the middle and the shoulders above.
  void InitializeWithDefaultLayout();
  void AddRectButtonArea(unsigned long mask, const nox::Rectangle& rect);
  void AddCirculaturButtonArea(unsigned long mask, const nox::Vector2& centre, nox::Real radius);
  void ClearButtonArea();
  // The bits of every area that holds the point; 0 for none.
  unsigned long GetButtonForPoint(const nox::Vector2& point) const;
  // True when an area pressing any of `mask` holds the point.
  bool IsPointInButton(const nox::Vector2& point, unsigned long mask) const;
  int GetAreaCount() const { return static_cast<int>(m_Areas.size()); }
  // The bits pressed by the fingers now down.
  unsigned long GetPressedButtons() const { return m_Pressed; }
  nox::ScriptController& GetController() { return m_Controller; }

  void Open() override;
  void Close() override;
  void Draw() override;
  // Presses the bits under the fingers that are down and lets go of the others.
  // True when a finger is down on an area: that touch is the overlay's.
  bool HandleInput() override;

 private:
  std::vector<ButtonArea*> m_Areas;  // owned
  nox::ScriptController m_Controller;
  unsigned long m_Pressed = 0;   // raw bits
  unsigned long m_AllMasks = 0;  // every area's bits
  bool m_bPushed = false;        // the controller is in front of slot 0
};

}  // namespace noxfw
