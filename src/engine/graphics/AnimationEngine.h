// The animations of a scene: kept in depth order, updated and drawn together, the
// sprites through one sprite batch so that they reach the GL in as few draws as their
// textures allow.
//
// The list is sorted by AnimationComparer (deepest first, stable) at each Update and
// FindAnimation; AddAnimation only gives a provisional place. Animations outside the
// view rectangle are not drawn and give back what they hold for drawing. The engine
// holds bare pointers and owns none: remove an animation before destroying it.
#pragma once
#include <list>

#include "core/NoCopy.h"
#include "core/Vector2.h"
#include "graphics/Rectangle.h"
#include "graphics/RenderBuffer2D.h"
#include "platform/AnimationEngine_pf.h"

namespace nox {

class Animation;

// Orders animations back to front: a before b when a's z is greater.
struct AnimationComparer {
  bool operator()(const Animation* a, const Animation* b) const;
};

class AnimationEngine : public NoCopy, protected AnimationEngine_pf {
 public:
  AnimationEngine() = default;
  virtual ~AnimationEngine() {}

  void Init() {}
  void AddAnimation(Animation* animation);
  // Removes the first entry of that pointer; nothing if it is not there.
  void RemoveAnimation(Animation* animation);
  bool HasAnimation(const Animation* animation) const;
  void Update(unsigned long ms);
  void Draw();
  // After sorting, the first animation in list order (the deepest first) hit at
  // `point`, by its bounds or by its tiles; null if none.
  Animation* FindAnimation(const Vector2& point, bool useBounds);

  void SetDepthTest(bool on) { m_bDepthTest = on; }
  void SetAlphaTest(bool on) { m_bAlphaTest = on; }
  void SetViewRect(const Rectangle& view) { m_ViewRect = view; }
  const Rectangle& GetViewRect() const { return m_ViewRect; }
  const std::list<Animation*>& GetAnimations() const { return m_Animations; }
  RenderBuffer2D& GetRenderBuffer() { return m_Buffer; }

 private:
  void Sort();

  std::list<Animation*> m_Animations;  // not owned
  bool m_bDepthTest = true;
  bool m_bAlphaTest = true;
  Rectangle m_ViewRect = Rectangle(Real(-1000), Real(-1000), Real(32000), Real(32000));
  RenderBuffer2D m_Buffer;
};

}  // namespace nox
