// Device half of Shape: the one GL call that draws an outline. It holds no device
// handle, so shapes copy as values.
#pragma once
#include "core/Real.h"

namespace nox {

class Shape_pf {
 protected:
  Shape_pf() = default;
  ~Shape_pf() = default;
  // A closed line through `count` points given as x, y pairs of Reals, in the
  // current colour.
  static void DrawLineLoop(const Real* pairs, int count);
};

}  // namespace nox
