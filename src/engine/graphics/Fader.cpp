#include "graphics/Fader.h"

#include <utility>

#include "core/GameHost.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/WholePixel.h"

namespace nox {

Fader::Fader() {
  SetupVertices();
}

uint32_t Fader::Now() {
  return GameHost::s_pGameHost ? GameHost::s_pGameHost->GetCurrentMilliseconds() : 0;
}

void Fader::SetupVertices() {
  const Screen* screen = GetScreen() ? GetScreen() : ScreenManager::Get();
  int32_t width = 480;
  int32_t height = 272;
  m_Orientation = Screen::kUpright;
  if (screen) {
    const Rectangle& r = screen->GetVirtualRectangle();
    width = WholeExtentInt(r.left, r.right);
    height = WholeExtentInt(r.top, r.bottom);
    m_Orientation = screen->GetOrientation();
    if (screen->IsSideways()) std::swap(width, height);
  }
  const int16_t w = static_cast<int16_t>(width);
  const int16_t h = static_cast<int16_t>(height);
  const int16_t quad[18] = {0, 0, 0, 0, h, 0, w, h, 0, 0, 0, 0, w, h, 0, w, 0, 0};
  for (int i = 0; i < 18; ++i) m_Vertices[i] = quad[i];
}

void Fader::Start(Real target, Real speed) {
  m_StartLevel = m_Level;
  m_Target = target;
  m_Speed = speed;
  m_StartMS = Now();
}

void Fader::FadeIn(unsigned short ms) {
  if (ms == 0) {
    SetLevel(Real());
    return;
  }
  Start(Real(), -m_Level / Real(static_cast<unsigned>(ms)));
  m_EndMS = m_StartMS + ms;
}

void Fader::FadeOut(unsigned short ms) {
  if (ms == 0) {
    SetLevel(Real(1));
    return;
  }
  Start(Real(1), (Real(1) - m_Level) / Real(static_cast<unsigned>(ms)));
  m_EndMS = m_StartMS + ms;
}

void Fader::SetLevel(Real level) {
  m_Level = level;
  m_Target = level;
  m_Speed = Real();
}

void Fader::Update(unsigned long ms) {
  const Screen* screen = GetScreen() ? GetScreen() : ScreenManager::Get();
  if (screen && screen->GetOrientation() != m_Orientation) SetupVertices();
  if (m_Speed == Real()) return;
  // Elapsed ms become a Real by the plain shift, as all whole numbers do.
  m_Level = m_StartLevel + Real(Now() - m_StartMS) * m_Speed;
  const bool reached = m_Speed > Real() ? m_Level >= m_Target : m_Level <= m_Target;
  if (reached) {
    m_Speed = Real();
    m_Level = m_Target;
  }
}

void Fader::Draw() {
  if (m_Level == Real()) return;
  DrawQuad(m_Vertices, m_Colour, m_Level);
}

}  // namespace nox
