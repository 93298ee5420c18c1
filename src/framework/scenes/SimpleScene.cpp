#include "scenes/SimpleScene.h"

namespace noxfw {

NOX_RTTI_DEFINE(SimpleScene, nox::Scene);

}  // namespace noxfw
