#include "platform/BadgeManager_pf.h"

#include "ostra/PlayerProfile.h"
#include "ostra/System.h"
#include "platform/SaveGame_pf.h"

namespace noxfw {

void BadgeManager_pf::AwardBadge(uint32_t id, uint32_t platformId) {
  if (SaveGame_pf::IsSessionWithoutProfile()) return;
  Vantle::CPlayerProfile(Vantle::CSystem::GetCurrentPlayerID()).AddBadge(platformId);
}

uint32_t BadgeManager_pf::GetBadgeAchievementId(uint32_t id) {
  return 99;
}

}  // namespace noxfw
