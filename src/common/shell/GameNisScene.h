// A cut-scene of this game: loads the sprite named by its asset (name + ".anim" and
// ".tex" from the animation directories) and plays it as a noxfw::NisScene. A missing
// or broken sprite gives one automation line and a black scene that still ends on
// time. Owns the sprite and its data.
#pragma once
#include <string>

#include "scenes/NisScene.h"

namespace nox {
class TileAnimData;
}

namespace game {

class GameNisScene : public noxfw::NisScene {
  NOX_RTTI_DECLARE

 public:
  explicit GameNisScene(const char* assetName, bool skippable = false);
  ~GameNisScene() override;

  const std::string& GetAssetName() const { return m_AssetName; }

 private:
  std::string m_AssetName;
  nox::TileAnimData* m_pData = nullptr;        // owned
  nox::TileAnimation* m_pAnimation = nullptr;  // owned
};

// The logos and the title card that open the game, ids 9 to 12.
class TessalyLogoNis : public GameNisScene {
 public:
  TessalyLogoNis() : GameNisScene("TessalyLogo") {}
};

class MorvaneLogoNis : public GameNisScene {
 public:
  MorvaneLogoNis() : GameNisScene("MorvaneLogo") {}
};

class QuennetLogoNis : public GameNisScene {
 public:
  QuennetLogoNis() : GameNisScene("QuennetLogo") {}
};

class GameTitleCardNis : public GameNisScene {
 public:
  GameTitleCardNis() : GameNisScene("GameTitleCard") {}
};

}  // namespace game
