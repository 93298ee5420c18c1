// The display seen from the host. The game draws through OstraOpenGLConfig into a
// 480x272 EGL pbuffer, windowed or not; after each frame the host reads the picture back
// from here to show it in the window or to write a screenshot. Keeping the game's surface
// the same size in both modes means its glViewport(0, 0, 480, 272) is right everywhere
// and a headless frame is the very frame a window would show.
#pragma once
#include <EGL/egl.h>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {
namespace Framebuffer {

const int kWidth = 480;
const int kHeight = 272;

// True while an OstraOpenGLConfig exists (the game has a display).
bool IsLive();

// Reads the frame the game last drew into `rgba` (kWidth * kHeight * 4 bytes, top row
// first). Returns false (and leaves `rgba` alone) when there is no display.
bool ReadPixels(U8* rgba);

// Ends the frame on the GL side: waits until the game's drawing is done. A pbuffer's
// swap does nothing, and a software renderer would otherwise defer (and, after the next
// full clear, drop) the frame's work, which would hide its cost from --stats.
void FinishFrame();

// Called by OstraOpenGLConfig.
void Attach(EGLDisplay display, EGLSurface surface, EGLContext context);
void Detach();

}  // namespace Framebuffer
}  // namespace Ostra
}  // namespace Hollin
