// Device half of TileAnimation: the GL calls of drawing one sprite by itself. It holds
// no state; the vertex tables it draws from belong to the sprite code.
#pragma once
#include <cstdint>

#include "core/Real.h"

namespace nox {

class TileAnimation_pf {
 protected:
  TileAnimation_pf() = default;
  ~TileAnimation_pf() = default;

  // Pushes the modelview matrix and sets the sprite's transform: translate to
  // (x, y, z), scale by (sx, sy, 1), turn (z about -z, then x, then y; or, for a
  // billboard, y then x and no z), then translate by (-ax, -ay, 0).
  static void PushSpriteTransform(Real x, Real y, Real z, Real sx, Real sy, Real xRot, Real yRot, Real zRot,
                                  Real ax, Real ay, bool billboard);
  static void PopSpriteTransform();
  // Enables the vertex and texture-coordinate arrays, texturing and blending.
  static void BeginTiles();
  static void SetTileColor(Real r, Real g, Real b, Real a);
  static void TranslateDepth(Real z);
  // Triangles from `vertices` positions (two shorts each) and coordinates (two Reals).
  static void DrawTileTriangles(const int16_t* positions, const Real* coords, int vertices);
  // Undoes BeginTiles and leaves the colour white.
  static void EndTiles();
};

}  // namespace nox
