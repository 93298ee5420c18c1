// Device half of noxfw::SaveGame: who is playing and in which grade.
#pragma once
#include <cstdint>

namespace noxfw {

class SaveGame_pf {
 public:
  // A session without a profile to save to: the platform's "no player" (-1) or its
  // guest player, 3. Such a session touches no file.
  static bool IsSessionWithoutProfile();
  // The current player's grade from the profile; 255 when none is recorded.
  static uint8_t GetPlayerGrade();
};

}  // namespace noxfw
