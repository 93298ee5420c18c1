#include "platform/SaveGame_pf.h"

#include "ostra/PlayerProfile.h"
#include "ostra/System.h"

namespace noxfw {

bool SaveGame_pf::IsSessionWithoutProfile() {
  U32 player = Vantle::CSystem::GetCurrentPlayerID();
  return player == 0xFFFFFFFFu || player == 3;
}

uint8_t SaveGame_pf::GetPlayerGrade() {
  return Vantle::CPlayerProfile(Vantle::CSystem::GetCurrentPlayerID()).GetGrade();
}

}  // namespace noxfw
