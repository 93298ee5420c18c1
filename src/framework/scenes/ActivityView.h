// The window of an activity or world scene: it hands Draw and HandleInput to the
// scene, which owns it. Between BeginWorldLayer and EndWorldLayer what is drawn goes
// through the camera; outside them it sits on the screen.
#pragma once
#include "graphics/Window.h"
#include "platform/ActivityView_pf.h"

namespace nox {
class Camera;
}

namespace noxfw {

class ActivityScene;

class ActivityView : public nox::Window, protected ActivityView_pf {
  NOX_RTTI_DECLARE

 public:
  explicit ActivityView(ActivityScene& scene) : m_Scene(scene) {}

  void Draw() override;
  bool HandleInput() override;

  // Saves the model-view matrix and applies the camera's view to it.
  void BeginWorldLayer(const nox::Camera& camera);
  // Restores the matrix saved by BeginWorldLayer.
  void EndWorldLayer();

 private:
  ActivityScene& m_Scene;
};

}  // namespace noxfw
