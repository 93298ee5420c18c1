// Device half of noxfw::BadgeManager: reports a badge to the current player's profile.
// The operations are virtual so that a title or a test can stand in for the platform.
#pragma once
#include <cstdint>

namespace noxfw {

class BadgeManager_pf {
 public:
  virtual ~BadgeManager_pf() {}
  // Adds `platformId` to the current player's badges. A session without a profile
  // (no player, or the guest) has nowhere to keep it and sends nothing.
  virtual void AwardBadge(uint32_t id, uint32_t platformId);
  // The achievement a badge counts towards; this platform has none: 99.
  virtual uint32_t GetBadgeAchievementId(uint32_t id);
};

}  // namespace noxfw
