// Trigonometry on Real. Angles for sin and its relatives are degrees as a Real
// (0x5A0000 is 90.0). sin reads a quarter-degree table with linear interpolation;
// the others are built from it by Real arithmetic, so tan, csc, sec and cot divide
// by zero where the mathematics does. atan2 alone goes through the C library and
// returns radians, not degrees: it is deliberately not the inverse of sin.
#pragma once
#include "core/Real.h"

namespace nox {

Real sin(Real degrees);
Real cos(Real degrees);  // sin(degrees + 90.0), wrapping
Real tan(Real degrees);  // sin / cos
Real csc(Real degrees);  // 1.0 / sin
Real sec(Real degrees);  // 1.0 / cos
Real cot(Real degrees);  // 1.0 / tan

// Radians, from the C library's atan2 in double on the float values of y and x.
Real atan2(Real y, Real x);

}  // namespace nox
