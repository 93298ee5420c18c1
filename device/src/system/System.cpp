// Vantle::CSystem reads the host configuration; nothing here allocates, since the game
// asks these up to three times a frame (the locale fits std::string's inline buffer).
#include "ostra/System.h"

#include "ostra/HostConfig.h"

namespace Vantle {

U32 CSystem::GetCurrentPlayerID() {
  return Hollin::Ostra::Host::GetHostConfig().playerId;
}

bool CSystem::AreCheatsEnabled() {
  return Hollin::Ostra::Host::GetHostConfig().cheats;
}

std::string CSystem::GetLocale() {
  return Hollin::Ostra::Host::GetHostConfig().locale;
}

}  // namespace Vantle
