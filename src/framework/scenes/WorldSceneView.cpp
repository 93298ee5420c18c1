#include "scenes/WorldSceneView.h"

#include "scenes/WorldScene.h"

namespace noxfw {

NOX_RTTI_DEFINE(WorldSceneView, ActivityView);

WorldSceneView::WorldSceneView(WorldScene& scene) : ActivityView(scene), m_WorldScene(scene) {}

void WorldSceneView::Draw() {
  m_WorldScene.Draw(*this);
}

bool WorldSceneView::HandleInput() {
  return m_WorldScene.HandleInput(*this);
}

}  // namespace noxfw
