// Real: the engine's Q16.16 number (see FixedPoint.h), with the named constants the
// number code shares. Include this rather than FixedPoint.h.
#pragma once
#include "core/FixedPoint.h"

namespace nox {

typedef FixedPoint<long, 16> Real;

static_assert(sizeof(Real) == 4, "a Real must stay the size of GLfixed");

// Radians to degrees by Real multiplication: 57.29582, not a closer value.
constexpr Real kRadiansToDegrees = Real::FromRaw(3754939);

}  // namespace nox
