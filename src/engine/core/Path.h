// A curve from a level file (not a file path): points in order of rising arc length,
// each with a position, a direction, an Extra value and Arc, the length along the
// path at that point, plus triggers at arc positions. Interpolate maps a parameter
// of 0..1.0 onto the arc length and blends the two points around it, with a small
// forward bias of 1.0 / arc length that the game's movement was tuned with.
#pragma once
#include <cstdint>
#include <istream>
#include <vector>

#include "core/Real.h"
#include "core/Vector2.h"

namespace nox {

struct PathPoint {
  Vector2 Position;
  Vector2 Direction;
  Real Extra;
  Real Arc;  // length along the path at this point
};

struct PathTrigger {
  Real Position;  // arc length
  uint32_t Id;
};

class Path {
 public:
  // Reads "count, then six whole numbers per point (position x, y, direction x, y,
  // Extra, Arc), then count, then position and unsigned id per trigger" as text from
  // the stream's current place. A path needs two points or more, the first at arc 0
  // and each next one further along; anything else empties the path, writes one
  // automation line naming the problem and returns false.
  bool Initialise(std::istream& in);

  const std::vector<PathPoint>& GetPoints() const { return m_Points; }
  const std::vector<PathTrigger>& GetTriggers() const { return m_Triggers; }

  // Arc of the last point; 0 for an empty path.
  Real GetArcLength() const;

  // time * speed / (fixed step * 1/60) / arc length.
  Real GetParameterAtConstantSpeed(Real time, Real speed) const;
  // (1.1 - cos(p * 180.0)) / 2 with p from GetParameterAtConstantSpeed: it runs from
  // 0.05 to 1.05, not from 0 to 1.0.
  Real GetParameterWithEaseInOut(Real time, Real speed) const;
  // 2 p - GetParameterWithEaseInOut.
  Real GetParameterWithSuddenInOut(Real time, Real speed) const;

  // All values at parameter t (0..1.0 of the arc length). At or below 0 they are the
  // first point's, at or beyond the end the last point's. An empty path gives zeros.
  void Interpolate(Real t, Vector2& pos, Vector2& dir, Real& extra, Real& arc) const;
  Vector2 Interpolate(Real t) const;

  // Walks the triggers; nothing fires from here.
  void CheckTiggers(Real t) const;

 private:
  // Empties the path and logs the problem with the index of the entry (none if < 0).
  bool Fail(const char* problem, int64_t index);

  std::vector<PathPoint> m_Points;
  std::vector<PathTrigger> m_Triggers;
};

}  // namespace nox
