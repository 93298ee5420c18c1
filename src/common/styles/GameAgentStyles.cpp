#include "styles/GameAgentStyles.h"

#include "level/StyleManager.h"

namespace game {

// Rows whose printed name repeats an earlier one were hashed under another name when
// the table was made: they carry the name followed by "#" and the occurrence, so that
// no row replaces another and a level naming the style finds its first row.
const nox::AgentStyle g_AgentStyles[kAgentStyleCount] = {
    {nullptr, 0, nox::HashString("Triplets"), "Triplets"},
    {nullptr, 0, nox::HashString("Quest3_Zone5"), "Quest3_Zone5"},
    {nullptr, 0, nox::HashString("Quest1_Zone5"), "Quest1_Zone5"},
    {nullptr, 0, nox::HashString("PredictAnimsZone2"), "PredictAnimsZone2"},
    {nullptr, 0, nox::HashString("InteractivesZone1"), "InteractivesZone1"},
    {nullptr, 0, nox::HashString("Zone1Quest"), "Zone1Quest"},
    {nullptr, 0, nox::HashString("EmbeddedFacts"), "EmbeddedFacts"},
    {nullptr, 0, nox::HashString("AdventureInventory"), "AdventureInventory"},
    {nullptr, 0, nox::HashString("PinTheTail_Z3"), "PinTheTail_Z3"},
    {nullptr, 0, nox::HashString("Quest1_Zone3"), "Quest1_Zone3"},
    {nullptr, 0, nox::HashString("Quest2_Zone2"), "Quest2_Zone2"},
    {nullptr, 0, nox::HashString("PredictAnimsZone3"), "PredictAnimsZone3"},
    {nullptr, 0, nox::HashString("InteractivesZone4"), "InteractivesZone4"},
    {nullptr, 0, nox::HashString("TransitionObject"), "TransitionObject"},
    {nullptr, 0, nox::HashString("PinTheTail_Z4"), "PinTheTail_Z4"},
    {nullptr, 0, nox::HashString("Quest1_Zone4"), "Quest1_Zone4"},
    {nullptr, 0, nox::HashString("Quest2_Zone3"), "Quest2_Zone3"},
    {nullptr, 0, nox::HashString("PredictAnimsZone4"), "PredictAnimsZone4"},
    {nullptr, 0, nox::HashAppend(nox::HashString("InteractivesZone1"), "#2"), "InteractivesZone1"},
    {nullptr, 0, nox::HashString("PinTheTail_Z5"), "PinTheTail_Z5"},
    {nullptr, 0, nox::HashAppend(nox::HashString("Quest1_Zone5"), "#2"), "Quest1_Zone5"},
    {nullptr, 0, nox::HashString("Quest2_Zone4"), "Quest2_Zone4"},
    {nullptr, 0, nox::HashString("InteractivesZone2"), "InteractivesZone2"},
    {nullptr, 0, nox::HashString("InteractivesZone3Extra"), "InteractivesZone3Extra"},
    {nullptr, 0, nox::HashString("Quest2_Zone5"), "Quest2_Zone5"},
    {nullptr, 0, nox::HashString("Wisps"), "Wisps"},
    {nullptr, 0, nox::HashString("PredictionsZone4"), "PredictionsZone4"},
    {nullptr, 0, nox::HashString("PredictAnimsZone5"), "PredictAnimsZone5"},
    {nullptr, 0, nox::HashString("InteractivesZone5"), "InteractivesZone5"},
    {nullptr, 0, nox::HashString("InteractivesZone3"), "InteractivesZone3"},
    {nullptr, 0, nox::HashString("InventoryItems"), "InventoryItems"},
    {nullptr, 0, nox::HashString("BedArena1"), "BedArena1"},
    {nullptr, 0, nox::HashString("InteractivesZone2Extra"), "InteractivesZone2Extra"},
    {nullptr, 0, nox::HashString("Grauth"), "Grauth"},
    {nullptr, 0, nox::HashString("PinTheTail"), "PinTheTail"},
    {nullptr, 0, nox::HashString("PredictionsZone5"), "PredictionsZone5"},
    {nullptr, 0, nox::HashAppend(nox::HashString("InteractivesZone4"), "#2"), "InteractivesZone4"},
    {nullptr, 0, nox::HashString("GuardShort"), "GuardShort"},
    {nullptr, 0, nox::HashString("Quest3_Zone2"), "Quest3_Zone2"},
    {nullptr, 0, nox::HashAppend(nox::HashString("InteractivesZone5"), "#2"), "InteractivesZone5"},
    {nullptr, 0, nox::HashAppend(nox::HashString("InteractivesZone3Extra"), "#2"), "InteractivesZone3Extra"},
    {nullptr, 0, nox::HashString("InteractivesZone2Stones"), "InteractivesZone2Stones"},
    {nullptr, 0, nox::HashString("Quest3_Zone3"), "Quest3_Zone3"},
    {nullptr, 0, nox::HashString("Witch"), "Witch"},
    {nullptr, 0, nox::HashString("GuardTall"), "GuardTall"},
    {nullptr, 0, nox::HashString("MumBear"), "MumBear"},
    {nullptr, 0, nox::HashString("Grauth_Wall"), "Grauth_Wall"},
    {nullptr, 0, nox::HashString("Quest3_Zone4"), "Quest3_Zone4"},
    {nullptr, 0, nox::HashAppend(nox::HashString("Quest1_Zone4"), "#2"), "Quest1_Zone4"},
    {nullptr, 0, nox::HashAppend(nox::HashString("Zone1Quest"), "#2"), "Zone1Quest"},
    {nullptr, 0, nox::HashAppend(nox::HashString("Quest3_Zone5"), "#2"), "Quest3_Zone5"},
    {nullptr, 0, nox::HashAppend(nox::HashString("PredictAnimsZone3"), "#2"), "PredictAnimsZone3"},
    {nullptr, 0, nox::HashString("InteractivesZone1Extra"), "InteractivesZone1Extra"},
    {nullptr, 0, nox::HashString("PredictAnimsZone1"), "PredictAnimsZone1"},
    {nullptr, 0, nox::HashAppend(nox::HashString("InteractivesZone1"), "#3"), "InteractivesZone1"},
};

void GameAgentStyles::Load(noxfw::StyleManager& styles) {
  styles.Load(g_AgentStyles, kAgentStyleCount);
}

}  // namespace game
