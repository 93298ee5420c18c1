#include "menu/DebugSettingsScene.h"

#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "input/Input.h"

namespace noxfw {

NOX_RTTI_DEFINE(DebugSettingsScene, nox::Scene);

DebugSettingsScene::DebugSettingsScene() : m_View(*this) {}

DebugSettingsScene::~DebugSettingsScene() {}

nox::Window* DebugSettingsScene::GetView(unsigned long index) const {
  return index == 0 ? const_cast<DebugSettingsView*>(&m_View) : nullptr;
}

bool DebugSettingsScene::HandleInput() {
  if (m_bDone || IsInputLocked() || IsPaused()) return false;
  if (m_Overlay.HandleInput()) return true;
  bool leave = false;
  if (nox::Input::s_pInput)
    leave = nox::Input::s_pInput->GetController(0)->GetTriggeredButtons(kLeaveMask) != 0;
  const nox::Screen* screen = nox::ScreenManager::Get();
  if (!leave && screen && screen->GetTouchStateCount() > 0) {
    const nox::Screen::MultiTouchState& touch = screen->GetTouchState(0);
    const nox::Rectangle& r = screen->GetVirtualRectangle();
    const nox::Real corner(DebugSettingsOverlay::kCornerPixels);
    const nox::Vector2& p = touch.triggerPosition;
    leave = touch.triggered && p.y - r.top <= corner && (p.x - r.left <= corner || r.right - p.x <= corner);
  }
  if (!leave) return false;
  Done();
  return true;
}

void DebugSettingsScene::Done() {
  if (m_bDone) return;
  m_bDone = true;
  LockInput();
  // The scene manager ends a scene that fires its event with Complete.
  nox::EventData data;
  FireEvent(this, &data);
}

void DebugSettingsScene::Update(unsigned long ms) {
  m_Overlay.Update(ms);
}

void DebugSettingsScene::Draw() {
  m_Overlay.Draw();
}

}  // namespace noxfw
