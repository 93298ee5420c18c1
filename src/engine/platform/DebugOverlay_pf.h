// Device half of DebugOverlay: the GL state it draws in and its line primitives.
#pragma once
#include "core/Real.h"
#include "core/Vector3.h"

namespace nox {

class DebugOverlay_pf {
 protected:
  DebugOverlay_pf() = default;
  ~DebugOverlay_pf() = default;

  // No depth test, alpha blending, white, and an identity model-view matrix.
  static void BeginOverlay();
  static void SetColour(const Vector3& colour);
  // Pairs of x, y, z Reals: separate segments, or one closed loop.
  static void DrawLines(const Real* xyz, int vertices);
  static void DrawLineLoop(const Real* xyz, int vertices);
  // Saves and restores the model-view matrix, and with `projection` the projection
  // matrix too; the model-view matrix is the current mode afterwards.
  static void PushMatrices(bool projection);
  static void PopMatrices(bool projection);
};

}  // namespace nox
