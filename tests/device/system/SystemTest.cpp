// System data, profiles and downloads as the host configuration sets them up.
#include <gtest/gtest.h>

#include "../TempDir.h"
#include "ostra/BaseUtils.h"
#include "ostra/HostConfig.h"
#include "ostra/MicroDownloads.h"
#include "ostra/PlayerProfile.h"
#include "ostra/System.h"
#include "ostra/SystemData.h"

namespace {

using devicetest::ReadText;
using devicetest::TempDir;
using devicetest::WriteText;
namespace Host = Hollin::Ostra::Host;

class SystemTest : public ::testing::Test {
 protected:
  void Configure(int grade = Host::kGradeFromProfile) {
    Host::HostConfig config;
    config.titlePath = dir / "title";
    config.downloadsPath = dir / "downloads";
    config.saveRoot = dir / "players";
    config.stockAudioPath = dir / "stock";
    config.playerId = 2;
    config.grade = grade;
    config.locale = "en-gb";
    config.cheats = true;
    config.quiet = true;
    Host::SetHostConfig(config);
  }
  void TearDown() override { Host::SetHostConfig(Host::HostConfig()); }
  TempDir dir;
};

TEST_F(SystemTest, TheConfigurationIsWhatTheGameSees) {
  BaseUtils::MakeDirectories(dir / "title");
  WriteText(dir / "title/meta.inf", "PackageId=CORRIN-0001\n");
  Configure();
  EXPECT_EQ(Vantle::CSystem::GetCurrentPlayerID(), 2u);
  EXPECT_EQ(Vantle::CSystem::GetLocale(), "en-gb");
  EXPECT_TRUE(Vantle::CSystem::AreCheatsEnabled());
  CSystemData* data = CSystemData::Instance();
  EXPECT_EQ(data->GetCurrentTitlePath(), dir / "title");
  EXPECT_EQ(data->GetCartPath(), dir / "title");
  EXPECT_EQ(data->GetDownloadsPath(), dir / "downloads");
  EXPECT_EQ(data->GetCurrentGamePackageID(), "CORRIN-0001");
  // The save directory is made on first use, under the player's own directory.
  std::string local = data->GetLocalDataPath(2, "CORRIN-0001");
  EXPECT_EQ(local, dir / "players/2/CORRIN-0001");
  EXPECT_TRUE(BaseUtils::DirectoryExists(local));
}

TEST_F(SystemTest, StockSoundsAreFoundWithOrWithoutTheirSuffix) {
  Configure();
  BaseUtils::MakeDirectories(dir / "stock");
  WriteText(dir / "stock/h_OSTM_HomeSfx_6.ogg", "");
  CSystemData* data = CSystemData::Instance();
  EXPECT_EQ(data->FindAudio("h_OSTM_HomeSfx_6"), dir / "stock/h_OSTM_HomeSfx_6.ogg");
  EXPECT_EQ(data->FindAudio("h_OSTM_HomeSfx_6.ogg"), dir / "stock/h_OSTM_HomeSfx_6.ogg");
  EXPECT_EQ(data->FindAudio("h_OSTM_BackSfx_6"), "");
  EXPECT_EQ(data->FindAudio("../stock/h_OSTM_HomeSfx_6.ogg"), "");
}

TEST_F(SystemTest, DownloadsAreTheSubdirectoriesWithAMetaInfInSortedOrder) {
  Configure();
  EXPECT_TRUE(Vantle::CMicroDownloads::get(2).empty());  // no downloads directory at all
  for (const char* name : {"zeta", "alpha", "mid"}) {
    BaseUtils::MakeDirectories(dir / "downloads" + "/" + name + "/Files");
    WriteText(dir / "downloads" + "/" + name + "/meta.inf", std::string("PackageId=") + name + "\n");
  }
  BaseUtils::MakeDirectories(dir / "downloads/no-meta");
  WriteText(dir / "downloads/stray-file", "x");
  std::vector<std::string> packages = Vantle::CMicroDownloads::get(2);
  ASSERT_EQ(packages.size(), 3u);
  EXPECT_EQ(packages[0], dir / "downloads/alpha");
  EXPECT_EQ(packages[1], dir / "downloads/mid");
  EXPECT_EQ(packages[2], dir / "downloads/zeta");
}

TEST_F(SystemTest, AProfileKeepsItsGradeAndBadgesAcrossObjects) {
  Configure();
  Vantle::CPlayerProfile fresh(2);
  EXPECT_EQ(fresh.GetGrade(), Host::kNoGrade);
  EXPECT_EQ(fresh.GetName(), "Player 2");
  EXPECT_TRUE(fresh.GetBadges().empty());

  EXPECT_TRUE(fresh.AddBadge(40));
  EXPECT_TRUE(fresh.AddBadge(12));
  EXPECT_TRUE(fresh.AddBadge(40));  // twice is still once
  Vantle::CPlayerProfile again(2);
  EXPECT_EQ(again.GetBadges(), (std::vector<U32>{12, 40}));
  EXPECT_TRUE(again.HasBadge(12));
  EXPECT_FALSE(again.HasBadge(13));
  // Another player's profile is separate.
  EXPECT_TRUE(Vantle::CPlayerProfile(3).GetBadges().empty());

  // A grade given to the host is stored in the profile and kept with the badges.
  Configure(3);
  EXPECT_EQ(Vantle::CPlayerProfile(2).GetGrade(), 3);
  EXPECT_EQ(Vantle::CPlayerProfile(2).GetBadges().size(), 2u);
  Configure();  // no grade given: the stored one stays
  EXPECT_EQ(Vantle::CPlayerProfile(2).GetGrade(), 3);
  EXPECT_NE(ReadText(dir / "players/2/profile.txt").find("Grade=3\n"), std::string::npos);
}

TEST_F(SystemTest, ADamagedProfileFallsBackToNoGradeAndKeepsWhatItCan) {
  Configure();
  BaseUtils::MakeDirectories(dir / "players/2");
  WriteText(dir / "players/2/profile.txt", "Grade=300\nBadges=5,x,7,,5\ngarbage\nName=Ada\n");
  Vantle::CPlayerProfile profile(2);
  EXPECT_EQ(profile.GetGrade(), Host::kNoGrade);
  EXPECT_EQ(profile.GetBadges(), (std::vector<U32>{5, 7}));
  EXPECT_EQ(profile.GetName(), "Ada");
}

}  // namespace
