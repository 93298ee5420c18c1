#include "physics/PhysicsDebugDraw.h"

#include "debug/DebugOverlay.h"

namespace nox {
namespace {

Real Channel(unsigned long rgba, int shift) {
  return Real(static_cast<int>((rgba >> shift) & 0xFF)) / Real(255);
}

Vector3 Colour(unsigned long rgba) {
  return Vector3(Channel(rgba, 24), Channel(rgba, 16), Channel(rgba, 8));
}

}  // namespace

bool PhysicsDebugDraw::IsAvailable() {
  return DebugOverlay::sm_pInstance != nullptr;
}

void PhysicsDebugDraw::DrawLine(const Vector2& a, const Vector2& b, unsigned long colour) {
  if (DebugOverlay::sm_pInstance) DebugOverlay::sm_pInstance->AddLine(false, a, b, nullptr, Colour(colour));
}

void PhysicsDebugDraw::DrawPoint(const Vector2& p, unsigned long colour) {
  if (DebugOverlay::sm_pInstance) DebugOverlay::sm_pInstance->AddPoint(false, p, nullptr, Colour(colour));
}

void PhysicsDebugDraw::DrawOutline(const Vector2* points, int count, unsigned long colour) {
  for (int i = 0; i < count; ++i) DrawLine(points[i], points[(i + 1) % count], colour);
}

}  // namespace nox
