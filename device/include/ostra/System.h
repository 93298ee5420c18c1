// The device's idea of who is playing, in which language, and whether cheats are on.
// Cheap to construct on the stack: it only reads the platform's current state.
#pragma once
#include <string>
#include "ostra/PlatformTypes.h"

namespace Vantle {

class CSystem {
 public:
  CSystem() {}
  static U32 GetCurrentPlayerID();
  static bool AreCheatsEnabled();
  static std::string GetLocale();  // e.g. "en-us", "en-gb"
};

}  // namespace Vantle
