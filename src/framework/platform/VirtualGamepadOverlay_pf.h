// Device half of VirtualGamepadOverlay: the GL call that draws one area's outline.
#pragma once
#include "core/Real.h"

namespace noxfw {

class VirtualGamepadOverlay_pf {
 protected:
  VirtualGamepadOverlay_pf() = default;
  ~VirtualGamepadOverlay_pf() = default;

  // A closed outline of `count` x, y pairs, untextured, in white at half alpha, or
  // yellow when `pressed`.
  static void DrawOutline(const nox::Real* pairs, int count, bool pressed);
};

}  // namespace noxfw
