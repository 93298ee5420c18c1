// Device half of TextSurface: the GL calls that draw its records from client arrays.
#pragma once
#include "core/Real.h"
#include "core/Vector3.h"

namespace nox {

class TextSurface_pf {
 protected:
  TextSurface_pf() = default;
  ~TextSurface_pf() = default;

  // Points the arrays at the store (positions as pairs of GL_SHORT, coordinates as
  // pairs of GL_FIXED), enables them, texturing and alpha blending.
  static void BeginText(const short* positions, const Real* coords);
  // Disables texturing and both arrays, so that no array is left pointing into a
  // store that may be freed.
  static void EndText();
  static void PushTranslation(Real x, Real y, Real z);
  static void Translate(Real x, Real y);
  static void PopTranslation();
  static void SetColour(const Vector3& colour, Real alpha);
  static void DrawTriangles(unsigned long firstVertex, unsigned long vertices);
};

}  // namespace nox
