#include "graphics/TileAnimFrame.h"

#include "graphics/TileAnimData.h"

namespace nox {

void TileAnimFrame::ClearCursor() {
  m_pCurrentLayer = nullptr;
  m_pTilePositions = nullptr;
  m_pTileCoords = nullptr;
  m_LayerIndex = 0xFFFF;
  m_TileIndex = 0xFFFF;
}

void TileAnimFrame::SetCursor(const TADSequenceEntry* sequence) {
  m_pSequenceEntry = sequence;
  if (!FirstLayer()) ClearCursor();
}

bool TileAnimFrame::FirstLayer() {
  if (!m_pSequenceEntry || !m_pLayerBlocks || m_pSequenceEntry->numLayers == 0) return false;
  m_pCurrentLayer = reinterpret_cast<const TADLayerBlock*>(m_pLayerBlocks);
  m_pTilePositions = m_pCurrentLayer->Positions();
  m_pTileCoords = m_pCurrentLayer->TexCoords();
  m_LayerIndex = 0;
  m_TileIndex = 0;
  return true;
}

bool TileAnimFrame::NextLayer() {
  if (!m_pCurrentLayer || m_LayerIndex + 1 >= m_pSequenceEntry->numLayers) return false;
  m_pCurrentLayer = m_pCurrentLayer->Next();
  m_pTilePositions = m_pCurrentLayer->Positions();
  m_pTileCoords = m_pCurrentLayer->TexCoords();
  ++m_LayerIndex;
  m_TileIndex = 0;
  return true;
}

VRAMAnimFrame::VRAMAnimFrame(TileAnimData* data) : TileAnimFrame(data) {
  const TADHeader* header = data->GetHeader();
  if (header && header->sheetWidth != 0 && header->sheetHeight != 0) {
    const Real quarter = Real::FromRaw(Real::kOneRaw / 4);
    m_TileUSize = (Real(header->TileWidth()) - quarter) / Real(header->sheetWidth);
    m_TileVSize = (Real(header->TileHeight()) - quarter) / Real(header->sheetHeight);
  }
}

bool VRAMAnimFrame::LoadFrame(unsigned sequence, unsigned frame) {
  const TADFrameEntry* entry = m_pData->GetFrameEntry(sequence, frame);
  const uint8_t* block = m_pData->GetFrameLayer(sequence, frame);
  if (!entry || !block) return false;
  m_pFrameEntry = entry;
  m_pLayerBlocks = block;
  SetCursor(m_pData->GetSequenceEntry(sequence));
  return m_pData->IsVRAMReady();
}

GLTexture* VRAMAnimFrame::GetTexture() {
  return &m_pData->GetTexture();
}

}  // namespace nox
