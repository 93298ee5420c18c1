#include "shell/GameNisScene.h"

#include "core/Debug.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"

namespace game {

NOX_RTTI_DEFINE(GameNisScene, noxfw::NisScene);

GameNisScene::GameNisScene(const char* assetName, bool skippable)
    : noxfw::NisScene(nullptr, skippable), m_AssetName(assetName ? assetName : "") {
  m_pData = new nox::TileAnimData(m_AssetName.c_str(), false, false);
  m_pAnimation = m_pData->CreateCellAnimation();
  if (!m_pAnimation) {
    nox::AutomationPrintf("NIS animation missing: %s", m_AssetName.c_str());
    return;
  }
  SetAnimation(m_pAnimation);
}

GameNisScene::~GameNisScene() {
  // The base lets go of the sprite before it is deleted; the sprite goes before its data.
  ReleaseAnimation();
  delete m_pAnimation;
  delete m_pData;
}

}  // namespace game
