#include "scenes/SceneManager.h"

#include <cstring>

#include "core/Debug.h"
#include "graphics/Window.h"
#include "graphics/WindowManager.h"
#include "menu/DebugSettingsScene.h"
#include "scenes/Scene.h"
#include "sequencer/ClassFuncSeqItem.h"
#include "sequencer/FaderSeqItem.h"
#include "sound/SoundManager.h"

namespace noxfw {

SceneManager* SceneManager::sm_pInstance = nullptr;

void SceneManager::Create() {
  if (!sm_pInstance) sm_pInstance = new SceneManager();
}

void SceneManager::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

SceneManager::SceneManager() {
  memset(&m_CurrentData, 0, sizeof m_CurrentData);
  memset(&m_NextData, 0, sizeof m_NextData);
  m_BackgroundMusic.SetVolume(100);
  m_BackgroundMusic.SetPan(0);
  m_BackgroundMusic.SetLoop(true);
  if (nox::SoundManager::sm_pInstance)
    nox::SoundManager::sm_pInstance->SetBackgroundMusic(&m_BackgroundMusic);
  AddRows(FrameworkSceneData::Table, FrameworkSceneData::kCount);
}

SceneManager::~SceneManager() {
  // Steps point at this manager and the scene: they go before the scene does.
  m_Sequencer.Empty();
  DeleteScene();
  nox::SoundManager* sound = nox::SoundManager::sm_pInstance;
  if (sound && sound->GetBackgroundMusic() == &m_BackgroundMusic) sound->SetBackgroundMusic(nullptr);
}

void SceneManager::DeleteScene() {
  if (!m_pScene) return;
  m_pScene->RemoveEventListener(this);
  nox::Window* view = m_pScene->GetView(0);
  nox::WindowManager* windows = nox::WindowManager::Get();
  if (view && windows && view->GetWindowState() != nox::Window::kClosed) windows->CloseWindow(view);
  delete m_pScene;
  m_pScene = nullptr;
}

void SceneManager::AddRows(const SceneData* rows, int count) {
  for (int i = 0; i < count; ++i) m_SceneTable[rows[i].id] = &rows[i];
}

void SceneManager::OnEventOccurred(nox::Scene* scene, const nox::EventData* data) {
  DoneScene(ExitReason::Complete);
}

void SceneManager::Update(unsigned long ms) {
  m_Sequencer.Update(ms);
  if (m_pScene) m_pScene->Update(ms);
}

SceneData SceneManager::GetSceneDataFromTable(unsigned long id) {
  SceneTable::const_iterator it = m_SceneTable.find(id);
  if (it != m_SceneTable.end() && it->second) return *it->second;
  nox::AutomationPrintf("Scene %lu has no row in the scene table", id);
  SceneData empty;
  memset(&empty, 0, sizeof empty);
  empty.id = static_cast<uint32_t>(id);
  return empty;
}

bool SceneManager::CreateCurrScene() {
  return CreateScene(GetSceneId());
}

bool SceneManager::CreateScene(unsigned long id) {
  // Ids 3 to 8 are the framework's debug and test scenes; of those only the settings
  // scene is built, the test scenes' ids wait under a covered screen like unknown ids.
  if (id != DebugSettingsScene::kSceneId) return false;
  SetScene(new DebugSettingsScene());
  EnterScene();
  return true;
}

void SceneManager::SetScene(nox::Scene* scene) {
  // One scene at a time: one built over a running scene replaces it.
  DeleteScene();
  m_pScene = scene;
  if (m_pScene) m_pScene->AddEventListener(this);
}

void SceneManager::PauseScene() {
  if (m_pScene) m_pScene->Pause();
}

void SceneManager::ResumeScene() {
  if (m_pScene) m_pScene->Resume();
}

void SceneManager::DoneScene(eExitReason reason) {
  m_NextData = GetNextScene(reason);
  // The next row remembers where it came from: its way back.
  m_NextData.next[ExitReason::Terminate] = static_cast<uint32_t>(GetSceneId());
  LeaveScene(reason);
}

SceneData SceneManager::GetNextScene(eExitReason reason) {
  if (reason == ExitReason::Terminate) {
    m_ExitReason = ExitReason::Terminate;
    return GetSceneDataFromTable(1);
  }
  unsigned long id = 0;
  if (reason >= 0 && reason < ExitReason::kCount) id = m_CurrentData.next[reason];
  if (id == 0) id = m_CurrentData.next[ExitReason::Terminate];
  if (id == 0) id = GetSceneId();
  if (id == 1) m_ExitReason = reason;
  return GetSceneDataFromTable(id);
}

void SceneManager::LeaveScene(eExitReason reason) {
  if (m_pScene) m_pScene->LockInput();
  if (reason == ExitReason::Terminate) {
    if (m_pScene) m_pScene->Leave();
    return;
  }
  QueueFadeOutEffect(reason);
  m_Sequencer.AppendItem(
      new ClassFuncSeqItem(&ClassFunc<SceneManager, &SceneManager::LeaveCurrentScene>, this));
  m_Sequencer.AppendItem(new ClassFuncSeqItem(&ClassFunc<SceneManager, &SceneManager::DestroyScene>, this));
  m_Sequencer.AppendItem(
      new ClassCheckBoolFuncSeqItem(&ClassFunc<SceneManager, &SceneManager::CreateCurrScene>, this, true));
  QueueFadeInEffect();
}

void SceneManager::LeaveCurrentScene() {
  if (m_pScene) m_pScene->Leave();
}

void SceneManager::QueueFadeOutEffect(eExitReason reason) {
  m_Sequencer.AppendItem(new FaderSeqItem(kFadeMs, false));
}

void SceneManager::QueueFadeInEffect() {
  m_Sequencer.AppendItem(new FaderSeqItem(kFadeMs, true));
}

void SceneManager::DestroyScene() {
  DeleteScene();
  // The moment at which the running row changes.
  SetSceneData(m_NextData);
}

void SceneManager::EnterScene() {
  if (!m_pScene) return;
  // Every scene that comes to be is named once in the automation log.
  nox::AutomationPrintf("Scene %u %s", static_cast<unsigned>(GetSceneId()), GetSceneData().name);
  nox::Window* view = m_pScene->GetView(0);
  if (view && nox::WindowManager::Get()) nox::WindowManager::Get()->OpenWindow(view, false);
  m_pScene->Enter();
  m_Sequencer.AppendItem(new ClassFuncSeqItem(&ClassFunc<SceneManager, &SceneManager::PlayScene>, this));
}

void SceneManager::PlayScene() {
  if (m_pScene) m_pScene->Play();
}

}  // namespace noxfw
