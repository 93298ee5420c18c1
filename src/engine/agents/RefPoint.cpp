#include "agents/RefPoint.h"

namespace nox {

NOX_RTTI_DEFINE(RefPoint, Entity);

}  // namespace nox
