#include "menu/DebugSettingsOverlay.h"

#include <cstdio>
#include <cstring>

#include "core/Settings.h"
#include "graphics/Font.h"
#include "graphics/FontManager.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "input/Input.h"

namespace noxfw {

const char* const DebugSettingsOverlay::kRoot = "Root";

namespace {

const uint32_t kUp = 0x1, kDown = 0x2, kRight = 0x4, kLeft = 0x8, kA = 0x10, kB = 0x20;
const uint32_t kDirections = kUp | kDown | kRight | kLeft;
const unsigned long kGlyphs = 2048;
const int kMinimumLineHeight = 12;  // pixels, also without a font
const nox::Real kMargin(4);

const nox::Settings::Group* FindGroup(const std::string& name) {
  if (!nox::Settings::s_pSettings) return nullptr;
  const nox::Settings::GroupMap& groups = nox::Settings::s_pSettings->GetGroups();
  nox::Settings::GroupMap::const_iterator it = groups.find(name);
  return it == groups.end() ? nullptr : it->second;
}

// The group at a place of the map's order; null past the end.
const std::string* GroupNameAt(int index) {
  if (!nox::Settings::s_pSettings || index < 0) return nullptr;
  for (const auto& entry : nox::Settings::s_pSettings->GetGroups()) {
    if (index-- == 0) return &entry.first;
  }
  return nullptr;
}

}  // namespace

DebugSettingsOverlay::DebugSettingsOverlay() : m_GroupName(kRoot) {
  if (nox::FontManager::Get()) m_pFont = nox::FontManager::Get()->GetFont("HNCurry", 10);
  const nox::Screen* screen = nox::ScreenManager::Get();
  if (screen) {
    const nox::Rectangle& r = screen->GetVirtualRectangle();
    Initialise(r.right - r.left, r.bottom - r.top);
  } else {
    Initialise(nox::Real(480), nox::Real(272));
  }
  CountItems();
}

DebugSettingsOverlay::~DebugSettingsOverlay() {
  if (m_pFont && nox::FontManager::Get()) nox::FontManager::Get()->ReleaseFont(m_pFont);
}

void DebugSettingsOverlay::Initialise(nox::Real width, nox::Real height) {
  m_Surface.Initialise(width, height, kGlyphs);
  m_bRedraw = true;
}

nox::Real DebugSettingsOverlay::LineHeight() const {
  const nox::Real minimum(kMinimumLineHeight);
  if (!m_pFont || m_pFont->GetHeight() < minimum) return minimum;
  return m_pFont->GetHeight();
}

int DebugSettingsOverlay::GetVisibleRows() const {
  // One line for the heading at the top.
  const int rows = ((m_Surface.GetHeight() - kMargin - kMargin) / LineHeight()).ToInt() - 1;
  return rows < 1 ? 1 : rows;
}

void DebugSettingsOverlay::CountItems() {
  if (IsAtGroupList()) {
    m_ItemCount =
        nox::Settings::s_pSettings ? static_cast<int>(nox::Settings::s_pSettings->GetGroups().size()) : 0;
  } else {
    const nox::Settings::Group* group = FindGroup(m_GroupName);
    m_ItemCount = group ? static_cast<int>(group->size()) : 0;
  }
  if (m_Selection >= m_ItemCount) m_Selection = m_ItemCount > 0 ? m_ItemCount - 1 : 0;
}

nox::Setting* DebugSettingsOverlay::GetSelectedSetting() const {
  if (IsAtGroupList()) return nullptr;
  const nox::Settings::Group* group = FindGroup(m_GroupName);
  if (!group || m_Selection < 0 || m_Selection >= static_cast<int>(group->size())) return nullptr;
  return (*group)[static_cast<size_t>(m_Selection)];
}

void DebugSettingsOverlay::GetRowText(int row, char* buffer, size_t size) const {
  if (size == 0) return;
  buffer[0] = '\0';
  const size_t limit = size < static_cast<size_t>(kRowCharacters) + 1 ? size : kRowCharacters + 1;
  if (IsAtGroupList()) {
    const std::string* name = GroupNameAt(row);
    if (name) snprintf(buffer, limit, "%s -->", name->c_str());
    return;
  }
  const nox::Settings::Group* group = FindGroup(m_GroupName);
  if (!group || row < 0 || row >= static_cast<int>(group->size())) return;
  const nox::Setting* setting = (*group)[static_cast<size_t>(row)];
  char value[64];
  setting->PrintValue(value, sizeof value);
  // Long names are cut: the row is laid out whole, then shortened.
  char whole[256];
  snprintf(whole, sizeof whole, "%s   [ %s ]", setting->m_pName, value);
  strncpy(buffer, whole, limit - 1);
  buffer[limit - 1] = '\0';
}

bool DebugSettingsOverlay::HandleInput() {
  bool handled = false;
  nox::Input* input = nox::Input::s_pInput;
  if (input) {
    const nox::Controller* pad = input->GetController(0);
    uint32_t bits = pad->GetTriggeredButtons(kDirections | kA | kB);
    // A direction held down steps again once the repeat interval has passed.
    if (!(bits & kDirections) && m_RepeatMS >= kRepeatMS) bits |= pad->GetHeldButtons(kDirections);
    static const uint32_t kOrder[] = {kUp, kDown, kRight, kLeft, kB, kA};
    for (uint32_t bit : kOrder) {
      if (!(bits & bit)) continue;
      if (bit & kDirections) m_RepeatMS = 0;
      handled = Step(bit);
      break;
    }
  }
  const nox::Screen* screen = nox::ScreenManager::Get();
  if (!handled && screen && screen->GetTouchStateCount() > 0) {
    const nox::Screen::MultiTouchState& touch = screen->GetTouchState(0);
    if (touch.triggered) {
      const nox::Real corner(kCornerPixels);
      const nox::Vector2& p = touch.triggerPosition;
      const nox::Rectangle& r = screen->GetVirtualRectangle();
      if (p.y - r.top <= corner && p.x - r.left <= corner)
        handled = Step(kB);
      else if (p.y - r.top <= corner && r.right - p.x <= corner)
        handled = Step(kA);
    }
  }
  return handled;
}

bool DebugSettingsOverlay::Step(uint32_t bit) {
  const bool root = IsAtGroupList();
  switch (bit) {
    case kUp:
      MoveSelection(-1);
      return true;
    case kDown:
      MoveSelection(1);
      return true;
    case kRight:
      if (root) {
        EnterGroup();
      } else {
        ChangeSelected(1);
      }
      return true;
    case kLeft:
      if (root) {
        m_bRedraw = true;
      } else {
        ChangeSelected(-1);
      }
      return true;
    case kB:
      if (root) return false;
      LeaveGroup();
      return true;
    case kA:
      if (!root) return false;
      EnterGroup();
      return true;
    default:
      return false;
  }
}

void DebugSettingsOverlay::MoveSelection(int delta) {
  int selection = m_Selection + delta;
  if (selection > m_ItemCount - 1) selection = m_ItemCount - 1;
  if (selection < 0) selection = 0;
  m_Selection = selection;
  // Scroll so that the selection stays in view.
  const int rows = GetVisibleRows();
  if (m_Selection < m_FirstVisible) m_FirstVisible = m_Selection;
  if (m_Selection >= m_FirstVisible + rows) m_FirstVisible = m_Selection - rows + 1;
  m_bRedraw = true;
}

void DebugSettingsOverlay::EnterGroup() {
  const std::string* name = GroupNameAt(m_Selection);
  if (!name) return;
  m_GroupName = *name;
  m_Selection = 0;
  m_FirstVisible = 0;
  CountItems();
  m_bRedraw = true;
}

void DebugSettingsOverlay::LeaveGroup() {
  m_GroupName = kRoot;
  m_Selection = 0;
  m_FirstVisible = 0;
  CountItems();
  m_bRedraw = true;
}

void DebugSettingsOverlay::ChangeSelected(int direction) {
  nox::Setting* setting = GetSelectedSetting();
  if (!setting) return;
  // On the raw values, so that a step near the limits of a Real cannot overflow.
  int64_t value =
      static_cast<int64_t>(setting->m_Value.Raw()) + direction * static_cast<int64_t>(setting->m_Step.Raw());
  if (value > setting->m_Max.Raw()) value = setting->m_Max.Raw();
  if (value < setting->m_Min.Raw()) value = setting->m_Min.Raw();
  nox::Settings::ChangeValue(setting, nox::Real::FromRaw(static_cast<int32_t>(value)));
  m_bRedraw = true;
}

void DebugSettingsOverlay::Update(unsigned long ms) {
  if (m_RepeatMS < kRepeatMS) m_RepeatMS += static_cast<uint32_t>(ms);
  if (!m_bRedraw) return;
  m_bRedraw = false;
  Redraw();
}

void DebugSettingsOverlay::Redraw() {
  CountItems();
  m_Surface.Clear();
  nox::TextProperties props;
  props.shadow = true;
  const nox::Real height = LineHeight();
  const nox::Real width = m_Surface.GetWidth();
  nox::Real y = kMargin;
  // The heading sits between the two corners that stand for B and A.
  props.horizontalAlignment = nox::TextProperties::kCentre;
  props.colour = nox::Vector3(nox::Real(1), nox::Real(1), nox::Real(1));
  const char* heading = IsAtGroupList() ? "Settings" : m_GroupName.c_str();
  m_Surface.DrawText(heading, m_pFont, nox::Rectangle(kMargin, y, width - kMargin, y + height), props);
  props.horizontalAlignment = nox::TextProperties::kLeft;
  const int rows = GetVisibleRows();
  char text[kRowCharacters + 1];
  for (int row = m_FirstVisible; row < m_ItemCount && row < m_FirstVisible + rows; ++row) {
    y = y + height;
    GetRowText(row, text, sizeof text);
    // The selected row in yellow.
    props.colour = nox::Vector3(nox::Real(1), nox::Real(1), row == m_Selection ? nox::Real() : nox::Real(1));
    m_Surface.DrawText(text, m_pFont, nox::Rectangle(kMargin, y, width - kMargin, y + height), props);
  }
}

void DebugSettingsOverlay::Draw() {
  m_Surface.Draw();
}

}  // namespace noxfw
