// The title's part in saving: the save is read and the earned badges handed over at
// start, and first activation, play time and the write happen at the end.
#include <gtest/gtest.h>

#include "../../engine/files/TestFiles.h"
#include "GameApp.h"
#include "core/PathRegistry.h"
#include "learning/BadgeManager.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"
#include "save/GameSaveGame.h"

namespace {

namespace Host = Hollin::Ostra::Host;
using game::GameSaveGame;

TEST(TitleSaveTest, ARunStartsFromTheSaveAndLeavesItsProgressInIt) {
  testfiles::TempDir dir;
  Host::HostConfig config;
  config.titlePath = dir / "title";
  config.saveRoot = dir / "players";
  config.downloadsPath = dir / "downloads";
  config.playerId = 2;
  config.grade = 4;
  config.clock = Host::ClockMode::kVirtual;
  config.quiet = true;
  Host::SetHostConfig(config);
  std::string savePath;
  {
    game::GameApp app(nullptr);
    app.Enter();
    GameSaveGame* save = GameSaveGame::s_pSaveGame;
    ASSERT_NE(save, nullptr);
    savePath = nox::PathRegistry::sm_pInstance->GetLocalDataPath() + "/SaveGame.bin";
    EXPECT_TRUE(save->GetData_FirstActivation());
    EXPECT_EQ(save->GetData_Grade(), 4);
    EXPECT_EQ(noxfw::BadgeManager::sm_pInstance->GetAwardedCount(), 0u);
    save->SetData_Badge(6, true);
    Hollin::Ostra::CKernelMPI().TaskSleep(5000);
    app.Update();
    app.Exit();
    EXPECT_EQ(GameSaveGame::s_pSaveGame, nullptr);
    EXPECT_EQ(noxfw::BadgeManager::sm_pInstance, nullptr);
  }
  testfiles::Bytes file = testfiles::ReadBytes(savePath);
  ASSERT_EQ(file.size(), 1888u);
  EXPECT_EQ(file[306], 0);  // first activation over
  EXPECT_EQ(file[308], 5);  // five seconds played
  EXPECT_EQ(file[258 + 6], 1);

  game::GameApp app(nullptr);
  app.Enter();
  EXPECT_FALSE(GameSaveGame::s_pSaveGame->GetData_FirstActivation());
  EXPECT_EQ(noxfw::BadgeManager::sm_pInstance->GetAwardedCount(), 1u);
  EXPECT_TRUE(noxfw::BadgeManager::sm_pInstance->IsAwarded(6));
  EXPECT_EQ(game::GameTitle::s_Badges[6].awarded, 1u);
  EXPECT_EQ(game::GameTitle::s_Badges[5].awarded, 0u);
  app.Exit();
  Host::SetHostConfig(Host::HostConfig());
}

}  // namespace
