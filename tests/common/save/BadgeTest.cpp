// The game's way of awarding badges and achievements: once each, the last badge by
// itself, nothing with "Award All Badges", and the device's profile told once.
#include <gtest/gtest.h>

#include <vector>

#include "SaveEnvironment.h"
#include "ostra/LogFile.h"
#include "save/GameBadge.h"

namespace savetest {
namespace {

using game::GameBadge;

class BadgeTest : public SaveEnvironment {
 protected:
  void SetUp() override {
    SaveEnvironment::SetUp();
    Save().ResetData();
  }
  bool Award(int badge) {
    return GameBadge::Award(badge, [this](int shown) { m_PopUps.push_back(shown); });
  }
  int LogLines(const std::string& text) {
    std::string log = testfiles::ReadText(CLogFile::Instance()->GetPath());
    int n = 0;
    for (size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) ++n;
    return n;
  }
  std::vector<int> m_PopUps;
};

TEST_F(BadgeTest, AwardingABadgeTwiceShowsOnePopUpAndTellsTheDeviceOnce) {
  EXPECT_TRUE(Award(5));
  EXPECT_FALSE(Award(5));
  EXPECT_EQ(m_PopUps, std::vector<int>{5});
  EXPECT_EQ(m_Badges.reports, 1);
  EXPECT_EQ(m_Badges.lastPlatformId, 6u);
  EXPECT_TRUE(Save().GetData_Badge(5));
  EXPECT_EQ(m_Badges.GetAwardedCount(), 1u);
  // The device half stored it in the player's profile under the device's id.
  EXPECT_TRUE(Vantle::CPlayerProfile(1).HasBadge(6));
}

TEST_F(BadgeTest, TheThirtyFourthBadgeBringsTheLastOneAndItsAchievement) {
  for (int badge = 0; badge < 33; ++badge) ASSERT_TRUE(Award(badge));
  EXPECT_FALSE(Save().GetData_Badge(34));
  m_PopUps.clear();
  EXPECT_TRUE(Award(33));
  EXPECT_EQ(m_PopUps, (std::vector<int>{33, 34}));
  EXPECT_EQ(m_Badges.lastPlatformId, 49u);
  EXPECT_TRUE(Save().GetData_Badge(34));
  EXPECT_EQ(m_Badges.GetAwardedCount(), 35u);
  EXPECT_TRUE(Save().GetStoryFlag(GameBadge::kAllBadgesAchievement));
  EXPECT_EQ(LogLines("\"id\":40"), 1);
}

TEST_F(BadgeTest, WithAwardAllBadgesNothingHappensAtAll) {
  nox::Settings::s_pSettings->SetBoolValue("Award All Badges", true);
  m_Badges.SetBadges(game::GameTitle::s_Badges, game::GameTitle::kBadgeCount);
  EXPECT_EQ(m_Badges.GetAwardedCount(), 35u);
  EXPECT_FALSE(Award(3));
  EXPECT_TRUE(m_PopUps.empty());
  EXPECT_EQ(m_Badges.reports, 0);
  EXPECT_FALSE(Save().GetData_Badge(3));
}

TEST_F(BadgeTest, TheManagerReportsEveryAwardButCountsEachBadgeOnce) {
  noxfw::BadgeManager::Badge table[3] = {{0, 1, 0}, {1, 2, 1}, {2, 3, 0}};
  m_Badges.SetBadges(table, 3);
  EXPECT_EQ(m_Badges.GetAwardedCount(), 1u);
  m_Badges.AwardBadge(1);
  m_Badges.AwardBadge(2);
  m_Badges.AwardBadge(2);
  EXPECT_EQ(m_Badges.reports, 3);
  EXPECT_EQ(m_Badges.GetAwardedCount(), 2u);
  EXPECT_EQ(table[2].awarded, 1u);
  m_Badges.AwardBadge(7);  // no such row
  EXPECT_EQ(m_Badges.reports, 3);
  m_Badges.AwardAchievement(45);
  EXPECT_EQ(m_Badges.lastPlatformId, 45u);
  EXPECT_EQ(m_Badges.GetBadgeAchievementId(2), 99u);
}

TEST_F(BadgeTest, AnAchievementIsLoggedOnceUnderItsTelemetryId) {
  const uint16_t ids[] = {40, 41, 42, 43, 45, 46, 47, 48};
  for (int value = 0; value < 8; ++value) EXPECT_EQ(GameBadge::AchievementLogId(value), ids[value]);
  EXPECT_TRUE(GameBadge::AwardAchievement(5));
  EXPECT_FALSE(GameBadge::AwardAchievement(5));
  EXPECT_FALSE(GameBadge::AwardAchievement(8));
  EXPECT_EQ(LogLines("\"id\":46"), 1);
  EXPECT_EQ(Save().GetBlock().storyFlags[5], 1);
}

TEST_F(BadgeTest, AGuestsBadgesReachNoProfile) {
  StartPlayer(3, -1);
  Save().ResetData();
  EXPECT_TRUE(Award(0));
  EXPECT_EQ(m_Badges.reports, 1);
  EXPECT_TRUE(Save().GetData_Badge(0));
  EXPECT_FALSE(Vantle::CPlayerProfile(3).HasBadge(1));
  EXPECT_FALSE(testfiles::Exists(m_Dir / "players/3/profile.txt"));
}

}  // namespace
}  // namespace savetest
