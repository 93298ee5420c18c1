// Device half of the render target. The device has no off-screen surfaces, so a
// texture is painted by way of the frame buffer: Bind draws the texture's present
// contents onto the screen, the caller paints over it and marks what it changed with
// Invalidate, and UnBind copies the changed part of the frame buffer back into the
// texture in power-of-two pieces (the device copies nothing else). The screen is
// taken to be the device's 480 by 272 pixels.
#pragma once
#include "core/NoCopy.h"
#include "graphics/Rectangle.h"

namespace nox {

class GLTexture;

class RenderTarget_pf : public NoCopy {
 public:
  static constexpr int kScreenWidth = 480;
  static constexpr int kScreenHeight = 272;

  // Makes `texture` the target, empties the dirty rectangle, sets the paint state
  // (depth test by `useDepth`, no alpha test, blending, culling or dithering) and
  // draws the texture's contents into the frame buffer. Leaves dithering on and
  // texturing off.
  void Bind(GLTexture* texture, bool useDepth);
  // Adds `rect` to the dirty rectangle, clamped to the screen.
  void Invalidate(const Rectangle& rect);
  // Copies the dirty part of the frame buffer into the target, if any; the target is
  // cleared either way.
  void UnBind();

 protected:
  RenderTarget_pf() = default;
  ~RenderTarget_pf() = default;

  Rectangle m_DirtyRect;           // virtual pixels, empty right after Bind
  GLTexture* m_pTarget = nullptr;  // not owned
};

}  // namespace nox
