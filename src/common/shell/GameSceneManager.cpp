#include "shell/GameSceneManager.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "core/Debug.h"
#include "core/DownloadManager.h"
#include "core/Settings.h"
#include "graphics/ScreenManager.h"
#include "graphics/Window.h"
#include "graphics/WindowManager.h"
#include "learning/BadgeManager.h"
#include "learning/Logger.h"
#include "menu/Menu.h"
#include "save/GameBadge.h"
#include "save/GameSaveGame.h"
#include "scenes/Scene.h"
#include "scenes/SimpleScene.h"
#include "sequencer/ClassFuncSeqItem.h"
#include "shell/GameNisScene.h"
#include "sound/SoundManager.h"
#include "sound/StreamingSound.h"

namespace game {

namespace {

bool BoolSetting(const char* name) {
  nox::Settings* settings = nox::Settings::s_pSettings;
  return settings && settings->GetBoolValue(name);
}

}  // namespace

void GameSceneManager::Create() {
  if (!sm_pInstance) sm_pInstance = new GameSceneManager();
}

void GameSceneManager::Destroy() {
  noxfw::SceneManager::Destroy();
}

GameSceneManager* GameSceneManager::Get() {
  // Only the game installs a scene manager in this program.
  return static_cast<GameSceneManager*>(sm_pInstance);
}

GameSceneManager::GameSceneManager() {
  AddRows(GameSceneData::StoryMode, GameSceneData::kStoryCount);
  for (const SceneData& row : GameSceneData::GameData) m_MusicTable[row.id] = &row;
  for (bool& first : m_bFirstVisit) first = true;
  CreateSoftButtons();
}

GameSceneManager::~GameSceneManager() {
  // The menu's steps and the scene that shows it go first (they borrow the menu).
  m_Sequencer2.Empty();
  m_Sequencer.Empty();
  DestroyScene();
  nox::WindowManager* windows = nox::WindowManager::Get();
  if (windows && m_RewardPopUp.GetWindowState() != nox::Window::kClosed) windows->CloseWindow(&m_RewardPopUp);
  if (windows && IsExitPopUpOpen()) windows->CloseWindow(&m_ExitPopUp);
  DestroySoftButtons();
}

void GameSceneManager::Update(unsigned long ms) {
  noxfw::SceneManager::Update(ms);
  m_Sequencer2.Update(ms);
  if (ms < kLongFrameMs) m_PlayTimeMs += static_cast<uint32_t>(ms);
}

bool GameSceneManager::IsFirstVisit(unsigned long id) const {
  return id < kSceneIdCount && m_bFirstVisit[id];
}

bool GameSceneManager::IsScenePaused() const {
  if (const noxfw::Menu* menu = nox::TypeCast<noxfw::Menu>(m_pMenu)) return menu->IsPaused();
  if (m_pScene) return m_pScene->IsPaused();
  return true;
}

void GameSceneManager::SetGameMode(GameMode mode) {
  if (mode == m_GameMode) return;
  if (m_GameMode == Story && mode == Activity) {
    AddRows(GameSceneData::ActivityMode, GameSceneData::kActivityCount);
  } else if (mode == Activity) {
    // From Micromods: the story rows first, then the activity rows over them.
    AddRows(GameSceneData::StoryMode, GameSceneData::kStoryCount);
    AddRows(GameSceneData::ActivityMode, GameSceneData::kActivityCount);
  } else {
    AddRows(GameSceneData::StoryMode, GameSceneData::kStoryCount);
    if (mode == Micromods) AddRows(GameSceneData::MicromodsMode, GameSceneData::kMicromodsCount);
  }
  m_GameMode = mode;
}

const char* GameSceneManager::GetSceneMusic(unsigned long id, bool& restart) const {
  if (id == kSceneAdventure) {
    static const char* const kZoneMusic[kZoneCount] = {
        "MUS_Castle_Zone1", "MUS_Forest_Zone2", "MUS_Forest_Zone3", "MUS_Ruins_Zone4", "MUS_Castle_Zone5"};
    GameSaveGame* save = GameSaveGame::s_pSaveGame;
    restart = false;
    return kZoneMusic[save ? save->GetCurrentZone() : 0];
  }
  if (id >= kSceneZone1Intro && id <= kSceneZone5Outro) {
    restart = false;
    return "MUS_NIS";
  }
  MusicTable::const_iterator it = m_MusicTable.find(id);
  if (it == m_MusicTable.end()) {
    restart = true;
    return "NONE";
  }
  restart = it->second->restart != 0;
  return it->second->music;
}

void GameSceneManager::DoneScene(eExitReason reason) {
  const unsigned long id = GetSceneId();
  m_LeavingSceneId = id;
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  const bool ended = reason == noxfw::ExitReason::Complete || reason == noxfw::ExitReason::Incomplete;
  if (save && m_GameMode == Story && ended && IsActivity(id)) {
    save->SetData_SceneCompleted(static_cast<int>(id), true);
    save->SetData_SceneUnlocked(static_cast<int>(id), true);
  }
  noxfw::SceneManager::DoneScene(reason);
}

void GameSceneManager::LeaveScene(eExitReason reason) {
  const unsigned long id = GetSceneId();
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (save) {
    if (reason == noxfw::ExitReason::Complete || reason == noxfw::ExitReason::Incomplete) {
      const int i = static_cast<int>(id);
      save->SetData_SceneCount(i, static_cast<uint16_t>(save->GetData_SceneCount(i) + 1));
    }
    if (BoolSetting("Erase Save Game")) {
      nox::Settings::s_pSettings->SetBoolValue("Erase Save Game", false);
      save->ResetData();
    }
    // Every scene change is a checkpoint.
    save->WriteAllData();
  }
  // Quit, always: the game never takes the base's Terminate branch.
  noxfw::SceneManager::LeaveScene(noxfw::ExitReason::Quit);
  // Riding is not logged.
  if (IsActivity(id) && id != kSceneActivity1) LogActivityLeave(id, reason);
  m_bStartOfRun = false;
}

void GameSceneManager::QueueFadeOutEffect(eExitReason reason) {
  m_Sequencer.AppendItem(new noxfw::ClassCheckBoolFuncSeqItem(
      &noxfw::ClassFunc<GameSceneManager, &GameSceneManager::IsRewardPopUpQuiet>, this, true));
  noxfw::SceneManager::QueueFadeOutEffect(reason);
}

void GameSceneManager::EnterScene() {
  const unsigned long id = GetSceneId();
  if (IsActivity(id) && id != kSceneActivity1) LogActivityEnter(id);
  noxfw::SceneManager::EnterScene();
  // A question still up from the scene before goes with it.
  nox::WindowManager* windows = nox::WindowManager::Get();
  if (windows && m_ExitPopUp.GetWindowState() == nox::Window::kOpen) windows->CloseWindow(&m_ExitPopUp);
}

void GameSceneManager::PlayScene() {
  noxfw::SceneManager::PlayScene();
  nox::SoundManager* sound = nox::SoundManager::sm_pInstance;
  if (!sound) return;
  if (BoolSetting("Stop all BGM")) {
    sound->StopBackgroundMusic();
    return;
  }
  bool restart = false;
  const char* track = GetSceneMusic(GetSceneId(), restart);
  if (strcmp(track, "NONE") != 0) {
    sound->StopBackgroundMusic();
    sound->PlayBackgroundMusic(track, restart);
  } else if (restart) {
    sound->StopBackgroundMusic();
  }
}

void GameSceneManager::PauseScene() {
  if (m_BackgroundMusic.IsPlaying()) m_BackgroundMusic.Pause();
  nox::SoundManager* sound = nox::SoundManager::sm_pInstance;
  if (sound) {
    for (uint32_t c = 1; c <= 10; ++c) sound->Pause(c);
  }
  if (noxfw::Menu* menu = nox::TypeCast<noxfw::Menu>(m_pMenu)) {
    menu->Pause();
  } else {
    noxfw::SceneManager::PauseScene();
  }
}

void GameSceneManager::ResumeScene() {
  if (m_BackgroundMusic.IsPlaying() && m_BackgroundMusic.IsPaused()) m_BackgroundMusic.Resume();
  nox::SoundManager* sound = nox::SoundManager::sm_pInstance;
  if (sound) {
    // One category further than PauseScene, which does no harm.
    for (uint32_t c = 1; c <= 11; ++c) sound->Resume(c);
  }
  if (noxfw::Menu* menu = nox::TypeCast<noxfw::Menu>(m_pMenu)) {
    menu->Resume();
  } else {
    noxfw::SceneManager::ResumeScene();
  }
  ActivateSoftButtons();
}

void GameSceneManager::DestroyScene() {
  noxfw::SceneManager::DestroyScene();
  delete m_pMenu;
  m_pMenu = nullptr;
}

bool GameSceneManager::ExitPrompt() {
  if (IsChangingScene() || IsExitPopUpOpen()) return false;
  const unsigned long target = GetExitTarget();
  PauseScene();
  m_ExitPopUp.ExitPrompt(target);
  return true;
}

unsigned long GameSceneManager::GetExitTarget() {
  const unsigned long id = GetSceneId();
  if (id == kSceneMainMenu) return GameExitPopUp::kExitTitle;
  if (m_GameMode == Story && IsActivity(id)) return kSceneAdventure;
  return GetNextScene(noxfw::ExitReason::Back).id;
}

bool GameSceneManager::AwardBadge(int index) {
  if (!noxfw::BadgeManager::sm_pInstance || !GameSaveGame::s_pSaveGame) return false;
  return GameBadge::Award(index, [this](int shown) { m_RewardPopUp.ShowBadge(shown); });
}

void GameSceneManager::AwardAchievement(uint32_t value) {
  if (!GameSaveGame::s_pSaveGame) return;
  GameBadge::AwardAchievement(static_cast<int>(value));
}

void GameSceneManager::LogActivityEnter(unsigned long id) {
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  noxfw::LogEventData data;
  if (save) {
    const int slot = GameSaveGame::ActivitySlot(static_cast<int>(id));
    char level[16];
    snprintf(level, sizeof level, "%d.%d", save->GetData_ActivityLevel(slot),
             save->GetData_ActivitySublevel(slot));
    data.info = level;
  }
  MusicTable::const_iterator it = m_MusicTable.find(id);
  if (it != m_MusicTable.end()) {
    data.name = it->second->activityId;
    data.id = static_cast<uint32_t>(strtoul(it->second->activityId, nullptr, 10));
  }
  noxfw::Logger::LogEnter("Activity", data);
}

void GameSceneManager::LogActivityLeave(unsigned long id, eExitReason reason) {
  noxfw::LogEventData data;
  data.reason = static_cast<uint32_t>(reason);
  data.id = m_ActivityTimeMs;
  noxfw::Logger::LogLeave("Activity", data);
  m_ActivityTimeMs = 0;
}

}  // namespace game
