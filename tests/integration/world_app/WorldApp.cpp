// The world test title: a third App.so, never part of the game, that runs one
// noxfw::WorldScene (WorldRunScene) under appmanager end to end: a level compiled by
// levelc, sprites and scenery drawn by artgen, characters falling onto walls, taps
// and an arena change. Its frame is the game's: host clock, input poll, window input,
// the scene's update with the frame's delta, window update, clear, draw, swap. Lines:
//   world_app: enter
//   world_app: exit after N frames
// and those of WorldRunScene and Walker.
#include <boost/make_shared.hpp>

#include "WorldRunScene.h"
#include "core/Debug.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "graphics/ScreenManager.h"
#include "graphics/WindowManager.h"
#include "input/Input.h"
#include "ostra/AppInterface.h"

namespace worldapp {

namespace {

const uint32_t kMaxFrameMS = 1000;  // a longer frame counts as no time at all

class WorldApp : public CAppInterface {
 public:
  void Enter() override {
    AllocOverideEnable();
    nox::GameHost::Create();
    nox::PathRegistry::Create();
    nox::ScreenManager::Create();
    nox::WindowManager::Create();
    nox::Input::Create(1);
    nox::WindowManager::Get()->SetClearColour(nox::Real(), nox::Real(), nox::Real(), nox::Real(1));

    m_pScene = new WorldRunScene();
    nox::Window* view = m_pScene->GetView(0);
    view->SetScreen(nox::ScreenManager::Get());
    nox::WindowManager::Get()->OpenWindow(view, false);
    m_pScene->Enter();
    m_pScene->Play();
    // One poll now, so that the first frame sees no stale edge.
    nox::Input::s_pInput->Update();
    nox::AutomationPrintf("world_app: enter");
  }

  void Update() override {
    nox::GameHost* host = nox::GameHost::s_pGameHost;
    host->Update();
    nox::Input::s_pInput->Update();
    nox::WindowManager* windows = nox::WindowManager::Get();
    windows->HandleInput();
    const uint32_t dt = host->GetDeltaMS() > kMaxFrameMS ? 0 : host->GetDeltaMS();
    m_pScene->Update(dt);
    windows->Update(dt);
    windows->Clear();
    windows->Draw();
    nox::ScreenManager::GetPtr()->SwapBuffers(0);
    ++m_Frame;
  }

  void Exit() override {
    m_pScene->Leave();
    nox::WindowManager::Get()->CloseWindow(m_pScene->GetView(0));
    delete m_pScene;
    m_pScene = nullptr;
    nox::GameHost::Destroy();
    nox::WindowManager::Destroy();
    nox::ScreenManager::Destroy();
    nox::Input::Destroy();
    nox::PathRegistry::Destroy();
    nox::AutomationPrintf("world_app: exit after %u frames", m_Frame);
  }

  void Suspend() override { nox::Input::Suspend(); }
  void Resume() override { nox::Input::Resume(); }

 private:
  WorldRunScene* m_pScene = nullptr;  // owned
  uint32_t m_Frame = 0;
};

}  // namespace

}  // namespace worldapp

__attribute__((visibility("default"))) boost::shared_ptr<CAppInterface> CreateApp(void* userData) {
  return boost::make_shared<worldapp::WorldApp>();
}
