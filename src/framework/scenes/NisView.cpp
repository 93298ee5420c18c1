#include "scenes/NisView.h"

#include "scenes/NisScene.h"

namespace noxfw {

NOX_RTTI_DEFINE(NisView, nox::Window);

void NisView::Draw() {
  m_Scene.Draw(*this);
}

bool NisView::HandleInput() {
  return m_Scene.HandleInput(*this);
}

}  // namespace noxfw
