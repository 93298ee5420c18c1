#include "ostra/DisplayMPI.h"

#include "display/Framebuffer.h"

namespace Hollin {
namespace Ostra {

const tDisplayScreenStats* CDisplayMPI::GetScreenStats(U32 display) const {
  // One LCD; every display number describes it. Pixels are 32-bit RGBA on this system.
  static const tDisplayScreenStats s_Stats = {Framebuffer::kHeight, Framebuffer::kWidth, 0x8888,
                                              Framebuffer::kWidth * 4, "LCD 480x272"};
  return &s_Stats;
}

}  // namespace Ostra
}  // namespace Hollin
