#include "shell/GameTitle.h"

#include "core/GameHost.h"
#include "core/Settings.h"
#include "graphics/TileAnimation.h"
#include "learning/Logger.h"
#include "ostra/MetaInfo.h"
#include "ostra/SystemData.h"
#include "save/GameSaveGame.h"
#include "shell/GameSceneManager.h"
#include "sound/GameSoundManager.h"

namespace game {

GameTitle::GameTitle() {}

GameTitle::~GameTitle() {}

void GameTitle::Enter() {
  noxfw::Title::Enter();
  GameSoundManager::Create();
  GameSceneManager::Create();
  GameSaveGame::Create();
  noxfw::Logger::Create();
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  save->ReadAllData();
  for (int i = 0; i < kBadgeCount; ++i) s_Badges[i].awarded = save->GetData_Badge(i);
  noxfw::BadgeManager::sm_pInstance->SetBadges(s_Badges, kBadgeCount);
  nox::TileAnimation::SetDefaultFramesPerSecond(nox::Real(12));
  LogTitleStart();
  // The first scene is the Morvane logo; no fade-in comes before it.
  GameSceneManager* scenes = GameSceneManager::Get();
  scenes->SetSceneData(scenes->GetSceneDataFromTable(kSceneMorvaneLogo));
  scenes->CreateCurrScene();
  save->ApplyPlayerGrade(GameSaveGame::GetPlayerGrade());
}

void GameTitle::LogTitleStart() {
  // Defaults stand when the title has no valid meta information.
  noxfw::LogEventData data;
  data.id = 99;
  data.number = 1;
  data.name = "PartNumber";
  data.version = "PackageVersion";
  Vantle::CMetaInfo meta(CSystemData::Instance()->GetCurrentTitlePath());
  if (meta.IsValid()) {
    data.id = meta.GetProductId();
    data.name = meta.GetPartNumber();
    data.version = meta.GetPackageVersion();
  }
  noxfw::Logger::LogEnter("Title", data);
}

void GameTitle::HandleInput() {
  noxfw::Title::HandleInput();
  // Home means nothing while a scene change runs.
  GameSceneManager* scenes = GameSceneManager::Get();
  if (!scenes || scenes->IsChangingScene()) return;
}

void GameTitle::Update() {
  noxfw::Title::Update();
}

void GameTitle::Draw() {
  noxfw::Title::Draw();
}

void GameTitle::Leave() {
  GameSceneManager* scenes = GameSceneManager::Get();
  const uint32_t storedReason = scenes->GetExitReason();
  // The scene is told to go, and its queued steps get one update of no time.
  scenes->DoneScene(noxfw::ExitReason::Quit);
  scenes->Update(0);
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  save->SetData_FirstActivation(false);
  save->AddRunPlayTime(nox::GameHost::s_pGameHost->GetFrameMS());
  save->WriteAllData();
  GameSceneManager::Destroy();
  GameSaveGame::Destroy();
  noxfw::LogEventData data;
  data.reason = m_bExitFromMainMenu ? 0 : storedReason;
  noxfw::Logger::LogLeave("Title", data);
  noxfw::Logger::Destroy();
  noxfw::Title::Leave();
}

void GameTitle::Suspend() {
  m_bSuspended = true;
  if (GameSceneManager* scenes = GameSceneManager::Get()) scenes->PauseScene();
}

void GameTitle::Resume() {
  m_bSuspended = false;
  if (GameSceneManager* scenes = GameSceneManager::Get()) scenes->ResumeScene();
}

}  // namespace game
