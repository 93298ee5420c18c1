#include "graphics/Animation.h"

#include "graphics/TileAnimation.h"

namespace nox {

// Until the sprite batch is in, both draw alone.
void Animation::DrawBuffered(RenderBuffer2D& buffer) {
  Draw();
}

void TileAnimation::DrawBuffered(RenderBuffer2D& buffer) {
  Draw();
}

}  // namespace nox
