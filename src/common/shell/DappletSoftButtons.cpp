#include "shell/DappletSoftButtons.h"

#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "menu/Button.h"

namespace game {

NOX_RTTI_DEFINE(DappletSoftButtons, noxfw::Menu);

const char* const DappletSoftButtons::kHomeSprite = "SoftButton_Home";
const char* const DappletSoftButtons::kHintSprite = "SoftButton_Hint";

namespace {

// Like every menu sprite, each button is drawn where it sits on the screen: its
// "Origin" is the screen's top left corner.
const nox::Vector2 kScreenCorner;

}  // namespace

DappletSoftButtons::DappletSoftButtons(const char* home, const char* hint) : noxfw::Menu(nullptr, nullptr) {
  m_pHome = CreateButton(home);
  m_pHint = CreateButton(hint);
  m_pHome->SetPosition(kScreenCorner);
  m_pHint->SetPosition(kScreenCorner);
  AddButton(m_pHome, nullptr, nullptr, nullptr, m_pHint);
  AddButton(m_pHint, nullptr, nullptr, m_pHome);
}

DappletSoftButtons::~DappletSoftButtons() {}

bool DappletSoftButtons::HandleInput() {
  if (IsInputLocked() || IsPaused()) return false;
  const nox::Screen* screen = GetScreen() ? GetScreen() : nox::ScreenManager::Get();
  if (!screen || screen->GetTouchStateCount() == 0) return false;
  const nox::Screen::MultiTouchState& touch = screen->GetTouchState(0);
  if (touch.triggered) {
    noxfw::Button* hit = nullptr;
    if (m_pHome->HitTest(touch.triggerPosition)) {
      m_bHomeTouched = true;
      hit = m_pHome;
    } else if (m_pHint->HitTest(touch.triggerPosition)) {
      m_bHintTouched = true;
      hit = m_pHint;
    }
    if (!hit) return false;
    Select(hit);
    return true;
  }
  if (touch.released && GetSelected()) {
    Untrigger();
    Deselect();
    return true;
  }
  return false;
}

void DappletSoftButtons::Update(unsigned long ms) {
  // The marks belong to the frame whose input set them.
  ClearTouches();
  noxfw::Menu::Update(ms);
}

void DappletSoftButtons::ClearTouches() {
  m_bHomeTouched = false;
  m_bHintTouched = false;
}

void DappletSoftButtons::TriggerHomeButton() {
  m_pHome->Trigger();
}

void DappletSoftButtons::TriggerHintButton() {
  m_pHint->Trigger();
}

void DappletSoftButtons::HighlightHintButton() {
  m_pHint->SetState(noxfw::Button::kHighlight);
}

void DappletSoftButtons::UnHighlightHintButton() {
  m_pHint->SetState(noxfw::Button::kActive);
}

void DappletSoftButtons::SetButtonsVisible(bool visible) {
  SetHomeButtonVisible(visible);
  SetHintButtonVisible(visible);
}

void DappletSoftButtons::SetHomeButtonVisible(bool visible) {
  m_pHome->SetVisible(visible);
}

void DappletSoftButtons::SetHintButtonVisible(bool visible) {
  m_pHint->SetVisible(visible);
}

bool DappletSoftButtons::IsHomeButtonVisible() const {
  return m_pHome->GetVisible();
}

bool DappletSoftButtons::IsHintButtonVisible() const {
  return m_pHint->GetVisible();
}

}  // namespace game
