// The window of a world scene: it hands Draw and HandleInput to the scene, which owns
// it. It is an ActivityView, so the world scene's frame and input run through the
// activity scene's code as well.
#pragma once
#include "scenes/ActivityView.h"

namespace noxfw {

class WorldScene;

class WorldSceneView : public ActivityView {
  NOX_RTTI_DECLARE

 public:
  explicit WorldSceneView(WorldScene& scene);

  void Draw() override;
  bool HandleInput() override;

 private:
  WorldScene& m_WorldScene;
};

}  // namespace noxfw
