#include "platform/CYOData_pf.h"

#include "platform/SaveGame_pf.h"

namespace noxfw {

bool CYOData_pf::IsSessionWithoutProfile() {
  return SaveGame_pf::IsSessionWithoutProfile();
}

}  // namespace noxfw
