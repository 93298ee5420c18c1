#include "core/RandomExhaustiveList.h"

namespace nox {

bool RandomExhaustiveBase::ms_disableAllShuffling = false;

}  // namespace nox
