// Roots and random numbers on Real. sqrt is an integer digit-by-digit root, so it is
// exact to the last raw bit; u64_sqrt is the Newton root that long vectors use for
// their whole-number lengths; rand_real draws from the C library generator, which the
// game host seeds.
#pragma once
#include <cstdint>

#include "core/Real.h"

namespace nox {

// floor(sqrt(raw * 65536)) with the raw value taken as unsigned: a negative Real gives
// the root of a large number, never an error.
Real sqrt(Real x);

// Newton iteration in 64 bits from the estimate v / 2; stops when two estimates differ
// by less than 2, so the result may be one above the floor of the root (3 gives 2).
uint32_t u64_sqrt(uint64_t v);

// a + r * (b - a), r a raw value in 0..1.0 made from rand() through float.
Real rand_real(Real a, Real b);

}  // namespace nox
