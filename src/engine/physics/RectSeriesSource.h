// What a CollisionRig reads of a sprite: whether it has a rectangle series of a
// name in any of its sequences, and where that rectangle is now.
// AnimInfoRectSource answers for any sprite through its AnimInfo; tests give a
// table of their own.
#pragma once
#include "core/HashString.h"
#include "graphics/Rectangle.h"

namespace nox {

class AnimInfo;

class RectSeriesSource {
 public:
  virtual ~RectSeriesSource() = default;

  // True when any sequence of the sprite has a rectangle series named `series`.
  virtual bool HasRectSeriesInAnySequence(NameHash series) const = 0;
  // The series' rectangle in world space at the current frame of the playing
  // sequence; all zero when that frame or sequence has none.
  virtual Rectangle GetCurrentRect(NameHash series) const = 0;
};

// The sprite's data for the first question, its GetRect for the second.
class AnimInfoRectSource : public RectSeriesSource {
 public:
  explicit AnimInfoRectSource(AnimInfo* info = nullptr) : m_pInfo(info) {}

  void SetAnimInfo(AnimInfo* info) { m_pInfo = info; }
  AnimInfo* GetAnimInfo() const { return m_pInfo; }

  bool HasRectSeriesInAnySequence(NameHash series) const override;
  Rectangle GetCurrentRect(NameHash series) const override;

 private:
  AnimInfo* m_pInfo;  // borrowed
};

}  // namespace nox
