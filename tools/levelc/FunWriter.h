// Writes a level as the text of a ".fun" file, in the element layout that the game's
// level reader expects (src/framework/level/LevelElements.h): the string table, the
// paths, the walls, the global arena, then the arenas in order.
#pragma once
#include <string>

#include "LevelModel.h"

namespace levelc {

std::string WriteFun(const LevelSource& level);

}  // namespace levelc
