#include "save/GameBadge.h"

#include "core/Settings.h"
#include "learning/BadgeManager.h"
#include "learning/Logger.h"
#include "save/GameSaveGame.h"

namespace game {
namespace {

bool AllBadgesSetting() {
  nox::Settings* settings = nox::Settings::s_pSettings;
  return settings && settings->GetBoolValue("Award All Badges");
}

}  // namespace

bool GameBadge::AwardOne(int badge, const ShowBadgeFunction& showBadge) {
  noxfw::BadgeManager* badges = noxfw::BadgeManager::sm_pInstance;
  if (badges->IsAwarded(badge)) return false;
  if (showBadge) showBadge(badge);
  badges->AwardBadge(badge);
  if (GameSaveGame* save = GameSaveGame::s_pSaveGame) save->SetData_Badge(badge, true);
  return true;
}

bool GameBadge::Award(int badge, const ShowBadgeFunction& showBadge) {
  noxfw::BadgeManager* badges = noxfw::BadgeManager::sm_pInstance;
  if (!badges || badge < 0 || badge >= eBadgeCount || AllBadgesSetting()) return false;
  bool changed = AwardOne(badge, showBadge);
  if (badges->GetAwardedCount() == eBadgeCount - 1 && AwardOne(eBadgeAllBadges, showBadge)) {
    AwardAchievement(kAllBadgesAchievement);
    changed = true;
  }
  return changed;
}

uint16_t GameBadge::AchievementLogId(int value) {
  return static_cast<uint16_t>(value < 4 ? 40 + value : 41 + value);
}

bool GameBadge::AwardAchievement(int value) {
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (!save || value < 0 || value >= eAchievementCount) return false;
  // One flag byte per achievement, in the story flags.
  if (save->GetStoryFlag(value)) return false;
  noxfw::Logger::LogBadge(AchievementLogId(value));
  save->SetStoryFlag(value, true);
  return true;
}

}  // namespace game
