#include "FunWriter.h"

#include <sstream>

#include "level/LevelElements.h"

namespace levelc {
namespace {

void WriteArena(std::ostringstream& out, uint32_t element, const ArenaSource& arena, size_t number) {
  size_t attributes = 0, actions = 0;
  for (const AgentSource& agent : arena.agents) attributes += agent.attributes.size();
  for (const auto& list : arena.actionLists) actions += list.size();

  out << element << ' ' << arena.name << ' ' << number;
  for (int32_t bound : arena.bounds) out << ' ' << bound;
  out << ' ' << arena.agents.size() << ' ' << attributes << ' ' << arena.actionLists.size() << ' ' << actions
      << '\n';
  for (const AgentSource& agent : arena.agents) {
    out << agent.type << ' ' << agent.name << ' ' << agent.style << ' ' << agent.attributes.size() << ' '
        << agent.x << ' ' << agent.y;
    for (const Attribute& a : agent.attributes) out << ' ' << a.key << ' ' << a.value;
    out << '\n';
  }
  if (!arena.actionLists.empty()) {
    for (const auto& list : arena.actionLists) out << list.size() << ' ';
    out << '\n';
  }
  for (const auto& list : arena.actionLists) {
    for (const ActionSource& a : list) out << a.agent << ' ' << a.code << ' ' << a.argument << '\n';
  }
}

}  // namespace

std::string WriteFun(const LevelSource& level) {
  std::ostringstream out;
  if (!level.strings.empty()) {
    out << noxfw::kLevelElementStringTable << " Strings 0 " << level.strings.size() << '\n';
    for (const std::string& line : level.strings) out << line << '\n';
  }
  if (!level.paths.empty()) {
    out << noxfw::kLevelElementPath << " Paths 0 " << level.paths.size() << '\n';
    for (const PathSource& path : level.paths) {
      out << path.points.size();
      for (const auto& point : path.points) {
        for (int32_t v : point) out << ' ' << v;
      }
      out << ' ' << path.triggers.size();
      for (const auto& trigger : path.triggers) out << ' ' << trigger.first << ' ' << trigger.second;
      out << '\n';
    }
  }
  for (const WallSource& wall : level.walls) {
    out << noxfw::kLevelElementWall << ' ' << wall.name << ' ' << static_cast<int>(wall.kind) << ' '
        << (wall.hasDepth ? 1 : 0);
    if (wall.hasDepth) out << ' ' << wall.depth;
    out << ' ' << wall.shapes.size();
    for (const auto& shape : wall.shapes) {
      out << ' ' << shape.size();
      for (const auto& v : shape) out << ' ' << v.first << ' ' << v.second;
    }
    out << '\n';
  }
  if (level.hasGlobal) WriteArena(out, noxfw::kLevelElementGlobal, level.global, 0);
  for (size_t i = 0; i < level.arenas.size(); ++i)
    WriteArena(out, noxfw::kLevelElementArena, level.arenas[i], i);
  return out.str();
}

}  // namespace levelc
