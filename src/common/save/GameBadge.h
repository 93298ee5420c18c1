// The game's badges and achievements, and its rule for awarding them. A badge is
// earned once: the first award shows the pop-up, reports the badge to the platform
// and saves it; a repeat does nothing. Earning every badge but the last earns the
// last, badge 34, which has no award of its own. Achievements go to the telemetry
// log once each, remembered in the save game's story flags.
//
// The scene manager's AwardBadge and AwardAchievement call these with its reward
// pop-up; needs noxfw::BadgeManager and game::GameSaveGame to exist.
#pragma once
#include <boost/function.hpp>
#include <cstdint>

namespace game {

class GameBadge {
 public:
  enum eGameBadge {
    eBadgeRiding = 7,
    eBadgePinTheTail = 8,
    eBadgeTriplets = 9,
    eBadgeRidingAllStars = 11,
    eBadgePinTheTailAllStars = 12,
    eBadgeTripletsAllStars = 13,
    eBadgeZone1Objects = 19,  // to 22 for zones 1 to 4
    eBadgeZone5Objects = 23,
    eBadgeAllBadges = 34,  // earned by earning all the others
    eBadgeCount = 35,
  };
  enum eGameAchievement {
    eAchievementCount = 8,
  };

  // Shows the pop-up for a badge index.
  typedef boost::function<void(int)> ShowBadgeFunction;

  // Awards `badge` (0 to 33; 34 comes by itself) unless it is earned or the setting
  // "Award All Badges" is on. True when anything was awarded.
  static bool Award(int badge, const ShowBadgeFunction& showBadge);
  // Logs achievement `value` (0 to 7) once; true when it was logged now.
  static bool AwardAchievement(int value);
  // The telemetry id of an achievement: 0..3 -> 40..43, 4..7 -> 45..48.
  static uint16_t AchievementLogId(int value);
  // The achievement that earning every badge gives.
  static const int kAllBadgesAchievement = 0;

 private:
  static bool AwardOne(int badge, const ShowBadgeFunction& showBadge);
};

}  // namespace game
