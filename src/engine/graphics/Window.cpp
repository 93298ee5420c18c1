#include "graphics/Window.h"

#include "graphics/Screen.h"
#include "graphics/WholePixel.h"

namespace nox {

NOX_RTTI_DEFINE(Window, RTTIBase);

void Window::Open() {
  if (m_State != kOpening && m_State != kOpen) m_State = kOpen;
}

void Window::Close() {
  if (m_State == kOpening || m_State == kOpen) m_State = kClosed;
}

void Window::SetScreen(Screen* screen) {
  m_pScreen = screen;
  if (!screen || m_Size != Vector2()) return;
  const Rectangle& r = screen->GetVirtualRectangle();
  m_Size = Vector2(WholeExtent(r.left, r.right), WholeExtent(r.top, r.bottom));
}

}  // namespace nox
