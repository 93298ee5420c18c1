#include "shell/GameTitle.h"

#include "core/GameHost.h"
#include "core/Settings.h"
#include "graphics/TileAnimation.h"
#include "learning/Logger.h"
#include "ostra/MetaInfo.h"
#include "ostra/SystemData.h"
#include "save/GameSaveGame.h"
#include "sound/GameSoundManager.h"

namespace game {

GameTitle::GameTitle() {}

GameTitle::~GameTitle() {}

void GameTitle::Enter() {
  noxfw::Title::Enter();
  GameSoundManager::Create();
  GameSaveGame::Create();
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  save->ReadAllData();
  for (int i = 0; i < kBadgeCount; ++i) s_Badges[i].awarded = save->GetData_Badge(i);
  noxfw::BadgeManager::sm_pInstance->SetBadges(s_Badges, kBadgeCount);
  nox::TileAnimation::SetDefaultFramesPerSecond(nox::Real(12));
  save->ApplyPlayerGrade(GameSaveGame::GetPlayerGrade());
}

void GameTitle::HandleInput() {
  noxfw::Title::HandleInput();
}

void GameTitle::Update() {
  noxfw::Title::Update();
}

void GameTitle::Draw() {
  noxfw::Title::Draw();
}

void GameTitle::Leave() {
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  save->SetData_FirstActivation(false);
  save->AddRunPlayTime(nox::GameHost::s_pGameHost->GetFrameMS());
  save->WriteAllData();
  GameSaveGame::Destroy();
  noxfw::Title::Leave();
}

void GameTitle::Suspend() {
  m_bSuspended = true;
}

void GameTitle::Resume() {
  m_bSuspended = false;
}

}  // namespace game
