// Device half of RectAnimation: the GL calls that draw its box.
#pragma once
#include "core/Real.h"

namespace nox {

class RectAnimation_pf {
 protected:
  RectAnimation_pf() = default;
  ~RectAnimation_pf() = default;

  // `count` vertices of three Reals: triangles, or with `outline` a line strip of
  // `lineWidth`, in `rgba`. Enables the vertex array and blending and leaves them so.
  static void DrawBox(const Real* vertices, int count, bool outline, const Real* rgba, Real lineWidth);
};

}  // namespace nox
