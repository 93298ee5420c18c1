// What a CollisionRig reads of a sprite: whether it has a rectangle series of a
// name in any of its sequences, and where that rectangle is now. Sprites implement
// it (the tile animation through its AnimInfo); tests give a table.
#pragma once
#include "core/HashString.h"
#include "physics/Interval.h"

namespace nox {

class RectSeriesSource {
 public:
  virtual ~RectSeriesSource() = default;

  // True when any sequence of the sprite has a rectangle series named `series`.
  virtual bool HasRectSeriesInAnySequence(NameHash series) const = 0;
  // The series' rectangle in world space at the current frame of the playing
  // sequence; all zero when that frame or sequence has none.
  virtual AxisBox GetCurrentRect(NameHash series) const = 0;
};

}  // namespace nox
