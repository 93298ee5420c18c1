// TileAnimation in the engine's sprite batch: the transform is done here, corner by
// corner, and every corner is cut to a whole pixel, which keeps the tiles of a sprite
// placed at a fraction of a pixel free of seams.
#include "core/Trig.h"
#include "graphics/GLTexture.h"
#include "graphics/RenderBuffer2D.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimFrame.h"
#include "graphics/TileAnimation.h"
#include "graphics/WholePixel.h"

namespace nox {

namespace {

Real Clamp01(Real v) {
  return v < Real() ? Real() : (v > Real(1) ? Real(1) : v);
}

// 339 vertices, 113 whole triangles: the most the batch takes before it is drawn.
constexpr int kBatchLimit = 339;

uint8_t ColourByte(Real v) {
  return static_cast<uint8_t>((v * Real(255)).ToInt());
}

struct Turn {
  bool on;
  Real c, s;
};

Turn MakeTurn(Real degrees) {
  return degrees == Real() ? Turn{false, Real(), Real()} : Turn{true, cos(degrees), sin(degrees)};
}

}  // namespace

void TileAnimation::DrawBuffered(RenderBuffer2D& buffer) {
  if (!PrepareDraw()) return;
  InnerDrawBuffered(buffer);
}

void TileAnimation::InnerDrawBuffered(RenderBuffer2D& buffer) {
  buffer.SetTexture(m_pFrame->GetTexture());
  const Real r = Clamp01(m_ModulationColor.x), g = Clamp01(m_ModulationColor.y),
             b = Clamp01(m_ModulationColor.z);
  const Real baseZ = m_bRelativeLayering ? m_Position.z : Real();
  const Vector3 a = GetAnimationPoint(m_pAnchorSeries, static_cast<int>(m_CurrentFrame));
  const Turn ty = MakeTurn(m_YRotation), tx = MakeTurn(m_XRotation), tz = MakeTurn(-m_ZRotation);
  const Real hflip(static_cast<int>(m_HFlip)), vflip(static_cast<int>(m_VFlip));
  const bool hscale = m_HScale != Real(1), vscale = m_VScale != Real(1);

  const TADHeader* header = m_pData->GetHeader();
  const Real tw(static_cast<int>(header->TileWidth())), th(static_cast<int>(header->TileHeight()));
  const Real du = m_pData->GetUOffset(), dv = m_pData->GetVOffset();
  const Real su = m_pFrame->GetTileUSize(), sv = m_pFrame->GetTileVSize();

  for (bool more = true; more; more = m_pFrame->NextLayer()) {
    const TADLayerBlock* block = m_pFrame->GetLayerBlock();
    const Layer* layer = FindLayer(block->name);
    if (layer && (!layer->enabled || !(layer->alpha > Real()))) continue;
    const Real alpha = Clamp01(m_Alpha * (layer ? layer->alpha : Real(1)));
    const uint8_t red = ColourByte(r), green = ColourByte(g), blue = ColourByte(b),
                  alphaByte = ColourByte(alpha);
    const Real z = baseZ + (layer ? layer->depth : Real());
    const int16_t* positions = m_pFrame->GetTilePositions();
    const Real* coords = m_pFrame->GetTileCoords();
    for (uint32_t i = 0; i < block->tileCount; ++i) {
      const Real x0(static_cast<int>(positions[2 * i])), y0(static_cast<int>(positions[2 * i + 1]));
      // The four corners: top left, top right, bottom left, bottom right.
      Vertex2D corner[4];
      const Real cx[4] = {x0, x0 + tw, x0, x0 + tw};
      const Real cy[4] = {y0, y0, y0 + th, y0 + th};
      const Real U = coords[2 * i] + du, V = coords[2 * i + 1] + dv;
      const Real left = U + du, right = U - du + su, top = V + dv, bottom = V - dv + sv;
      const Real cu[4] = {left, right, left, right};
      const Real cv[4] = {top, top, bottom, bottom};
      for (int k = 0; k < 4; ++k) {
        Real x = (cx[k] - a.x) * hflip, y = (cy[k] - a.y) * vflip, vz;
        if (hscale) x *= m_HScale;
        if (vscale) y *= m_VScale;
        if (ty.on) {
          const Real nx = x * ty.c + vz * ty.s;
          vz = vz * ty.c - x * ty.s;
          x = nx;
        }
        if (tx.on) {
          const Real ny = y * tx.c - vz * tx.s;
          vz = vz * tx.c + y * tx.s;
          y = ny;
        }
        if (tz.on) {
          const Real nx = x * tz.c - y * tz.s;
          y = x * tz.s + y * tz.c;
          x = nx;
        }
        corner[k] = Vertex2D{WholePixel(x + a.x + m_WorldPosition.x),
                             WholePixel(y + a.y + m_WorldPosition.y),
                             z + vz,
                             cu[k],
                             cv[k],
                             red,
                             green,
                             blue,
                             alphaByte};
      }
      // Checked before every vertex: a flush at the limit ends on a whole triangle.
      static const int kOrder[6] = {0, 1, 2, 2, 1, 3};
      for (int k = 0; k < 6; ++k) {
        if (buffer.GetVertexCount() >= kBatchLimit) buffer.Flush();
        *buffer.Reserve(1) = corner[kOrder[k]];
      }
    }
  }
}

}  // namespace nox
