// Milestones a player has reached in any title ("rode at level 3"), by name. The
// platform keeps them in "milestones.txt" in the player's directory, one name a line
// in the order they were reached, and rewrites the file atomically on each Add.
#pragma once
#include <string>
#include <vector>
#include "ostra/PlatformTypes.h"

class CMilestones {
 public:
  static constexpr size_t kMaxNameBytes = 255;

  // The current player's milestones, oldest first.
  static std::vector<std::string> Get();
  static std::vector<std::string> Get(U32 playerId);
  // Records `name` for the current player. True when it is stored (also when it was
  // there already); false for an empty name, one with a line break or over 255 bytes,
  // or when the file could not be written.
  static bool Add(const std::string& name);
  static bool Add(U32 playerId, const std::string& name);
};
