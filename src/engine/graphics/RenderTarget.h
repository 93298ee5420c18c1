// Paints into a texture through the frame buffer (see RenderTarget_pf for how).
// Used by the paint canvas and by effects that keep a picture between frames. The
// target texture is borrowed between Bind and UnBind.
#pragma once
#include "graphics/GLUtils.h"
#include "graphics/Rectangle.h"
#include "platform/RenderTarget_pf.h"

namespace nox {

class RenderTarget : public RenderTarget_pf {
 public:
  RenderTarget() = default;

  const Rectangle& GetDirtyRect() const { return m_DirtyRect; }
  GLTexture* GetTarget() const { return m_pTarget; }

  // The pieces in which UnBind copies the dirty rectangle `rect`: each side a power of
  // two of at most 256, moved back inside the screen (never shortened), in copy
  // order. Returns their number (1, 2 or 4).
  static int GetCopyPieces(const Rectangle& rect, CopyRegion out[4]);
};

}  // namespace nox
