// Reads a sprite's ".anim" and ".tex" back into pictures, for the preview tool and for
// checking what the writers made. Only the 16-bit texture codes (20, 21, 40, 41) that
// the tools write can be turned back into pixels.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "Bytes.h"
#include "Image.h"
#include "core/HashString.h"

namespace assetlib {

struct SpriteTile {
  int x = 0;  // animation pixels
  int y = 0;
  std::vector<uint16_t> pixels;  // tile width * tile height
};

class SpriteReader {
 public:
  // Checks both files as the engine does. `name` starts every error message.
  bool Open(const Bytes& anim, const Bytes& tex, const std::string& name, std::string& error);
  bool Open(const std::string& prefix, std::string& error);

  unsigned GetNumSequences() const;
  // -1 when there is no such sequence.
  int FindSequence(nox::NameHash name) const;
  unsigned GetFrameCount(unsigned sequence) const;
  unsigned GetTileWidth() const;
  unsigned GetTileHeight() const;
  PixelFormat16 GetFormat() const { return m_Format; }
  // The stored blocks of a sequence's frames, as offsets; equal offsets share data.
  uint32_t GetFrameOffset(unsigned sequence, unsigned frame) const;

  // The visible tiles of a frame, all layers, in drawing order.
  bool ReadFrame(unsigned sequence, unsigned frame, std::vector<SpriteTile>& out, std::string& error) const;
  // Draws a frame onto `canvas` with the sprite's (0, 0) at (originX, originY); later
  // tiles cover earlier ones where they are not clear.
  bool DrawFrame(unsigned sequence, unsigned frame, Image& canvas, int originX, int originY,
                 std::string& error) const;
  // One sequence as a strip of frames side by side, each cell the union of the
  // frames' tile bounds.
  bool RenderStrip(unsigned sequence, Image& out, std::string& error) const;

 private:
  const uint8_t* SequenceBlock(unsigned sequence) const;

  std::string m_Name;
  Bytes m_Anim;
  Bytes m_Data;  // the unpacked data file
  PixelFormat16 m_Format = kFormat4444;
};

}  // namespace assetlib
