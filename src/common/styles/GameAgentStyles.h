// The game's agent styles. Every row is empty: the styles exist as names that level
// files refer to, and agents take their attributes from the level itself. The rows
// are static data; the style manager borrows them.
#pragma once
#include "agents/AttributeList.h"

namespace noxfw {
class StyleManager;
}

namespace game {

constexpr unsigned long kAgentStyleCount = 55;
extern const nox::AgentStyle g_AgentStyles[kAgentStyleCount];

class GameAgentStyles {
 public:
  // Loads all rows into `styles`.
  static void Load(noxfw::StyleManager& styles);
};

}  // namespace game
