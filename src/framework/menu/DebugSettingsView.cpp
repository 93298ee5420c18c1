#include "menu/DebugSettingsView.h"

#include "menu/DebugSettingsScene.h"

namespace noxfw {

NOX_RTTI_DEFINE(DebugSettingsView, nox::Window);

void DebugSettingsView::Draw() {
  m_Scene.Draw();
}

bool DebugSettingsView::HandleInput() {
  return m_Scene.HandleInput();
}

}  // namespace noxfw
