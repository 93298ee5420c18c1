#include "shell/GameTitle.h"

#include "core/Debug.h"
#include "core/GameHost.h"
#include "core/Settings.h"
#include "graphics/TileAnimation.h"
#include "input/Controller.h"
#include "input/Input.h"
#include "learning/Logger.h"
#include "ostra/MetaInfo.h"
#include "ostra/SystemData.h"
#include "save/GameSaveGame.h"
#include "shell/GameSceneManager.h"
#include "sound/GameSoundManager.h"
#include "sound/PlayCopy.h"
#include "sound/SoundManager.h"

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
  LogSaveGame(*save, save->ReadAllData());
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

void GameTitle::LogSaveGame(GameSaveGame& save, bool read) {
  // What the player brings into this run, in one line for the tests and the curious.
  unsigned scenes = 0;
  for (int i = 0; i < kSaveScenes; ++i) scenes += save.GetData_SceneCount(i);
  unsigned badges = 0;
  for (int i = 0; i < kBadgeCount; ++i) badges += save.GetData_Badge(i) ? 1 : 0;
  nox::AutomationPrintf("Save game %s: first activation %d, play time %u s, scenes played %u, badges %u",
                        read ? "read" : "new", save.GetData_FirstActivation() ? 1 : 0,
                        static_cast<unsigned>(save.GetData_PlayTime()), scenes, badges);
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

namespace {

const uint32_t kHomeBit = 0x100;

// The scenes where Home asks whether to leave: the adventure and its journal, the
// activities, their intros and the zones' cut-scenes.
bool AsksBeforeHome(unsigned long id) {
  return (id >= kSceneAdventure && id <= kSceneActivity4) || id == 20 || id == 22 || id == 24 || id == 26 ||
         (id >= kSceneZone1Intro && id <= kSceneZone5Outro);
}

// The menus that the soft Home button simply leaves.
bool SoftHomeGoesBack(unsigned long id) {
  return id == kSceneActivityPicker || id == kSceneBadgeMenu || id == kSceneMicromodMenu ||
         id == kSceneZonePicker || id == kSceneMusicPlayer;
}

}  // namespace

void GameTitle::HandleInput() {
  noxfw::Title::HandleInput();
  // Home means nothing while a scene change runs.
  GameSceneManager* scenes = GameSceneManager::Get();
  if (!scenes) return;
  // An answer to the exit pop-up may have closed it in the windows' input just now.
  m_bExitPopUpOpen = scenes->IsExitPopUpOpen();
  if (scenes->IsChangingScene()) return;
  // The soft button's mark is read here, before this frame's update clears it.
  const bool softHome = scenes->GetHomeButtonTouched();
  nox::Controller* pad = nox::Input::s_pInput ? nox::Input::s_pInput->GetController(0) : nullptr;
  const bool home = softHome || (pad && pad->GetTriggeredButtons(kHomeBit));
  const unsigned long id = scenes->GetSceneId();
  if (home && AsksBeforeHome(id) && !m_bExitPopUpOpen) {
    scenes->TriggerHomeButton();
    if (scenes->ExitPrompt()) PlayCopy("h_OSTM_HomeSfx_6", 11);
  }
  if (home && id == kSceneMainMenu) {
    scenes->TriggerHomeButton();
    m_bExitFromMainMenu = true;
    if (scenes->ExitPrompt()) PlayCopy("h_OSTM_HomeSfx_6", 7);
  }
  m_bExitPopUpOpen = scenes->IsExitPopUpOpen();
  if (softHome && SoftHomeGoesBack(id)) {
    scenes->TriggerHomeButton();
    PlayCopy("h_OSTM_BackSfx_6", 11);
    scenes->DoneScene(noxfw::ExitReason::Back);
  }
}

void GameTitle::Update() {
  noxfw::Title::Update();
  // A yes to the pop-up closes it from its own script, in the windows' update.
  if (GameSceneManager* scenes = GameSceneManager::Get()) m_bExitPopUpOpen = scenes->IsExitPopUpOpen();
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
