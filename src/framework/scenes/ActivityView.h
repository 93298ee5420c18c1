// The window of an activity or world scene: it hands Draw and HandleInput to the
// scene, which owns it.
#pragma once
#include "graphics/Window.h"

namespace noxfw {

class ActivityScene;

class ActivityView : public nox::Window {
  NOX_RTTI_DECLARE

 public:
  explicit ActivityView(ActivityScene& scene) : m_Scene(scene) {}

  void Draw() override;
  bool HandleInput() override;

 private:
  ActivityScene& m_Scene;
};

}  // namespace noxfw
