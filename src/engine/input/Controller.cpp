#include "input/Controller.h"

#include "graphics/ScreenManager.h"

namespace nox {

namespace {

// Map entries of the raw bits right, left, up and down at each screen rotation.
const int kDirectionEntries[4][4] = {{4, 5, 6, 7}, {6, 7, 5, 4}, {7, 6, 4, 5}, {5, 4, 7, 6}};
const uint32_t kDirectionBits[4] = {0x4, 0x8, 0x1, 0x2};

}  // namespace

Controller::Controller() : m_Map(ButtonMapNormal) {
  Clear();
}

void Controller::Clear() {
  m_Current = 0;
  m_Previous = 0;
  m_Triggered = 0;
  m_Released = 0;
  m_Held = 0;
  m_EnabledMask = 0xFFFFFFFFu;
}

void Controller::Update(ControllerState& state) {
  UpdateButtons(state.m_Buttons, true);
}

void Controller::SetButtonMap(const ButtonMap& map) {
  m_Map = map;
  Clear();
}

void Controller::SetButtonState(unsigned long long value) {
  m_Current = static_cast<uint32_t>(value);
  m_Previous = static_cast<uint32_t>(value >> 32);
  m_Held = m_Previous & m_Current;
  m_Triggered = m_Current & ~m_Previous;
  m_Released = m_Previous & ~m_Current;
}

uint32_t Controller::GetScreenRotation() {
  const Screen* screen = ScreenManager::Get();
  return screen ? static_cast<uint32_t>(screen->GetOrientation()) & 3u : 0;
}

uint32_t Controller::MapButtons(uint32_t bits, const ButtonMap& map, uint32_t rotation) {
  uint32_t logical = 0;
  auto give = [&](uint32_t rawBit, int entry) {
    if (bits & rawBit) logical |= map.m_Buttons[entry];
  };
  give(0x10, 0);
  give(0x20, 1);
  give(0x200, 2);
  give(0x100, 3);
  for (int i = 0; i < 4; ++i) give(kDirectionBits[i], kDirectionEntries[rotation & 3u][i]);
  // Upside down, the shoulders change hands; on the side they stay.
  const bool swapShoulders = rotation == 3;
  give(0x80, swapShoulders ? 9 : 8);
  give(0x40, swapShoulders ? 8 : 9);
  give(0x400, 10);
  give(0x800, 11);
  return logical;
}

void Controller::UpdateButtons(unsigned long raw, bool rotate) {
  m_Previous = m_Current;
  const uint32_t bits = static_cast<uint32_t>(raw) & m_EnabledMask;
  m_Current = MapButtons(bits, m_Map, rotate ? GetScreenRotation() : 0);
  m_Held = m_Previous & m_Current;
  m_Triggered = m_Current & ~m_Previous;
  m_Released = m_Previous & ~m_Current;
}

}  // namespace nox
