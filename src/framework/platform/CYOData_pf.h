// Device half of noxfw::CYOData: whether this session has a player to keep counts for.
#pragma once

namespace noxfw {

class CYOData_pf {
 protected:
  // No player (-1) or the guest (3): the counts stay in memory.
  static bool IsSessionWithoutProfile();
};

}  // namespace noxfw
