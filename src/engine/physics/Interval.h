// A hull's extent along one axis: the projection that the separating-axis tests and
// the broad phase compare.
#pragma once
#include "core/Real.h"

namespace nox {

struct Interval {
  Real min;
  Real max;

  constexpr Interval() = default;
  constexpr Interval(Real min_, Real max_) : min(min_), max(max_) {}

  bool operator==(const Interval& o) const { return min == o.min && max == o.max; }
  bool operator!=(const Interval& o) const { return !(*this == o); }
};

}  // namespace nox
