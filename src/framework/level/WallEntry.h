// One "Wall" element of a level file: the static geometry that the game's scenes turn
// into hulls. Read here into plain numbers, so that the scene that builds hulls and a
// scene that only wants to step over the element read it the same way.
//
// Layout after the element id: name, kind (0 shapes, 1 open polyline, 2 closed
// polyline), a flag that is 1 when a depth follows, [depth], shape count, then per
// shape a vertex count and that many x y pairs, in whole world units.
#pragma once
#include <cstdint>
#include <istream>
#include <string>
#include <vector>

namespace noxfw {

struct WallVertex {
  int32_t x, y;
};

struct WallEntry {
  enum Kind { eShapes = 0, eOpenLine = 1, eClosedLine = 2 };

  std::string m_Name;
  uint32_t m_Kind = eShapes;
  bool m_bHasDepth = false;
  int32_t m_Depth = 0;
  std::vector<std::vector<WallVertex>> m_Shapes;

  // Reads one entry. The lists grow with what is actually read, so a count larger than
  // the file costs nothing. On a malformed entry the stream is failed, the entry is
  // left empty and the result is false.
  bool Read(std::istream& stream);
};

}  // namespace noxfw
