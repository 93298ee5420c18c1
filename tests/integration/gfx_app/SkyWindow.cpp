#include "SkyWindow.h"

#include "core/Debug.h"

namespace gfxapp {

SkyWindow::SkyWindow() : m_Quad(32, 0) {}

bool SkyWindow::Load() {
  const bool ok = m_Quad.Initialize("GfxSky");
  if (!ok) nox::AutomationPrintf("gfx_app: background GfxSky is missing");
  m_Quad.SetPosition(nox::Vector2());
  m_Quad.Update();
  return ok;
}

void SkyWindow::Update(unsigned long ms) {
  m_ElapsedMS += static_cast<uint32_t>(ms);
  m_Quad.SetPosition(nox::Vector2(nox::Real(static_cast<int>(m_ElapsedMS / 8)),
                                  nox::Real(static_cast<int>(m_ElapsedMS / 24))));
  m_Quad.Update();
}

void SkyWindow::Draw() {
  m_Quad.Draw();
}

}  // namespace gfxapp
