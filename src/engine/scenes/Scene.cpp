#include "scenes/Scene.h"

namespace nox {

NOX_RTTI_DEFINE(Scene, RTTIBase);

}  // namespace nox
