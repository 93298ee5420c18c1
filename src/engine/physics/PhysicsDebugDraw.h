// How the physics draws its debug view: hulls as outlines, particles as points,
// constraints as lines, each a one-frame item of the debug overlay in screen
// coordinates. The overlay exists only while debug facilities are enabled; without
// it nothing is drawn. Colours are 0xRRGGBBAA; the overlay has no alpha.
#pragma once
#include "core/Vector2.h"

namespace nox {

class PhysicsDebugDraw {
 public:
  static bool IsAvailable();
  static void DrawLine(const Vector2& a, const Vector2& b, unsigned long colour);
  static void DrawPoint(const Vector2& p, unsigned long colour);
  // A closed outline through `count` points.
  static void DrawOutline(const Vector2* points, int count, unsigned long colour);
};

}  // namespace nox
