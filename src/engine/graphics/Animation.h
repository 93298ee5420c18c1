// Base of everything an AnimationEngine keeps, updates and draws: a position whose z
// is the depth (larger z lies deeper and draws first) and a visible flag. Sprites
// (TileAnimation) and plain boxes (RectAnimation) derive from it. Whoever creates an
// animation destroys it, after taking it out of any engine.
#pragma once
#include "core/NoCopy.h"
#include "core/Vector2.h"
#include "core/Vector3.h"
#include "graphics/Rectangle.h"

namespace nox {

class RenderBuffer2D;

class Animation : public NoCopy {
 public:
  Animation() = default;
  virtual ~Animation() {}

  virtual void Update(unsigned long ms) = 0;
  virtual void Draw() = 0;
  // Through the engine's sprite batch. This base flushes the batch, then draws alone.
  virtual void DrawBuffered(RenderBuffer2D& buffer);
  // Gives back what only matters while on screen (a fetched frame's texture).
  virtual void UnloadOffscreenResources() {}
  virtual bool IsOnScreen(const Rectangle& view) const { return true; }
  virtual bool HitTest(const Vector2& point) const { return false; }
  virtual bool HitTestBounds(const Vector2& point) const { return false; }

  void SetVisible(bool visible) { m_bVisible = visible; }
  bool GetVisible() const { return m_bVisible; }
  // Raw position and depth, as the engine sorts by them.
  const Vector3& GetRawPosition() const { return m_Position; }

 protected:
  Vector3 m_Position;  // pixels; z is the depth
  bool m_bVisible = true;
};

}  // namespace nox
