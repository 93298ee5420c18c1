// GameSceneManager: the soft Home and Hint buttons.
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/WindowManager.h"
#include "menu/Button.h"
#include "menu/ScreenTransition.h"
#include "shell/DappletSoftButtons.h"
#include "shell/GameSceneManager.h"

namespace game {

namespace {

// The small screen has no room for them.
const uint16_t kSmallScreenWidth = 320;
const uint16_t kSmallScreenHeight = 240;

}  // namespace

void GameSceneManager::CreateSoftButtons() {
  nox::Screen* screen = nox::ScreenManager::Get();
  if (screen && screen->GetDeviceWidth() == kSmallScreenWidth &&
      screen->GetDeviceHeight() == kSmallScreenHeight)
    return;
  m_pSoftButtons = new DappletSoftButtons();
  m_pSoftButtons->SetScreen(screen);
  m_pSoftButtons->SetButtonsVisible(false);
  // An overlay opened before any scene: every scene's window lies below it, so the
  // buttons draw over the scene and see the stylus first.
  nox::WindowManager* windows = nox::WindowManager::Get();
  if (!windows) return;
  windows->OpenWindow(m_pSoftButtons, true);
  // The screen transition goes back to the end of the overlays, so that a fade covers
  // the buttons too; it takes no input, so the buttons still see the stylus first.
  noxfw::ScreenTransition* fade = noxfw::ScreenTransition::sm_pInstance;
  if (fade && fade->GetWindowState() != nox::Window::kClosed) {
    windows->CloseWindow(fade);
    windows->OpenWindow(fade, true);
  }
}

void GameSceneManager::DestroySoftButtons() {
  if (!m_pSoftButtons) return;
  nox::WindowManager* windows = nox::WindowManager::Get();
  if (windows && m_pSoftButtons->GetWindowState() != nox::Window::kClosed)
    windows->CloseWindow(m_pSoftButtons);
  delete m_pSoftButtons;
  m_pSoftButtons = nullptr;
}

void GameSceneManager::SetupSoftButtons(unsigned long id) {
  if (!m_pSoftButtons) return;
  bool home = true;
  bool hint = true;
  if ((id >= kSceneTessalyLogo && id <= kSceneTitleCard) ||
      (id >= kSceneZone1Intro && id <= kSceneZone5Outro)) {
    home = false;
    hint = false;
  } else if (id >= kSceneMainMenu && id <= kSceneMusicPlayer) {
    hint = false;
  } else if (id == kSceneAdventureLog || id == kScenePicturePartsPicker) {
    home = false;
  }
  m_pSoftButtons->SetHomeButtonVisible(home);
  m_pSoftButtons->SetHintButtonVisible(hint);
}

void GameSceneManager::ActivateSoftButtons() {
  if (!m_pSoftButtons) return;
  m_pSoftButtons->Deselect();
  m_pSoftButtons->Enable(m_pSoftButtons->GetHomeButton());
  m_pSoftButtons->Enable(m_pSoftButtons->GetHintButton());
  m_pSoftButtons->Resume();
}

bool GameSceneManager::GetHomeButtonTouched() const {
  return m_pSoftButtons && m_pSoftButtons->GetHomeButtonTouched();
}

bool GameSceneManager::GetHintButtonTouched() const {
  return m_pSoftButtons && m_pSoftButtons->GetHintButtonTouched();
}

void GameSceneManager::TriggerHomeButton() {
  if (m_pSoftButtons) m_pSoftButtons->TriggerHomeButton();
}

void GameSceneManager::TriggerHintButton() {
  if (m_pSoftButtons) m_pSoftButtons->TriggerHintButton();
}

void GameSceneManager::SetSoftUIVisibility(bool visible) {
  if (m_pSoftButtons) m_pSoftButtons->SetButtonsVisible(visible);
}

void GameSceneManager::LockSoftUI() {
  m_bSoftUILocked = true;
  if (m_pSoftButtons) m_pSoftButtons->LockInput();
}

void GameSceneManager::UnlockSoftUI() {
  m_bSoftUILocked = false;
  if (m_pSoftButtons) m_pSoftButtons->UnlockInput();
}

void GameSceneManager::HighlightHintButton() {
  if (m_pSoftButtons) m_pSoftButtons->HighlightHintButton();
}

void GameSceneManager::UnHighlightHintButton() {
  if (m_pSoftButtons) m_pSoftButtons->UnHighlightHintButton();
}

}  // namespace game
