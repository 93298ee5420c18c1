// Which logical button each raw button gives. Entries, in order, for the raw bits
// 0x10, 0x20, 0x200 (hint), 0x100 (Home), the four directions (right, left, up, down
// upright), 0x80, 0x40 (shoulders), 0x400 (pause) and 0x800. A controller turns the
// directions and shoulders by the screen's orientation before looking them up (see
// Controller::UpdateButtons).
#pragma once
#include <cstdint>

namespace nox {

struct ButtonMap {
  static constexpr int kEntries = 12;
  uint16_t m_Buttons[kEntries];  // logical bits, 0 for none
};

// Each raw bit gives itself.
extern const ButtonMap ButtonMapNormal;
// Directions turned a quarter and hint giving pause, for play with the device on its side.
extern const ButtonMap ButtonMapSideways;
// Nothing gives anything.
extern const ButtonMap ButtonMapNull;

}  // namespace nox
