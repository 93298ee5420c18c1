// A scene that shows one window and does nothing else: every menu runs in one. The
// window is borrowed; whoever made it (the game's scene manager, for menus) destroys
// it after the scene is gone.
#pragma once
#include "scenes/Scene.h"

namespace noxfw {

class SimpleScene : public nox::Scene {
  NOX_RTTI_DECLARE

 public:
  explicit SimpleScene(nox::Window* view = nullptr) : m_pView(view) {}

  void SetView(nox::Window* view) { m_pView = view; }
  unsigned long GetNumViews() const override { return 1; }
  nox::Window* GetView(unsigned long index) const override { return index == 0 ? m_pView : nullptr; }

 private:
  nox::Window* m_pView;  // not owned
};

}  // namespace noxfw
