// The SDL2 window of a windowed run. It never holds a GL context: the game draws into
// its 480x272 pbuffer (display/), and after each frame the host hands the picture to
// Present, which scales it with nearest-neighbour pixels into the window (1x..4x, or
// letterboxed full screen) through SDL's software surface. Mouse positions are mapped
// back through the same rectangle, so the game always sees device pixels.
//
// PumpEvents turns keyboard, gamepad and mouse events into platform input (the key map
// is in KeyMap.cpp and the README) and reports what the host itself must act on.
#pragma once
#include <string>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {
namespace Window {

struct HostEvents {
  bool quit = false;         // the window was closed
  bool focusLost = false;    // the app should be suspended
  bool focusGained = false;  // the app may resume
  bool screenshot = false;   // F12
};

// Opens SDL and a window of 480*scale x 272*scale (or full screen). False with a
// one-line reason when there is no usable display.
bool Open(int scale, bool fullscreen, std::string& error);
void Close();
bool IsOpen();

// Handles every pending event; `out` collects what happened (flags are only set).
void PumpEvents(HostEvents& out);

// Shows a 480x272 RGBA picture, top row first.
void Present(const U8* rgba);

}  // namespace Window
}  // namespace Ostra
}  // namespace Hollin
