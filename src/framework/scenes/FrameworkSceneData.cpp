#include "scenes/SceneData.h"

namespace noxfw {

// "Main" (1) has no scene: reaching it is how the game ends.
const SceneData FrameworkSceneData::Table[FrameworkSceneData::kCount] = {
    {1, "Main", {0, 1, 0, 0, 0, 0, 0, 0}},
    {3, "Settings", {0, 0, 0, 0, 0, 0, 0, 0}},
    {2, "Panic", {0, 1, 0, 0, 0, 0, 0, 0}},
};

}  // namespace noxfw
