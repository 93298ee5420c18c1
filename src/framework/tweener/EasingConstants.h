// Constants shared by the easing curve sources.
#pragma once
#include "core/Real.h"

namespace noxfw {
namespace easing {

const nox::Real kOne = nox::Real(1);
const nox::Real kTwo = nox::Real(2);

inline nox::Real Half(nox::Real x) {
  return x * nox::Real::FromRaw(0x8000);
}

}  // namespace easing
}  // namespace noxfw
