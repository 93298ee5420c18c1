// Feeds arbitrary text to Path::Initialise. A refused text must leave an empty path;
// an accepted one must interpolate anywhere without leaving its points.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "core/Path.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  nox::Path path;
  if (!path.Initialise(in)) {
    if (!path.GetPoints().empty() || !path.GetTriggers().empty()) std::abort();
    return 0;
  }
  if (path.GetPoints().size() < 2 || path.GetArcLength() <= nox::Real(0)) std::abort();
  const int32_t probes[] = {INT32_MIN, -0x10000, 0, 1, 0x4000, 0x8000, 0xC000, 0xFFFF, 0x10000, 0x7FFFFFFF};
  for (int32_t raw : probes) {
    nox::Vector2 pos;
    nox::Vector2 dir;
    nox::Real extra;
    nox::Real arc;
    path.Interpolate(nox::Real::FromRaw(raw), pos, dir, extra, arc);
  }
  // Parameters taken from the input itself reach the inner segments too.
  for (size_t i = 0; i + 4 <= size && i < 64; i += 4) {
    const uint32_t u = uint32_t{data[i]} | uint32_t{data[i + 1]} << 8 | uint32_t{data[i + 2]} << 16 |
                       uint32_t{data[i + 3]} << 24;
    path.Interpolate(nox::Real::FromRaw(nox::WrapToS32(u) & 0x1FFFF));
  }
  path.GetParameterWithEaseInOut(nox::Real(1), nox::Real(1));
  return 0;
}
