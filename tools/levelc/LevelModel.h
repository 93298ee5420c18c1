// A level as levelc holds it between reading the source and writing the ".fun" file:
// every name already turned into its hash, every count known.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace levelc {

struct Attribute {
  uint32_t key;   // hash of the attribute name
  int32_t value;  // a whole number, a bool as 0/1, or a hashed name in the same 32 bits
};

struct AgentSource {
  uint32_t type = 0;
  std::string name;  // one word; "-" when the source gave none
  uint32_t style = 0;
  int32_t x = 0, y = 0;
  std::vector<Attribute> attributes;
};

struct ActionSource {
  uint32_t agent;  // index in the arena's agent list
  uint32_t code;
  int32_t argument;
};

struct ArenaSource {
  std::string name;
  int32_t bounds[4] = {0, 0, 0, 0};  // left, top, right, bottom
  std::vector<AgentSource> agents;
  std::vector<std::vector<ActionSource>> actionLists;
};

struct PathSource {
  std::vector<std::vector<int32_t>> points;            // six numbers each
  std::vector<std::pair<int32_t, uint32_t>> triggers;  // arc position, hashed id
};

enum class WallKind { Shapes = 0, Open = 1, Closed = 2 };

struct WallSource {
  std::string name;
  WallKind kind = WallKind::Shapes;
  bool hasDepth = false;
  int32_t depth = 0;
  std::vector<std::vector<std::pair<int32_t, int32_t>>> shapes;
};

struct LevelSource {
  std::vector<std::string> strings;
  std::vector<PathSource> paths;
  std::vector<WallSource> walls;
  bool hasGlobal = false;
  ArenaSource global;
  std::vector<ArenaSource> arenas;
};

}  // namespace levelc
