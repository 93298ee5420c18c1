// The reward banner without its sprite files: notifications still queue, run in turn
// and end, so a scene waiting for the banner is never held for ever.
#include <gtest/gtest.h>

#include "../../engine/files/TestFiles.h"
#include "core/PathRegistry.h"
#include "ostra/HostConfig.h"
#include "shell/GameRewardPopUp.h"

namespace {

namespace Host = Hollin::Ostra::Host;

TEST(RewardPopUpTest, NotificationsWithoutSpritesStillQueueAndEnd) {
  testfiles::TempDir dir;
  Host::HostConfig config;
  config.titlePath = dir / "title";
  config.saveRoot = dir / "players";
  config.quiet = true;
  Host::SetHostConfig(config);
  nox::PathRegistry::Create();
  {
    game::GameRewardPopUp popUp;
    EXPECT_FALSE(popUp.IsNotificationShowing());
    popUp.ShowBadge(3);
    popUp.ShowBadge(game::GameRewardPopUp::kFinalBadge);
    popUp.ShowLevelUp();
    EXPECT_TRUE(popUp.IsNotificationShowing());
    int frames = 0;
    while (popUp.IsNotificationShowing() && frames < 100) {
      popUp.Update(16);
      ++frames;
    }
    EXPECT_FALSE(popUp.IsNotificationShowing());
    popUp.Draw();
    // Destroyed with a notification still queued.
    popUp.ShowLevelUp();
  }
  nox::PathRegistry::Destroy();
  Host::SetHostConfig(Host::HostConfig());
}

}  // namespace
