#include "graphics/RenderTarget.h"

#include "graphics/WholePixel.h"

namespace nox {

int RenderTarget::GetCopyPieces(const Rectangle& rect, CopyRegion out[4]) {
  const int32_t x = WholePixel(rect.left).ToInt();
  const int32_t y = WholePixel(rect.top).ToInt();
  const int32_t W = static_cast<int32_t>(CopySidePowerOfTwo(WholeExtentInt(rect.left, rect.right)));
  const int32_t H = static_cast<int32_t>(CopySidePowerOfTwo(WholeExtentInt(rect.top, rect.bottom)));
  int count;
  if (W <= 256 && H <= 256) {
    out[0] = {x, y, W, H};
    count = 1;
  } else if (H <= 256) {
    out[0] = {x, y, 256, H};
    out[1] = {x + 256, y, 256, H};
    count = 2;
  } else if (W <= 256) {
    out[0] = {x, y, W, 256};
    out[1] = {x, y + 256, W, 256};
    count = 2;
  } else {
    // Fixed pieces for a dirty area larger than 256 both ways, the 225 included.
    out[0] = {0, 0, 256, 128};
    out[1] = {0, 16, 256, 256};
    out[2] = {224, 0, 256, 128};
    out[3] = {225, 16, 256, 256};
    count = 4;
  }
  for (int i = 0; i < count; ++i) {
    if (out[i].x + out[i].width > kScreenWidth) out[i].x = kScreenWidth - out[i].width;
    if (out[i].y + out[i].height > kScreenHeight) out[i].y = kScreenHeight - out[i].height;
  }
  return count;
}

}  // namespace nox
