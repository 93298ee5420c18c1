// The game scene manager's share of the invalid-input reminder: it owns the one
// reminder window, opens it over the running scene, and lets the scene go on when the
// reminder is over.
#include "graphics/WindowManager.h"
#include "scenes/Scene.h"
#include "shell/GameSceneManager.h"

namespace game {

namespace {

void OpenOnTop(ActivityInvalidInputWindow& window) {
  if (nox::WindowManager* windows = nox::WindowManager::Get()) {
    windows->OpenWindow(&window, true);
  } else {
    window.Open();
  }
}

}  // namespace

bool GameSceneManager::IsInputReminderOpen() const {
  return m_pInputReminder && m_pInputReminder->GetWindowState() != nox::Window::kClosed;
}

void GameSceneManager::PlayStylusInputReminderIfNecessary() {
  OpenInputReminder(&ActivityInvalidInputWindow::DPadIsInvalid);
}

void GameSceneManager::PlayDPadInputReminderIfNecessary() {
  OpenInputReminder(&ActivityInvalidInputWindow::StylusIsInvalid);
}

void GameSceneManager::OpenInputReminder(void (ActivityInvalidInputWindow::*remind)()) {
  if (IsInputReminderOpen()) return;
  if (!m_pInputReminder) m_pInputReminder.reset(new ActivityInvalidInputWindow());
  // The scene takes no input while the reminder is up; one that was paused already
  // stays so afterwards.
  m_bReminderPausedScene = m_pScene && !m_pScene->IsPaused();
  if (m_bReminderPausedScene) m_pScene->Pause();
  OpenOnTop(*m_pInputReminder);
  ((*m_pInputReminder).*remind)();
}

void GameSceneManager::InputReminderClosed() {
  const bool resume = m_bReminderPausedScene;
  m_bReminderPausedScene = false;
  // The exit pop-up paused the scene for itself; it resumes it when it closes.
  if (resume && m_pScene && !IsExitPopUpOpen()) m_pScene->Resume();
}

}  // namespace game
