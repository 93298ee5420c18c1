#include "graphics/Window.h"

namespace nox {

void Window::Open() {
  if (m_State != kOpening && m_State != kOpen) m_State = kOpen;
}

void Window::Close() {
  if (m_State == kOpening || m_State == kOpen) m_State = kClosed;
}

}  // namespace nox
