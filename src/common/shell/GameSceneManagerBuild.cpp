// GameSceneManager: building the scene of an id.
#include "core/Debug.h"
#include "core/DownloadManager.h"
#include "graphics/ScreenManager.h"
#include "graphics/Window.h"
#include "graphics/WindowManager.h"
#include "learning/BadgeManager.h"
#include "learning/Logger.h"
#include "menu/Menu.h"
#include "save/GameSaveGame.h"
#include "scenes/Scene.h"
#include "scenes/SimpleScene.h"
#include "shell/ActivityPicker.h"
#include "shell/GameNisScene.h"
#include "shell/GameSceneManager.h"
#include "shell/MainMenu.h"
#include "shell/PlayAgain.h"
#include "shell/ZonePicker.h"

namespace game {

bool GameSceneManager::CreateScene(unsigned long id) {
  if (noxfw::SceneManager::CreateScene(id)) {
    if (id == kSceneSettings) SetSoftUIVisibility(false);
    return true;
  }
  if (m_bStartOfRun) {
    GameSaveGame* save = GameSaveGame::s_pSaveGame;
    if (save) m_PlayTimeMs = save->GetData_PlayTime();
    if (noxfw::BadgeManager::sm_pInstance)
      m_BadgeCount = noxfw::BadgeManager::sm_pInstance->GetAwardedCount();
    nox::WindowManager* windows = nox::WindowManager::Get();
    if (windows && m_RewardPopUp.GetWindowState() == nox::Window::kClosed)
      windows->OpenWindow(&m_RewardPopUp, true);
  }
  if (id == kSceneMainMenu) {
    SetGameMode(Story);
    if (!m_bPlayAgain && m_bGameLogOpen) {
      noxfw::Logger::LogLeave("Game", noxfw::LogEventData());
      m_bGameLogOpen = false;
    }
  } else if (id == kSceneActivityPicker) {
    SetGameMode(Activity);
  } else if (id == kSceneMicromodMenu) {
    SetGameMode(Micromods);
  }
  unsigned long buildId = id;
  m_bPlayAgain = false;
  if (IsPlayAgainMenu(id)) buildId = kScenePlayAgain;
  if (id == kSceneMainMenu) PrepareMainMenuNews();
  SetupSoftButtons(id);
  const bool first = IsFirstVisit(id);

  // Normally the change has destroyed both already; a scene built over a running one
  // replaces it, its menu included.
  DeleteScene();
  delete m_pMenu;
  m_pMenu = nullptr;
  if (!BuildScene(buildId, first)) {
    // The change step asks again each frame under a covered screen; say so once.
    if (m_FailedSceneId != id) {
      nox::AutomationPrintf("Scene %lu %s cannot be built", id, GetSceneData().name);
      m_FailedSceneId = id;
    }
    return false;
  }
  m_FailedSceneId = 0;
  if (id < kSceneIdCount) m_bFirstVisit[id] = false;
  ActivateSoftButtons();
  EnterScene();
  return true;
}

void GameSceneManager::PrepareMainMenuNews() {
  m_MainMenuNews = MainMenuNews();
  noxfw::BadgeManager* badges = noxfw::BadgeManager::sm_pInstance;
  if (badges && badges->GetAwardedCount() > m_BadgeCount) {
    m_MainMenuNews.newBadge = true;
    m_BadgeCount = badges->GetAwardedCount();
  }
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (!save) return;
  nox::DownloadManager* downloads = nox::DownloadManager::Get();
  const uint32_t downloaded = downloads ? static_cast<uint32_t>(downloads->GetPackageCount()) : 0;
  if (save->GetData_ModCount() < downloaded) {
    m_MainMenuNews.newDownloads = true;
    save->SetData_ModCount(downloaded);
  }
  GameSaveData& block = save->GetBlock();
  if (block.firstQuestStarted) {
    m_MainMenuNews.newDrawing = true;
    block.firstQuestStarted = 0;
  }
}

bool GameSceneManager::BuildScene(unsigned long id, bool first) {
  nox::Scene* scene = nullptr;
  switch (id) {
    case kSceneTessalyLogo:
      scene = new TessalyLogoNis();
      break;
    case kSceneMorvaneLogo:
      scene = new MorvaneLogoNis();
      break;
    case kSceneQuennetLogo:
      scene = new QuennetLogoNis();
      break;
    case kSceneTitleCard:
      scene = new GameTitleCardNis();
      break;
    case kSceneMainMenu:
      m_pMenu = new MainMenu(first, m_MainMenuNews.newBadge, m_MainMenuNews.newDownloads,
                             m_MainMenuNews.newDrawing, M1Dialogue::kIntro, M1Dialogue::kRepeat);
      break;
    case kSceneActivityPicker:
      m_pMenu = new ActivityPicker(M2Dialogue::kIntro, M2Dialogue::kRepeat);
      break;
    case kSceneZonePicker:
      m_pMenu = new ZonePicker(M6Dialogue::kIntro, M6Dialogue::kRepeat);
      break;
    case kScenePlayAgain:
      m_pMenu = new PlayAgain(M5Dialogue::kIntro, M5Dialogue::kRepeat);
      break;
    default:
      break;
  }
  if (!scene && m_pMenu) {
    m_pMenu->SetScreen(nox::ScreenManager::Get());
    scene = new noxfw::SimpleScene(m_pMenu);
  }
  if (!scene) return false;
  SetScene(scene);
  return true;
}

unsigned long GameSceneManager::GetMenuSelection() const {
  const noxfw::Menu* menu = nox::TypeCast<noxfw::Menu>(m_pMenu);
  return menu ? static_cast<unsigned long>(menu->GetSelectedId()) : 0;
}

}  // namespace game
