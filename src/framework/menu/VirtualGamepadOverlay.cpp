#include "menu/VirtualGamepadOverlay.h"

#include "core/Trig.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "input/Input.h"

namespace noxfw {

NOX_RTTI_DEFINE(VirtualGamepadOverlay, nox::Window);

RectButton::RectButton(unsigned long mask, const nox::Rectangle& rect) : ButtonArea(mask), m_Rect(rect) {
  const nox::Real corners[8] = {rect.left,  rect.top,    rect.right, rect.top,
                                rect.right, rect.bottom, rect.left,  rect.bottom};
  for (int i = 0; i < 8; ++i) m_Outline[i] = corners[i];
  m_OutlineCount = 4;
}

bool RectButton::Contains(const nox::Vector2& p) const {
  return p.x >= m_Rect.left && p.x <= m_Rect.right && p.y >= m_Rect.top && p.y <= m_Rect.bottom;
}

CircularButton::CircularButton(unsigned long mask, const nox::Vector2& centre, nox::Real radius)
    : ButtonArea(mask), m_Centre(centre), m_Radius(radius < nox::Real() ? -radius : radius) {
  const nox::Real step = nox::Real(360 / kOutlinePoints);
  for (int i = 0; i < kOutlinePoints; ++i) {
    const nox::Real angle = step * nox::Real(i);
    m_Outline[2 * i] = centre.x + m_Radius * nox::cos(angle);
    m_Outline[2 * i + 1] = centre.y + m_Radius * nox::sin(angle);
  }
  m_OutlineCount = kOutlinePoints;
}

bool CircularButton::Contains(const nox::Vector2& p) const {
  // Squares of screen distances overflow Q16.16, so they are taken on the raw values.
  const int64_t dx = static_cast<int64_t>(p.x.Raw()) - m_Centre.x.Raw();
  const int64_t dy = static_cast<int64_t>(p.y.Raw()) - m_Centre.y.Raw();
  const int64_t r = m_Radius.Raw();
  return dx * dx + dy * dy <= r * r;
}

VirtualGamepadOverlay::VirtualGamepadOverlay() : m_Controller(true) {}

VirtualGamepadOverlay::~VirtualGamepadOverlay() {
  if (m_bPushed && nox::Input::s_pInput) nox::Input::s_pInput->RemoveController(0, &m_Controller);
  ClearButtonArea();
}

void VirtualGamepadOverlay::InitializeWithDefaultLayout() {
  static const struct {
    unsigned long mask;
    int left, top, right, bottom;
  } kLayout[] = {{8, 50, 100, 95, 145}, {2, 100, 150, 145, 195},  {4, 150, 100, 195, 145},
                 {1, 100, 50, 145, 95}, {16, 250, 100, 295, 145}, {32, 300, 100, 345, 145},
                 {64, 0, 50, 45, 95},   {128, 200, 50, 245, 95}};
  m_Areas.reserve(10);
  for (const auto& area : kLayout) {
    AddRectButtonArea(area.mask, nox::Rectangle(nox::Real(area.left), nox::Real(area.top),
                                                nox::Real(area.right), nox::Real(area.bottom)));
  }
}

void VirtualGamepadOverlay::AddRectButtonArea(unsigned long mask, const nox::Rectangle& rect) {
  m_Areas.push_back(new RectButton(mask, rect));
  m_AllMasks |= mask;
}

void VirtualGamepadOverlay::AddCirculaturButtonArea(unsigned long mask, const nox::Vector2& centre,
                                                    nox::Real radius) {
  m_Areas.push_back(new CircularButton(mask, centre, radius));
  m_AllMasks |= mask;
}

void VirtualGamepadOverlay::ClearButtonArea() {
  for (ButtonArea* area : m_Areas) delete area;
  m_Areas.clear();
  m_Controller.SetButtonPressed(static_cast<uint32_t>(m_AllMasks), false);
  m_AllMasks = 0;
  m_Pressed = 0;
}

unsigned long VirtualGamepadOverlay::GetButtonForPoint(const nox::Vector2& point) const {
  unsigned long bits = 0;
  for (const ButtonArea* area : m_Areas) {
    if (area->Contains(point)) bits |= area->GetMask();
  }
  return bits;
}

bool VirtualGamepadOverlay::IsPointInButton(const nox::Vector2& point, unsigned long mask) const {
  return (GetButtonForPoint(point) & mask) != 0;
}

void VirtualGamepadOverlay::Open() {
  nox::Window::Open();
  if (!m_bPushed && nox::Input::s_pInput) {
    nox::Input::s_pInput->PushController(0, &m_Controller);
    m_bPushed = true;
  }
}

void VirtualGamepadOverlay::Close() {
  nox::Window::Close();
  m_Controller.SetButtonPressed(static_cast<uint32_t>(m_AllMasks), false);
  m_Pressed = 0;
  if (m_bPushed && nox::Input::s_pInput) nox::Input::s_pInput->RemoveController(0, &m_Controller);
  m_bPushed = false;
}

bool VirtualGamepadOverlay::HandleInput() {
  const nox::Screen* screen = GetScreen() ? GetScreen() : nox::ScreenManager::Get();
  unsigned long bits = 0;
  if (screen) {
    for (int i = 0; i < screen->GetTouchStateCount(); ++i) {
      const nox::Screen::MultiTouchState& touch = screen->GetTouchState(i);
      if (touch.down) bits |= GetButtonForPoint(touch.lastPosition);
    }
  }
  m_Controller.SetButtonPressed(static_cast<uint32_t>(m_AllMasks & ~bits), false);
  m_Controller.SetButtonPressed(static_cast<uint32_t>(bits), true);
  m_Pressed = bits;
  return bits != 0;
}

void VirtualGamepadOverlay::Draw() {
  for (const ButtonArea* area : m_Areas) {
    DrawOutline(area->GetOutline(), area->GetOutlineCount(), (m_Pressed & area->GetMask()) != 0);
  }
}

}  // namespace noxfw
