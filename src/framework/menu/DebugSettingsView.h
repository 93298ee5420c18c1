// The window of the debug settings scene: it draws the scene's settings list and
// hands the input to the scene, which owns it.
#pragma once
#include "graphics/Window.h"

namespace noxfw {

class DebugSettingsScene;

class DebugSettingsView : public nox::Window {
  NOX_RTTI_DECLARE

 public:
  explicit DebugSettingsView(DebugSettingsScene& scene) : m_Scene(scene) {}

  void Draw() override;
  bool HandleInput() override;

 private:
  DebugSettingsScene& m_Scene;
};

}  // namespace noxfw
