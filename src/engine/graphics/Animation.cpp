#include "graphics/Animation.h"

#include "graphics/RenderBuffer2D.h"

namespace nox {

void Animation::DrawBuffered(RenderBuffer2D& buffer) {
  // Whatever the batch holds lies deeper and must reach the screen first.
  buffer.Flush();
  Draw();
}

}  // namespace nox
