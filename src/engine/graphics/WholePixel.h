// The engine's cuts of a Real to whole pixels.
//
// WholePixel is the cut every pixel answer of the screen and every sprite corner goes
// through: the fraction is dropped towards minus infinity, and a negative value whose
// own fraction (that of its magnitude) is one half or more goes one lower still. So
// 1.75 gives 1, -1.25 gives -2 and -1.75 gives -3. Keeping this cut exactly is what
// keeps the tiles of a sprite placed at fractions of a pixel free of seams.
#pragma once
#include <cstdint>

#include "core/Real.h"
#include "core/WrapArith.h"

namespace nox {

inline Real WholePixel(Real v) {
  const int32_t raw = v.Raw();
  int32_t cut = WrapToS32(static_cast<uint32_t>(raw) & 0xFFFF0000u);
  if (raw < 0 && (UnsignedAbs(raw) & 0x8000u) != 0) cut = WrapSub(cut, 0x10000);
  return Real::FromRaw(cut);
}

// The whole part of the distance between a and b: |b - a| with the fraction cleared.
// Sizes of screens and windows are taken this way.
inline Real WholeExtent(Real a, Real b) {
  return Real::FromRaw(WrapToS32(UnsignedAbs((b - a).Raw()) & 0xFFFF0000u));
}

// The same as a whole number of pixels.
inline int32_t WholeExtentInt(Real a, Real b) {
  return static_cast<int32_t>(UnsignedAbs((b - a).Raw()) >> 16);
}

}  // namespace nox
