// One player's profile: grade (255 = none recorded) and earned badges, kept by the
// platform in the player's directory.
#pragma once
#include <string>
#include <vector>
#include "ostra/PlatformTypes.h"

namespace Vantle {

class CPlayerProfile {
 public:
  explicit CPlayerProfile(U32 playerId);
  U8 GetGrade() const;
  std::string GetName() const;
  bool AddBadge(U32 platformBadgeId);
  bool HasBadge(U32 platformBadgeId) const;
  std::vector<U32> GetBadges() const;

 private:
  U32 m_PlayerId;
};

}  // namespace Vantle
