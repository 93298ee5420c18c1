// Keyboard and gamepad to platform input. Pure functions over SDL codes, kept apart
// from the window so the mapping is in one place.
#pragma once
#include <SDL.h>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {
namespace KeyMap {

// The button bit of a key, or 0.
U32 ButtonOfKey(SDL_Keycode key);
// The button bit of a gamepad button, or 0.
U32 ButtonOfPad(SDL_GameControllerButton button);

// Tilt keys: I, K tilt y to -1 / +1, J, L tilt x to -1 / +1 while held.
// Returns true for a tilt key and sets its axis (0 = x, 1 = y) and direction.
bool TiltOfKey(SDL_Keycode key, int& axis, int& direction);

}  // namespace KeyMap
}  // namespace Ostra
}  // namespace Hollin
