// How agents read a sprite without knowing its kind: points, rectangles, events,
// layers. TileAnimation implements it; GetAnimInfo hands it out.
//
// Wherever a frame is asked for, a value below 0 means the current frame; wherever a
// sequence is asked for, kCurrentSequenceHash ("CurrentSequence") means the sequence
// now playing. A sequence or frame that is not there gives false, null or zero.
#pragma once
#include <cstdint>

#include "core/HashString.h"
#include "core/Real.h"
#include "core/Vector3.h"
#include "graphics/Rectangle.h"
#include "graphics/TileFileFormat.h"

namespace nox {

class TileAnimData;

class AnimInfo {
 public:
  virtual ~AnimInfo() {}

  virtual void SetAlpha(Real alpha) = 0;
  // The event value of the current frame for that callback series; 0 for none and
  // while the sprite is held.
  virtual uint32_t GetCallback(NameHash name) const = 0;
  // Zeroes the pending values of that name, for readers that want an event once.
  virtual void ClearPendingCallback(NameHash name) = 0;
  virtual void SetAnchorHash(NameHash anchor) = 0;
  virtual bool HasPoint(NameHash point, int frame = -1, NameHash sequence = kCurrentSequenceHash) const = 0;
  virtual bool HasPointSeries(NameHash point, NameHash sequence = kCurrentSequenceHash) const = 0;
  virtual const TADPointSeries* GetPointSeries(NameHash point,
                                               NameHash sequence = kCurrentSequenceHash) const = 0;
  // A point in world space; zero when absent.
  virtual Vector3 GetPoint(NameHash point, int frame = -1,
                           NameHash sequence = kCurrentSequenceHash) const = 0;
  virtual Vector3 GetPoint(const TADPointSeries* series, int frame = -1) const = 0;
  virtual bool HasSequence(NameHash sequence) const = 0;
  // True when the series exists and the frame's left differs from its right.
  virtual bool HasRect(NameHash rect, int frame = -1, NameHash sequence = kCurrentSequenceHash) const = 0;
  virtual bool HasRectSeries(NameHash rect, NameHash sequence = kCurrentSequenceHash) const = 0;
  // A rectangle's bounding box in world space; zero when absent.
  virtual Rectangle GetRect(NameHash rect, int frame = -1,
                            NameHash sequence = kCurrentSequenceHash) const = 0;
  virtual Rectangle GetRect(const TADRectSeries* series, int frame = -1) const = 0;
  virtual bool AnimationHasLayer(NameHash layer) const = 0;
  virtual void SetLayerEnabled(NameHash layer, bool enabled) = 0;
  virtual bool GetLayerEnabled(NameHash layer) const = 0;
  virtual void SetLayerDepth(NameHash layer, Real depth) = 0;
  virtual Real GetLayerDepth(NameHash layer) const = 0;
  virtual void EnableZFlip(bool enable) = 0;
  virtual bool IsZFlipEnabled() const = 0;
  virtual void SetRelativeLayering(bool relative) = 0;
  virtual bool GetRelativeLayering() const = 0;
  virtual TileAnimData* GetTileAnimData() const = 0;
};

}  // namespace nox
