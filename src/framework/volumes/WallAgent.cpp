#include "volumes/WallAgent.h"

namespace noxfw {

NOX_RTTI_DEFINE(WallAgent, nox::RTTIBase);

WallAgent WallAgent::s_wallInstance;

}  // namespace noxfw
