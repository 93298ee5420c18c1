#include "scenes/ActivityView.h"

#include "scenes/ActivityScene.h"
#include "scenes/Camera.h"

namespace noxfw {

NOX_RTTI_DEFINE(ActivityView, nox::Window);

void ActivityView::Draw() {
  m_Scene.Draw(*this);
}

bool ActivityView::HandleInput() {
  return m_Scene.HandleInput(*this);
}

void ActivityView::BeginWorldLayer(const nox::Camera& camera) {
  PushModelView();
  camera.Apply();
}

void ActivityView::EndWorldLayer() {
  PopModelView();
}

}  // namespace noxfw
