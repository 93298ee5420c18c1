// A player on the platform, pointed at a temporary directory, with the singletons the
// save game and the badges need: host, paths, settings (with "Award All Badges"),
// badge manager with the game's table, and the save game itself.
#pragma once
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "../../engine/files/TestFiles.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "core/Settings.h"
#include "learning/BadgeManager.h"
#include "learning/Logger.h"
#include "ostra/HostConfig.h"
#include "ostra/PlayerProfile.h"
#include "save/GameSaveGame.h"
#include "shell/GameTitle.h"

namespace savetest {

namespace Host = Hollin::Ostra::Host;
using game::GameSaveGame;
using testfiles::Bytes;

// Stands in for the device's profile and counts what reaches it.
class CountingBadgeManager : public noxfw::BadgeManager {
 public:
  void AwardBadge(uint32_t id, uint32_t platformId) override {
    ++reports;
    lastPlatformId = platformId;
    noxfw::BadgeManager::AwardBadge(id, platformId);
  }
  using noxfw::BadgeManager::AwardBadge;
  int reports = 0;
  uint32_t lastPlatformId = 0;
};

class SaveEnvironment : public ::testing::Test {
 protected:
  void SetUp() override { StartPlayer(1, 3); }
  void TearDown() override {
    StopPlayer();
    Host::SetHostConfig(Host::HostConfig());
  }

  // Points the platform at `player` with `grade` in the profile (-1: leave it).
  void StartPlayer(uint32_t player, int grade, const std::string& root = std::string()) {
    StopPlayer();
    Host::HostConfig config;
    config.titlePath = m_Dir / "title";
    config.saveRoot = (root.empty() ? m_Dir.Path() : root) + "/players";
    config.playerId = player;
    config.grade = grade;
    config.quiet = true;
    config.logFile = m_Dir / "debug.log";
    Host::SetHostConfig(config);
    nox::GameHost::Create();
    nox::PathRegistry::Create();
    nox::Settings::Create();
    nox::Settings::s_pSettings->RegisterBool("Award All Badges", false, "1.Global", nullptr);
    noxfw::BadgeManager::sm_pInstance = &m_Badges;
    noxfw::Logger::Create();
    for (auto& row : game::GameTitle::s_Badges) row.awarded = 0;
    m_Badges.SetBadges(game::GameTitle::s_Badges, game::GameTitle::kBadgeCount);
    m_Badges.reports = 0;
    GameSaveGame::Create();
  }
  void StopPlayer() {
    GameSaveGame::Destroy();
    noxfw::Logger::Destroy();
    noxfw::BadgeManager::sm_pInstance = nullptr;
    nox::Settings::Destroy();
    nox::PathRegistry::Destroy();
    nox::GameHost::Destroy();
  }
  void SetGrade(int grade) {
    Vantle::CPlayerProfile(Host::GetHostConfig().playerId).SetGrade(static_cast<U8>(grade));
  }

  GameSaveGame& Save() { return *GameSaveGame::s_pSaveGame; }
  std::string SavePath() const {
    return nox::PathRegistry::sm_pInstance->GetLocalDataPath() + "/SaveGame.bin";
  }
  Bytes Block() {
    const unsigned char* p = reinterpret_cast<const unsigned char*>(&Save().GetBlock());
    return Bytes(p, p + sizeof(game::GameSaveData));
  }

  testfiles::TempDir m_Dir;
  CountingBadgeManager m_Badges;
};

inline uint32_t U32At(const Bytes& bytes, size_t offset) {
  return bytes[offset] | bytes[offset + 1] << 8 | bytes[offset + 2] << 16 | uint32_t(bytes[offset + 3]) << 24;
}

inline uint16_t U16At(const Bytes& bytes, size_t offset) {
  return static_cast<uint16_t>(bytes[offset] | bytes[offset + 1] << 8);
}

}  // namespace savetest
