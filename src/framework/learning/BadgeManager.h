// The badges a title can award and which of them the player has. The table belongs to
// the title (a static array of rows, one per badge, with the badge's id on the device);
// this singleton borrows it, marks rows as they are earned, keeps the earned count, and
// reports every award to the device's player profile through BadgeManager_pf.
//
// The debug setting "Award All Badges" makes every badge count as earned without
// marking any row. Created at start after the sound player, before the save game hands
// over what was earned in earlier runs (SetBadges).
#pragma once
#include <cstdint>

#include "platform/BadgeManager_pf.h"

namespace noxfw {

class BadgeManager : public BadgeManager_pf {
 public:
  struct Badge {
    uint32_t id;          // the title's badge index
    uint32_t platformId;  // the badge's id in the player's profile
    uint32_t awarded;     // bool
  };

  static void Create();
  static void Destroy();
  static BadgeManager* sm_pInstance;

  // Borrows `table` and counts its earned rows (all rows with "Award All Badges").
  void SetBadges(Badge* table, uint32_t count);
  // Reports badge `id` to the platform, every time; marks the row and counts it the
  // first time. An unknown id does nothing.
  void AwardBadge(uint32_t id);
  // Reports an achievement to the platform, `id` standing for both ids.
  void AwardAchievement(uint32_t id);
  using BadgeManager_pf::AwardBadge;

  bool IsAwarded(uint32_t id) const;
  uint32_t GetAwardedCount() const { return m_AwardedCount; }
  uint32_t GetBadgeCount() const { return m_Count; }

  ~BadgeManager() override;

 protected:
  // Protected so that a test can stand in for the platform with a derived class and
  // install it as sm_pInstance.
  BadgeManager();

 private:
  static bool AllBadgesAwarded();
  Badge* FindRow(uint32_t id) const;

  Badge* m_pTable = nullptr;  // borrowed from the title
  uint32_t m_Count = 0;
  uint32_t m_AwardedCount = 0;
};

}  // namespace noxfw
