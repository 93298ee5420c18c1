// The seam through which the physics draws its debug overlay: hulls as outlines,
// particles as points, constraints as lines. The debug overlay installs an
// implementation while debug facilities are enabled; with none installed every
// Draw of the physics does nothing, which is the state of a release run. Colours
// are 0xRRGGBBAA. The instance is borrowed.
#pragma once
#include "core/Vector2.h"

namespace nox {

class PhysicsDebugDraw {
 public:
  virtual ~PhysicsDebugDraw() = default;

  virtual void DrawLine(const Vector2& a, const Vector2& b, unsigned long colour) = 0;
  virtual void DrawPoint(const Vector2& p, unsigned long colour) = 0;

  // Null uninstalls.
  static void SetInstance(PhysicsDebugDraw* draw) { sm_pInstance = draw; }
  static PhysicsDebugDraw* GetInstance() { return sm_pInstance; }

  // A closed outline through `count` points.
  void DrawOutline(const Vector2* points, int count, unsigned long colour);

 private:
  static PhysicsDebugDraw* sm_pInstance;
};

}  // namespace nox
