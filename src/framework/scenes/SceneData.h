// One row of a scene table: the scene's id and name and, for each exit reason, the id
// of the scene that follows (0 for "nothing special"). Rows live in static tables and
// are copied by value; the copy held for the running scene is the only one that is
// ever written (see SceneManager::DoneScene).
#pragma once
#include <cstdint>

#include "scenes/ExitReason.h"

namespace noxfw {

struct SceneData {
  uint32_t id;
  char name[32];                      // zero padded
  uint32_t next[ExitReason::kCount];  // next scene id by exit reason; next[7] is the way back
};

static_assert(sizeof(SceneData) == 68, "a scene row is 68 bytes");

// The framework's own rows: the id of the application's end, the debug settings and
// the panic scene.
struct FrameworkSceneData {
  static const int kCount = 3;
  static const SceneData Table[kCount];
};

}  // namespace noxfw
