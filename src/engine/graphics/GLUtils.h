// The GL layer's free functions: projections of the screen and of windows, drawing
// one texture, copying a texture through the frame buffer, and reading the screen
// back. Every number reaches GL as a Real through the fixed-point entry points
// (glOrthox, glFrustumx, glRotatex, GL_FIXED arrays); nothing here uses floating
// point.
//
// The other camera helpers of the layer live with the numbers: GetVectorYaw and
// GetVectorPitch in core/Vector3.h, CreateLookAtMatrix in core/Matrix4.h.
#pragma once
#include <cstdint>

#include "core/Real.h"
#include "core/Vector2.h"
#include "graphics/Rectangle.h"

namespace nox {

class GLTexture;
class Screen;
class Window;

// Projection of the whole screen: the orientation-adjusted virtual rectangle, turned
// about z by the orientation (1: -90, 2: 90, 3: 180 degrees). Leaves the matrix mode at
// GL_MODELVIEW. Nothing for a null screen.
void ApplyOrthographicProjection(const Screen* screen, Real nearPlane, Real farPlane);
// The same turn with the window's screen, the box from the window's size: centred
// (-w/2..w/2, h/2..-h/2) or from the top left (0..w, h..0, w and h swapped when the
// screen is sideways).
void ApplyOrthographicProjection(const Window* window, Real nearPlane, Real farPlane);
// A frustum of `fieldOfView` degrees vertically with the window's aspect; the aspect
// is not turned for sideways orientations.
void ApplyPerspectiveProjection(const Window* window, Real fieldOfView, Real nearPlane, Real farPlane);

// One white textured quad from corner `a` to corner `b`, texture coordinates `t0` at
// `a` to `t1` at `b`, read from client memory. Leaves GL_BLEND on, GL_DEPTH_TEST off,
// GL_TEXTURE_2D, the arrays and the texture unbound.
void DrawTexture(GLTexture& texture, const Vector2& a, const Vector2& b, const Vector2& t0,
                 const Vector2& t1);

// Copies `source` into `destination` by drawing it to the frame buffer and copying
// the frame buffer back. A destination of another size is first given the source's
// size as an image of PixelFormat 3 (5_6_5), so it must have an RGB format.
void CopyTexture(GLTexture& source, GLTexture& destination);

// Reads the pixels of `rect` (virtual pixels, whole parts used) into `out` as RGBA
// bytes, rows from the bottom up as GL gives them: 4 * width * height bytes.
void CaptureScreen(const Screen& screen, const Rectangle& rect, unsigned char* out);

// A rectangle of the frame buffer copied into a texture at the same place.
struct CopyRegion {
  int32_t x;
  int32_t y;
  int32_t width;
  int32_t height;
};

// n itself when it is a power of two (0 included), else the next power of two above
// it; 0 when bit 15 of a non-power is set. The device copies only power-of-two sides.
uint32_t CopySidePowerOfTwo(uint32_t n);

// The pieces in which CopyTexture copies a texture of srcWidth by srcHeight on a
// screen of screenWidth by screenHeight whole pixels, already moved back inside the
// screen. Returns their number (1, 2 or 4). The table is the one of a 320 by 240
// surface, kept as it is.
int GetCopyTexturePieces(int32_t screenWidth, int32_t screenHeight, uint32_t srcWidth, uint32_t srcHeight,
                         CopyRegion out[4]);

// Draws the bound texture of width w and height h as the frame buffer image of a
// render target: the quad (0, -16) to (w, h - 16) at z = 10.0, flipped in v, white.
// Shared by RenderTarget::Bind and CopyTexture; the caller sets the GL state.
void DrawRenderTargetQuad(uint16_t width, uint16_t height);

}  // namespace nox
