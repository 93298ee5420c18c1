// The element kinds of a level file (".fun") and their layout, shared by the scenes
// that read levels and the tool that writes them (tools/levelc). Every element starts
// with the NameHash of its kind, written as an unsigned decimal number; all tokens are
// separated by white space.
//
//   "Path"        word, unsigned, count n, then n paths (nox::Path::Initialise)
//   "Arena"       an arena (below), kept under the level's running arena index
//   "Global"      an arena that is loaded at once and lives for the whole level
//   "StringTable" word, unsigned, count n, the rest of the line, then n lines of text
//   "Wall"        static geometry, read by the game's adventure scenes:
//                 name, kind (0 shapes, 1 open polyline, 2 closed polyline),
//                 a flag (1 when a depth follows), [depth], shape count, and per shape
//                 a vertex count and that many x y pairs (whole world units)
//
// An arena: name (word), number, left top right bottom (whole world units), agent
// count, attribute count (all agents), action list count, action count (all lists);
// then per agent: type hash, name (word), style hash (0 for none), attribute count,
// x, y, and that many key/value pairs; then one action count per list; then per
// action: agent index, action code, argument. Values are signed 32-bit decimals.
#pragma once
#include "core/HashString.h"

namespace noxfw {

constexpr nox::NameHash kLevelElementPath = 0x7C8A99D2u;
constexpr nox::NameHash kLevelElementArena = 0x0CD7784Cu;
constexpr nox::NameHash kLevelElementGlobal = 0xB55E2BB6u;
constexpr nox::NameHash kLevelElementStringTable = 0xCD9D4FA4u;
constexpr nox::NameHash kLevelElementWall = nox::HashString("Wall");

static_assert(nox::HashString("Path") == kLevelElementPath, "element id of \"Path\"");
static_assert(nox::HashString("Arena") == kLevelElementArena, "element id of \"Arena\"");
static_assert(nox::HashString("Global") == kLevelElementGlobal, "element id of \"Global\"");
static_assert(nox::HashString("StringTable") == kLevelElementStringTable, "element id of \"StringTable\"");

}  // namespace noxfw
