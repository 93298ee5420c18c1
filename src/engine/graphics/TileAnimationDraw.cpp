// TileAnimation: drawing, alone through the GL matrix stack or in the engine's batch
// with the transform done here on whole pixels.
#include "core/Trig.h"
#include "graphics/GLTexture.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimFrame.h"
#include "graphics/TileAnimation.h"
#include "graphics/WholePixel.h"

namespace nox {

namespace {

constexpr int kTilesPerBatch = 2048;

// The arrays of InnerDraw: two shorts and two Reals per vertex, six vertices a tile.
// One thread draws, so one pair of tables serves every sprite.
int16_t s_TilePositions[kTilesPerBatch * 6 * 2];
Real s_TileCoords[kTilesPerBatch * 6 * 2];

Real Clamp01(Real v) {
  return v < Real() ? Real() : (v > Real(1) ? Real(1) : v);
}

// The texture rectangle of a tile whose top left is (u, v): quarter-texel shifts
// keep nearest sampling inside the tile.
struct TexRect {
  Real left, top, right, bottom;
};

TexRect TileTexRect(Real u, Real v, Real du, Real dv, Real su, Real sv) {
  const Real U = u + du, V = v + dv;
  return TexRect{U + du, V + dv, U - du + su, V - dv + sv};
}

}  // namespace

bool TileAnimation::PrepareDraw() {
  if (!m_pFrame || !m_pData) return false;
  if (!m_pFrame->LoadFrame(m_SequenceIndex, m_CurrentFrame) || !(m_Alpha > Real())) return false;
  const TADSequenceEntry* seq = m_pData->GetSequenceEntry(m_SequenceIndex);
  if (!seq || seq->numLayers == 0) {
    m_pFrame->ClearCursor();
    return false;
  }
  return m_pFrame->FirstLayer();
}

void TileAnimation::Draw() {
  if (!PrepareDraw()) return;
  const Vector3 a = GetAnimationPoint(m_pAnchorSeries, static_cast<int>(m_CurrentFrame));
  PushSpriteTransform(m_Position.x, m_Position.y, m_bRelativeLayering ? m_Position.z : Real(),
                      Real(static_cast<int>(m_HFlip)) * m_HScale, Real(static_cast<int>(m_VFlip)) * m_VScale,
                      m_XRotation, m_YRotation, m_ZRotation, a.x, a.y, false);
  InnerDraw();
  PopSpriteTransform();
}

void TileAnimation::DrawBillboarded() {
  if (!PrepareDraw()) return;
  const Vector3 a = GetAnimationPoint(m_pAnchorSeries, static_cast<int>(m_CurrentFrame));
  PushSpriteTransform(m_Position.x, m_Position.y, m_bRelativeLayering ? m_Position.z : Real(),
                      Real(static_cast<int>(m_HFlip)) * m_HScale, Real(static_cast<int>(m_VFlip)) * m_VScale,
                      m_XRotation, m_YRotation, m_ZRotation, a.x, a.y, true);
  InnerDraw();
  PopSpriteTransform();
}

void TileAnimation::UnloadOffscreenResources() {
  if (m_pFrame) m_pFrame->UnloadOffscreenResources();
}

void TileAnimation::InnerDraw() {
  if (GLTexture* texture = m_pFrame->GetTexture()) texture->Bind();
  BeginTiles();
  const TADHeader* header = m_pData->GetHeader();
  const int tw = header->TileWidth(), th = header->TileHeight();
  const Real du = m_pData->GetUOffset(), dv = m_pData->GetVOffset();
  const Real su = m_pFrame->GetTileUSize(), sv = m_pFrame->GetTileVSize();
  const Real r = Clamp01(m_ModulationColor.x), g = Clamp01(m_ModulationColor.y),
             b = Clamp01(m_ModulationColor.z);
  for (bool more = true; more; more = m_pFrame->NextLayer()) {
    const TADLayerBlock* block = m_pFrame->GetLayerBlock();
    // A block whose layer the data does not list draws as a plain layer at depth 0.
    const Layer* layer = FindLayer(block->name);
    if (layer && (!layer->enabled || !(layer->alpha > Real()))) continue;
    const Real depth = layer ? layer->depth : Real();
    SetTileColor(r, g, b, Clamp01(m_Alpha * (layer ? layer->alpha : Real(1))));
    TranslateDepth(depth);
    const int16_t* positions = m_pFrame->GetTilePositions();
    const Real* coords = m_pFrame->GetTileCoords();
    uint32_t done = 0;
    while (done < block->tileCount) {
      const uint32_t n = block->tileCount - done < kTilesPerBatch ? block->tileCount - done : kTilesPerBatch;
      int16_t* p = s_TilePositions;
      Real* c = s_TileCoords;
      for (uint32_t i = done; i < done + n; ++i) {
        const int16_t x = positions[2 * i], y = positions[2 * i + 1];
        const int16_t x1 = static_cast<int16_t>(x + tw), y1 = static_cast<int16_t>(y + th);
        const TexRect t = TileTexRect(coords[2 * i], coords[2 * i + 1], du, dv, su, sv);
        const int16_t xs[6] = {x, x1, x, x, x1, x1};
        const int16_t ys[6] = {y, y, y1, y1, y, y1};
        const Real us[6] = {t.left, t.right, t.left, t.left, t.right, t.right};
        const Real vs[6] = {t.top, t.top, t.bottom, t.bottom, t.top, t.bottom};
        for (int k = 0; k < 6; ++k) {
          *p++ = xs[k];
          *p++ = ys[k];
          *c++ = us[k];
          *c++ = vs[k];
        }
      }
      DrawTileTriangles(s_TilePositions, s_TileCoords, static_cast<int>(6 * n));
      done += n;
    }
    TranslateDepth(-depth);
  }
  GLTexture::UnBind();
  EndTiles();
}

}  // namespace nox
