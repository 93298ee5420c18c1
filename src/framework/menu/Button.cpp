#include "menu/Button.h"

#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"

namespace noxfw {

const nox::NameHash Button::kActive = nox::HashString("Active");
const nox::NameHash Button::kInactive = nox::HashString("Inactive");
const nox::NameHash Button::kSelect = nox::HashString("Select");
const nox::NameHash Button::kPrompt = nox::HashString("Prompt");
const nox::NameHash Button::kTrigger = nox::HashString("Trigger");
const nox::NameHash Button::kActivate = nox::HashString("Activate");
const nox::NameHash Button::kHighlight = nox::HashString("Highlight");

namespace {

const nox::NameHash kOrigin = nox::HashString("Origin");
const nox::NameHash kHotspot = nox::HashString("Hotspot0");

}  // namespace

Button::Button(nox::TileAnimData* data) {
  if (data) m_pAnimation = data->CreateCellAnimation();
  if (m_pAnimation) {
    m_pAnimation->SetAnchor(kOrigin);
    m_pAnimation->SetAnchorEnabled(true);
  }
  SetState(kActive);
}

Button::~Button() {
  delete m_pAnimation;
}

void Button::Enable() {
  m_bEnabled = true;
  SetState(kActive);
}

void Button::Disable() {
  m_bEnabled = false;
  SetState(kInactive);
}

void Button::Prompt() {
  if (m_State != kPrompt) m_ReturnState = m_State;
  SetState(kPrompt);
}

void Button::Trigger() {
  SetState(kTrigger);
}

bool Button::IsActive() {
  return m_State == kActive;
}

bool Button::IsTriggered() {
  return m_State == kTrigger;
}

bool Button::IsEnabled() {
  return m_bEnabled;
}

void Button::SetLocked(bool locked) {
  m_bLocked = locked;
}

bool Button::IsLocked() const {
  return m_bLocked;
}

void Button::SetState(const char* name) {
  if (name) SetState(nox::HashString(name));
}

void Button::SetState(nox::NameHash state) {
  if (state == m_State) return;
  m_State = state;
  // A sequence the art lacks leaves the picture alone rather than jumping to the
  // sprite's first sequence.
  if (!m_pAnimation || !m_pAnimation->HasSequence(state)) return;
  m_pAnimation->SetLoop(state != kTrigger && state != kActivate && state != kPrompt);
  m_pAnimation->Play(state, 0);
}

bool Button::HitTest(const nox::Vector2& point, bool includeHidden, bool fallBackToCellBox) const {
  if (!m_pAnimation || (!m_bVisible && !includeHidden)) return false;
  if (m_pAnimation->HasRect(kHotspot)) return m_pAnimation->HitTestBounds(point, kHotspot);
  if (!fallBackToCellBox || !m_pAnimation->HasRect(nox::kCellBoxHash)) return false;
  return m_pAnimation->HitTestBounds(point);
}

void Button::SetVisible(bool visible) {
  m_bVisible = visible;
  if (m_pAnimation) m_pAnimation->SetVisible(visible);
}

bool Button::GetVisible() const {
  return m_bVisible;
}

void Button::SetPosition(const nox::Vector2& position) {
  m_Position = position;
  if (m_pAnimation) m_pAnimation->SetPosition(position);
}

nox::Vector2 Button::GetPosition() const {
  return m_Position;
}

void Button::Update(unsigned long ms) {
  if (!m_pAnimation) return;
  m_pAnimation->Update(ms);
  // A prompt is a one-off: when it has played, the button looks as it did before.
  if (m_State == kPrompt && m_pAnimation->HasSequence(kPrompt) && m_pAnimation->IsAnimEnded()) {
    SetState(m_ReturnState);
  }
}

void Button::Draw() {
  if (m_pAnimation && m_bVisible) m_pAnimation->Draw();
}

}  // namespace noxfw
