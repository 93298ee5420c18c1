// Reads a level source: JSON that names everything (agent types, styles, attributes,
// actions, agents) by name. Names become NameHash values here, with the same hash
// as the game's. Every problem is reported as "file:line: what is wrong"; reading goes
// on after a problem so that one run shows them all.
//
//   {
//     "strings": ["text", ...],
//     "paths":   [{"points": [[x, y, dx, dy, extra, arc], ...], "triggers": [{"at": arc, "id": "Name"}]}],
//     "walls":   [{"name": "Ground", "kind": "shapes" | "open" | "closed", "depth": 3,
//                  "shapes": [[[x, y], [x, y], ...], ...]}],
//     "global":  { arena },
//     "arenas":  [{"name": "Meadow", "bounds": [left, top, right, bottom],
//                  "agents": [{"type": "SpawnPoint", "name": "Corrin_0", "style": "Witch", "at": [x, y],
//                              "attributes": {"enable": false, "width": 32, "pool": "Wall"}}],
//                  "actions": [[{"agent": "Gate" or index, "code": "enable", "value": 1}, ...], ...]}]
//   }
//
// An agent's name becomes its "id" attribute, ahead of the attributes it lists. Values
// are whole numbers in 32 bits, bools (1 or 0) or names (their hash).
#pragma once
#include "JsonDoc.h"
#include "LevelModel.h"

namespace levelc {

// True when the source had no problem; `level` is then complete.
bool ReadLevelSource(const soundgen::JsonDoc& doc, LevelSource& level, soundgen::Diagnostics& diag);

}  // namespace levelc
