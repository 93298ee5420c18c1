#include "core/RTTIBase.h"

namespace nox {

const TypeInfo RTTIBase::typeInfo = {HashString("RTTIBase"), nullptr, "RTTIBase"};

}  // namespace nox
