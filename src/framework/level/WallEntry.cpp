#include "level/WallEntry.h"

#include "level/LevelTokens.h"

namespace noxfw {

bool WallEntry::Read(std::istream& in) {
  m_Shapes.clear();
  uint32_t depthFlag = 0, shapes = 0;
  bool ok =
      static_cast<bool>(in >> m_Name) && ReadLevelUnsigned(in, m_Kind) && ReadLevelUnsigned(in, depthFlag);
  m_bHasDepth = depthFlag == 1;
  if (ok && m_bHasDepth) ok = ReadLevelSigned(in, m_Depth);
  ok = ok && ReadLevelUnsigned(in, shapes);
  for (uint32_t s = 0; ok && s < shapes; ++s) {
    uint32_t vertices = 0;
    if (!ReadLevelUnsigned(in, vertices)) break;
    m_Shapes.emplace_back();
    for (uint32_t v = 0; v < vertices; ++v) {
      WallVertex vertex;
      if (!ReadLevelSigned(in, vertex.x) || !ReadLevelSigned(in, vertex.y)) {
        ok = false;
        break;
      }
      m_Shapes.back().push_back(vertex);
    }
  }
  if (!ok || in.fail()) {
    m_Shapes.clear();
    in.setstate(std::ios::failbit);
    return false;
  }
  return true;
}

}  // namespace noxfw
