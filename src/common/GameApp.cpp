#include "GameApp.h"

#include "platform/Input_pf.h"

namespace game {

GameApp::GameApp(void*) {}

GameApp::~GameApp() {}

void GameApp::Enter() {
  AllocOverideEnable();
  m_Title.Enter();
}

void GameApp::Update() {
  m_Title.HandleInput();
  m_Title.Update();
  m_Title.Draw();
  m_Title.Throttle();
}

void GameApp::Exit() {
  m_Title.Leave();
}

void GameApp::Suspend() {
  nox::Input_pf::Suspend();
  // The exit pop-up has already paused the scene; it stays in charge.
  if (!m_Title.IsExitPopUpOpen()) m_Title.Suspend();
}

void GameApp::Resume() {
  // Touches queued while suspended are stale; they go before the first frame.
  nox::Input_pf::Resume();
  if (!m_Title.IsExitPopUpOpen()) m_Title.Resume();
}

}  // namespace game
