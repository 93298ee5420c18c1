// Device half of ScrollableQuad: the master texture's sampling and the one draw of
// the tile grid from its GL buffers.
#pragma once
#include <cstdint>

#include "core/Real.h"

namespace nox {

class GLBuffer;

class ScrollableQuad_pf {
 protected:
  ScrollableQuad_pf() = default;
  ~ScrollableQuad_pf() = default;

  // On the bound texture: edge clamping and linear filtering, the one texture in the
  // engine that is filtered, so that the scrolled grid has no seams.
  static void SetMasterSampling();
  // The grid under a model-view matrix of a translation by (x, y, z) alone, white,
  // textured with the bound texture, as indexed triangles from the buffers.
  static void DrawTiles(Real x, Real y, Real z, const GLBuffer& vertices, const GLBuffer& coords,
                        const GLBuffer& indices, uint16_t indexCount);
};

}  // namespace nox
