#include "volumes/SpawnPoint.h"

namespace noxfw {

NOX_RTTI_DEFINE(SpawnPoint, nox::Entity);

}  // namespace noxfw
