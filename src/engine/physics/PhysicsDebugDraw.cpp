#include "physics/PhysicsDebugDraw.h"

namespace nox {

PhysicsDebugDraw* PhysicsDebugDraw::sm_pInstance = nullptr;

void PhysicsDebugDraw::DrawOutline(const Vector2* points, int count, unsigned long colour) {
  for (int i = 0; i < count; ++i) DrawLine(points[i], points[(i + 1) % count], colour);
}

}  // namespace nox
