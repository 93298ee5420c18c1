#include "scenes/ActivityView.h"

#include "scenes/ActivityScene.h"

namespace noxfw {

NOX_RTTI_DEFINE(ActivityView, nox::Window);

void ActivityView::Draw() {
  m_Scene.Draw(*this);
}

bool ActivityView::HandleInput() {
  return m_Scene.HandleInput(*this);
}

}  // namespace noxfw
