// The download packages installed for a player: directories under the downloads path,
// each with a "meta.inf" and a "Files" directory.
#pragma once
#include <string>
#include <vector>
#include "ostra/PlatformTypes.h"

namespace Vantle {

class CMicroDownloads {
 public:
  // Paths of the installed packages, in a stable (sorted) order.
  static std::vector<std::string> get(U32 player);
};

}  // namespace Vantle
