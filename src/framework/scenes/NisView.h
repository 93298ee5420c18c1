// The window of a cut-scene: it hands its Draw and HandleInput to the scene, which
// owns it.
#pragma once
#include "graphics/Window.h"

namespace noxfw {

class NisScene;

class NisView : public nox::Window {
  NOX_RTTI_DECLARE

 public:
  explicit NisView(NisScene& scene) : m_Scene(scene) {}

  void Draw() override;
  bool HandleInput() override;

 private:
  NisScene& m_Scene;
};

}  // namespace noxfw
