// Frame holders: where the tiles of the frame a sprite shows are resident, and a
// cursor over that frame's layer blocks for drawing and hit tests.
//
// TileAnimFrame is the base; VRAMAnimFrame serves sprites whose frames all lie on the
// data's resident sheet (storage kind 2) and only points into the loaded data file.
// CartAnimFrame and StreamedMemoryAnimFrame (CartAnimFrame.h) fetch one frame at a
// time with its own texture. TileAnimData::GetNewFrameHolder picks the kind; a sprite
// owns its holder unless the data shares one among its sprites.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"
#include "core/Real.h"
#include "graphics/TileFileFormat.h"

namespace nox {

class GLTexture;
class TileAnimData;

class TileAnimFrame : public NoCopy {
 public:
  explicit TileAnimFrame(TileAnimData* data) : m_pData(data) {}
  virtual ~TileAnimFrame() {}

  // Makes the frame current; false when it cannot be had, and the sprite then skips
  // drawing for this frame.
  virtual bool LoadFrame(unsigned sequence, unsigned frame) = 0;
  virtual void UploadTextures() = 0;
  virtual GLTexture* GetTexture() = 0;
  virtual void UnloadOffscreenResources() {}
  // Size of one tile in texture space, less a quarter texel.
  virtual Real GetTileUSize() const { return m_TileUSize; }
  virtual Real GetTileVSize() const { return m_TileVSize; }

  // The cursor over the loaded frame's layer blocks.
  const TADSequenceEntry* GetSequenceEntry() const { return m_pSequenceEntry; }
  const TADFrameEntry* GetFrameEntry() const { return m_pFrameEntry; }
  // Puts the cursor on the first layer block; false when the frame has none.
  bool FirstLayer();
  // Moves to the next layer block; false after the last.
  bool NextLayer();
  void ClearCursor();
  const TADLayerBlock* GetLayerBlock() const { return m_pCurrentLayer; }
  const int16_t* GetTilePositions() const { return m_pTilePositions; }
  const Real* GetTileCoords() const { return m_pTileCoords; }
  uint16_t GetLayerIndex() const { return m_LayerIndex; }
  uint16_t GetTileIndex() const { return m_TileIndex; }

 protected:
  // Sets the cursor on the first layer of the sequence's frame now in hand.
  void SetCursor(const TADSequenceEntry* sequence);

  TileAnimData* m_pData;                    // borrowed
  const uint8_t* m_pLayerBlocks = nullptr;  // the frame's first layer block
  const TADLayerBlock* m_pCurrentLayer = nullptr;
  const TADSequenceEntry* m_pSequenceEntry = nullptr;
  const int16_t* m_pTilePositions = nullptr;     // of the current layer block
  const Real* m_pTileCoords = nullptr;           // of the current layer block
  const TADFrameEntry* m_pFrameEntry = nullptr;  // the frame in hand
  uint16_t m_LayerIndex = 0xFFFF;                // 0xFFFF while there are none
  uint16_t m_TileIndex = 0xFFFF;
  Real m_TileUSize;
  Real m_TileVSize;
};

// Frames of a sprite whose tiles all lie on the data's resident sheet.
class VRAMAnimFrame : public TileAnimFrame {
 public:
  explicit VRAMAnimFrame(TileAnimData* data);
  bool LoadFrame(unsigned sequence, unsigned frame) override;
  void UploadTextures() override {}
  GLTexture* GetTexture() override;
};

}  // namespace nox
