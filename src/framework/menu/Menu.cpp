#include "menu/Menu.h"

#include "core/HashString.h"
#include "graphics/FontManager.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "input/Input.h"
#include "menu/Button.h"

namespace noxfw {

NOX_RTTI_DEFINE(Menu, nox::Window);

namespace {

const nox::NameHash kIdle = nox::HashString("Idle");

bool IsNamed(const char* name) {
  return name && name[0] != '\0';
}

}  // namespace

Menu::Menu(const char* background, const char* font) {
  if (IsNamed(background)) {
    nox::TileAnimData* data = GetAnimData(background);
    if (data) m_pBackground = data->CreateCellAnimation();
    if (m_pBackground) {
      m_pBackground->SetLoop(true);
      m_pBackground->Play(kIdle, 0);
      m_Engine.AddAnimation(m_pBackground);
    }
  }
  if (IsNamed(font) && nox::FontManager::Get()) m_pFont = nox::FontManager::Get()->GetFont(font, kFontSize);
  // Each button gets one entry; the vectors never grow during play.
  m_Entries.reserve(8);
}

Menu::~Menu() {
  for (Button* button : m_OwnedButtons) delete button;
  if (m_pBackground) m_Engine.RemoveAnimation(m_pBackground);
  delete m_pBackground;
  if (m_pFont && nox::FontManager::Get()) nox::FontManager::Get()->ReleaseFont(m_pFont);
}

nox::TileAnimData* Menu::GetAnimData(const char* name) {
  if (!IsNamed(name)) return nullptr;
  return m_AnimData.GetAnimData(name);
}

Button* Menu::CreateButton(const char* name) {
  Button* button = new Button(GetAnimData(name));
  m_OwnedButtons.push_back(button);
  return button;
}

bool Menu::PlaceButton(Button* button, const char* point) {
  if (!button || !m_pBackground || !point) return false;
  const nox::NameHash hash = nox::HashString(point);
  if (!m_pBackground->HasPoint(hash)) return false;
  const nox::Vector3 at = m_pBackground->GetPoint(hash);
  button->SetPosition(nox::Vector2(at.x, at.y));
  return true;
}

Button* Menu::GetButton(int index) const {
  if (index < 0 || index >= GetButtonCount()) return nullptr;
  return m_Entries[static_cast<size_t>(index)].button;
}

const Menu::Entry* Menu::FindEntry(const Button* button) const {
  for (const Entry& entry : m_Entries) {
    if (entry.button == button) return &entry;
  }
  return nullptr;
}

Button* Menu::GetNeighbour(Button* button, eMenuDirection direction) const {
  const Entry* entry = FindEntry(button);
  if (!entry || direction < 0 || direction >= kNumDirections) return nullptr;
  return entry->neighbours[direction];
}

void Menu::AddButton(Button* button, Button* up, Button* down, Button* left, Button* right, Button* previous,
                     Button* next) {
  if (!button || FindEntry(button)) return;
  m_Entries.push_back(Entry{button, {up, down, left, right, previous, next}});
  if (button->GetAnimation()) m_ButtonSprites.AddAnimation(button->GetAnimation());
}

int Menu::GetSelectedId() const {
  for (size_t i = 0; i < m_Entries.size(); ++i) {
    if (m_Entries[i].button == m_pSelected) return static_cast<int>(i) + 1;
  }
  return 0;
}

Button* Menu::FirstEnabled() const {
  for (const Entry& entry : m_Entries) {
    if (entry.button->IsEnabled() && entry.button->GetVisible()) return entry.button;
  }
  return nullptr;
}

bool Menu::Navigate(eMenuDirection direction) {
  if (direction < 0 || direction >= kNumDirections) return false;
  Button* start = m_pSelected;
  if (!start) {
    Button* first = FirstEnabled();
    if (first) Select(first);
    return first != nullptr;
  }
  Button* at = start;
  Button* found = start;
  // A ring of disabled buttons leads back to the start, and a broken chain (a null
  // neighbour) ends the walk: either way the focus stays.
  for (int hop = 0; hop < GetButtonCount(); ++hop) {
    at = GetNeighbour(at, direction);
    if (!at || at == start) break;
    if (at->IsEnabled()) {
      found = at;
      break;
    }
  }
  if (found == start) return false;
  Select(found);
  return true;
}

void Menu::Cancel() {
  m_bTracking = false;
  if (m_pSelected && m_pSelected->IsTriggered()) Untrigger();
}

void Menu::Select(Button* button) {
  if (!button) return;
  if (m_pSelected && m_pSelected != button) Deselect();
  button->SetState(Button::kSelect);
  m_pSelected = button;
}

void Menu::Deselect() {
  if (!m_pSelected) return;
  if (m_pSelected->IsEnabled()) m_pSelected->SetState(Button::kActive);
  m_pSelected = nullptr;
}

void Menu::Trigger() {
  if (m_pSelected) m_pSelected->Trigger();
}

void Menu::Untrigger() {
  if (m_pSelected) m_pSelected->SetState(Button::kActive);
}

void Menu::Activate() {
  if (m_pSelected) m_pSelected->SetState(Button::kActivate);
}

void Menu::Enable(Button* button) {
  if (button) button->Enable();
}

void Menu::Disable(Button* button) {
  if (!button) return;
  if (button == m_pSelected) Deselect();
  button->Disable();
}

void Menu::Prompt(Button* button) {
  if (button) button->Prompt();
}

void Menu::Invalid(Button* button) {
  Prompt(button);
}

void Menu::Back() {
  Cancel();
}

Button* Menu::FindButton(const nox::Vector2& point) {
  // The newest button draws on top, so it is asked first.
  for (auto it = m_Entries.rbegin(); it != m_Entries.rend(); ++it) {
    if (it->button->HitTest(point)) return it->button;
  }
  return nullptr;
}

bool Menu::HandleInput() {
  if (m_bInputLocked || m_bPaused) return false;
  if (HandleTouch()) return true;
  return HandlePad();
}

bool Menu::HandleTouch() {
  const nox::Screen* screen = GetScreen() ? GetScreen() : nox::ScreenManager::Get();
  if (!screen || screen->GetTouchStateCount() == 0) return false;
  const nox::Screen::MultiTouchState& touch = screen->GetTouchState(0);
  if (touch.triggered) {
    Button* button = FindButton(touch.triggerPosition);
    if (!button) return false;
    Press(button);
    m_bTracking = true;
    return true;
  }
  if (!m_bTracking) return false;
  if (touch.released) {
    m_bTracking = false;
    Release();
    return true;
  }
  if (touch.down) {
    Drag(touch.heldPosition);
    return true;
  }
  m_bTracking = false;
  return false;
}

// A press chooses at once: the button is focused, shows "Trigger" and is activated; the
// finger lifting only puts the focused button back to "Active". A press on a disabled
// button only prompts it, and a locked one answers with Invalid instead of a choice.
void Menu::Press(Button* button) {
  if (!button->IsEnabled()) {
    Prompt(button);
    return;
  }
  if (button != m_pSelected) Select(button);
  if (button->IsLocked()) {
    Invalid(button);
    return;
  }
  if (button->IsTriggered()) return;
  Trigger();
  Activate();
}

// A finger dragged onto another button moves the focus there without choosing it.
void Menu::Drag(const nox::Vector2& point) {
  Button* under = FindButton(point);
  if (!m_pSelected || !under || under == m_pSelected || under->IsTriggered() || !under->IsEnabled()) return;
  Deselect();
  Select(under);
}

void Menu::Release() {
  if (m_pSelected) Untrigger();
}

bool Menu::HandlePad() {
  nox::Input* input = nox::Input::s_pInput;
  if (!input) return false;
  const uint32_t bits = input->GetController(0)->GetTriggeredButtons(0xFFFFFFFFu);
  if (bits & kBackMask) {
    Back();
    return true;
  }
  // Directions, shoulders, then A; the first one found is this frame's only action.
  static const struct {
    uint32_t bit;
    eMenuDirection direction;
  } kMoves[] = {{0x1, kUp}, {0x2, kDown}, {0x4, kRight}, {0x8, kLeft}, {0x80, kNext}, {0x40, kPrevious}};
  for (const auto& move : kMoves) {
    if (bits & move.bit) {
      Navigate(move.direction);
      return true;
    }
  }
  if (!(bits & kConfirmBit)) return false;
  if (!m_pSelected) return Navigate(kDown);
  if (m_pSelected->IsLocked()) {
    Invalid(m_pSelected);
  } else {
    Trigger();
    Activate();
  }
  return true;
}

void Menu::Update(unsigned long ms) {
  if (m_bPaused) return;
  m_Engine.Update(ms);
  for (const Entry& entry : m_Entries) entry.button->Update(ms);
}

void Menu::Draw() {
  m_Engine.Draw();
  m_ButtonSprites.Draw();
}

}  // namespace noxfw
