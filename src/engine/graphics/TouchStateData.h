// One touch as the input hands it to the screen: which finger, where (normalized
// device coordinates, -1.0 to 1.0 from edge to edge through pixel centres, y up),
// whether it is down, and whether its release completed a double tap. The input keeps
// one of these for the finger it follows and passes it on each change.
#pragma once
#include <cstdint>

#include "core/Real.h"

namespace nox {

struct TouchStateData {
  uint32_t id = 0;      // finger; the device reports one, id 0
  int16_t deviceX = 0;  // device pixels, as the platform reported them
  int16_t deviceY = 0;
  Real x;                 // normalized, -1.0 left to 1.0 right
  Real y;                 // normalized, -1.0 bottom to 1.0 top
  Real pressure;          // 0 to 1.0
  uint16_t tapCount = 0;  // 1 for a plain touch, 2 for the release of a double tap
  uint32_t gesture = 0;   // passed through to the screen; nothing sets it yet
  bool down = false;      // the finger is on the glass
};

}  // namespace nox
