// One player's profile: grade (255 = none recorded), name and earned badges, kept by the
// platform in "profile.txt" in the player's directory and rewritten atomically on change.
#pragma once
#include <string>
#include <vector>
#include "ostra/PlatformTypes.h"

namespace Vantle {

class CPlayerProfile {
 public:
  explicit CPlayerProfile(U32 playerId);
  U8 GetGrade() const;
  // Host side: records the player's grade (255 clears it). False when it cannot be saved.
  bool SetGrade(U8 grade);
  std::string GetName() const;
  // True when the badge is stored (also when it was there already).
  bool AddBadge(U32 platformBadgeId);
  bool HasBadge(U32 platformBadgeId) const;
  std::vector<U32> GetBadges() const;

 private:
  U32 m_PlayerId;
};

}  // namespace Vantle
