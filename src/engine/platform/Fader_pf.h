// Device half of Fader: the GL calls that cover the screen with one colour.
#pragma once
#include <cstdint>

#include "core/Real.h"
#include "core/Vector3.h"

namespace nox {

class Fader_pf {
 protected:
  Fader_pf() = default;
  ~Fader_pf() = default;

  // Two triangles from six x, y, z triples of signed 16-bit values, untextured, alpha
  // blended, without depth test, in `colour` at alpha `level`.
  static void DrawQuad(const int16_t* vertices, const Vector3& colour, Real level);
};

}  // namespace nox
