// Frame holders that fetch one frame at a time, each frame with its own texture
// (storage kind 0): CartAnimFrame reads the frame's block from the open data file,
// StreamedMemoryAnimFrame from the data file loaded whole.
//
// The buffers are sized once from the header (largest packed and unpacked frame), so
// fetching allocates nothing; a frame with the same offset as the one in hand is not
// read again, and a texture of the same size is replaced in place. Every fetched
// block is checked (layer blocks and pixels inside what was read) before it is used.
// Sprites that scroll off screen give their texture back through
// UnloadOffscreenResources and fetch again when they return. The holder owns its
// buffers and its own texture; with deferred video memory it draws into the data's
// texture instead, shared by all sprites of the data.
#pragma once
#include "graphics/GLTexture.h"
#include "graphics/TileAnimFrame.h"

namespace nox {

class CartAnimFrame : public TileAnimFrame {
 public:
  explicit CartAnimFrame(TileAnimData* data);
  ~CartAnimFrame() override;

  bool LoadFrame(unsigned sequence, unsigned frame) override;
  void UploadTextures() override;
  GLTexture* GetTexture() override { return m_pTexture; }
  void UnloadOffscreenResources() override;
  // Fills the pixel buffer with the frame's unpacked block; false on any failure.
  virtual bool LoadToBuffer(unsigned sequence, unsigned frame);

 protected:
  bool m_bSharedTexture = false;
  uint8_t* m_pRawPixelBuffer = nullptr;  // owned, new[]
  uint8_t* m_pPixelBuffer = nullptr;     // 16-byte aligned, in m_pRawPixelBuffer (or the data file)
  unsigned long m_DataSize = 0;          // bytes in m_pPixelBuffer
  uint8_t* m_pPackedBuffer = nullptr;    // owned, new[], the largest packed frame
  GLTexture* m_pTexture;                 // the texture in use: m_OwnTexture or the data's
  GLTexture m_OwnTexture;
  const uint8_t* m_pFramePixels = nullptr;  // in m_pPixelBuffer

  uint8_t* AlignedBuffer() const;
};

// Frames fetched from the data file held in memory: plain blocks are used where they
// lie, packed ones are unpacked into the pixel buffer.
class StreamedMemoryAnimFrame : public CartAnimFrame {
 public:
  explicit StreamedMemoryAnimFrame(TileAnimData* data) : CartAnimFrame(data) {}
  bool LoadToBuffer(unsigned sequence, unsigned frame) override;
};

}  // namespace nox
