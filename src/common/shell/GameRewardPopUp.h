// The banner that tells the child of a new badge or a new level. It drops in over
// whatever scene is running: the banner sprite "RewardPopUp" plays its "Badge"
// sequence, showing the badge's picture (frame `index` of "Achieved"), with a text
// sprite riding on its point "BadgeText" ("RewardPopUpText" for a badge,
// "LevelUpText" for a level) and a fanfare. Notifications queue on the pop-up's own
// sequencer and run one after the other; the scene manager holds the pop-up, updates
// it every frame and waits for IsNotificationShowing to turn false before it leaves
// a scene.
//
// Owns its sprite data, its sprites and its animation engine. Missing sprite files
// leave the pop-up silent and invisible, but its notifications still queue and end.
#pragma once
#include "graphics/AnimationEngine.h"
#include "graphics/Window.h"
#include "sequencer/Sequencer.h"

namespace nox {
class TileAnimData;
class TileAnimation;
}  // namespace nox

namespace game {

class GameRewardPopUp : public nox::Window {
  NOX_RTTI_DECLARE

 public:
  static const int kFinalBadge = 34;  // also says "you have earned every badge"

  GameRewardPopUp();
  ~GameRewardPopUp() override;

  void ShowBadge(int index);
  void ShowLevelUp();
  bool IsNotificationShowing() const { return m_bShowing; }

  void Update(unsigned long ms) override;
  void Draw() override;

 private:
  // Queues one notification: the text sprite, the fanfare, the banner's picture frame.
  void Queue(nox::TileAnimation* text, const char* fanfare, int frame, bool speech);
  void PlaceText();
  static nox::TileAnimation* MakeSprite(nox::TileAnimData*& data, const char* name);

  nox::AnimationEngine m_Engine;
  nox::TileAnimData* m_pBannerData = nullptr;     // owned
  nox::TileAnimData* m_pBadgeTextData = nullptr;  // owned
  nox::TileAnimData* m_pLevelTextData = nullptr;  // owned
  nox::TileAnimation* m_pBanner = nullptr;        // owned; null when its files are missing
  nox::TileAnimation* m_pBadgeText = nullptr;     // owned
  nox::TileAnimation* m_pLevelText = nullptr;     // owned
  noxfw::Sequencer m_Sequencer;
  bool m_bShowing = false;  // a notification is queued or running
};

}  // namespace game
