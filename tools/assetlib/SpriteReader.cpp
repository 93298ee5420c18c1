#include "SpriteReader.h"

#include <algorithm>
#include <climits>

#include <zlib.h>

#include "graphics/TileFileFormat.h"

namespace assetlib {

namespace {

const nox::TADHeader* Header(const Bytes& anim) {
  return reinterpret_cast<const nox::TADHeader*>(anim.data());
}

const nox::TADSequenceEntry* Sequences(const Bytes& anim) {
  return reinterpret_cast<const nox::TADSequenceEntry*>(anim.data() + sizeof(nox::TADHeader) +
                                                        8ul * Header(anim)->numLayers);
}

}  // namespace

bool SpriteReader::Open(const std::string& prefix, std::string& error) {
  Bytes anim, tex;
  return ReadFile(prefix + ".anim", anim, error) && ReadFile(prefix + ".tex", tex, error) &&
         Open(anim, tex, prefix + ".anim", error);
}

bool SpriteReader::Open(const Bytes& anim, const Bytes& tex, const std::string& name, std::string& error) {
  m_Name = name;
  m_Anim = anim;
  m_Data.clear();
  if (const char* problem = nox::CheckAnimControl(m_Anim.data(), m_Anim.size())) {
    error = name + ": " + problem;
    return false;
  }
  const nox::TADHeader* header = Header(m_Anim);
  switch (header->texFormat) {
    case nox::kTADPlain4444:
    case nox::kTADZlib4444:
      m_Format = kFormat4444;
      break;
    case nox::kTADPlain5551:
    case nox::kTADZlib5551:
      m_Format = kFormat5551;
      break;
    default:
      error =
          name + ": texture format code " + std::to_string(header->texFormat) + " is not one the tools read";
      return false;
  }
  if (header->storage == nox::kTADStorageSheet && nox::TADIsPacked(header->texFormat)) {
    if (!Unpack(tex.data(), tex.size(), header->dataUnpackedSize, m_Data)) {
      error = name + ": the data file does not unpack to its recorded size";
      return false;
    }
  } else {
    m_Data = tex;
  }
  if (header->storage == nox::kTADStorageSheet &&
      static_cast<uint64_t>(header->sheetOffset) + 2ull * header->sheetWidth * header->sheetHeight >
          m_Data.size()) {
    error = name + ": the sheet runs past the end of the data";
    return false;
  }
  for (unsigned s = 0; s < GetNumSequences(); ++s) {
    for (unsigned f = 0; f < GetFrameCount(s); ++f) {
      const nox::TADFrameEntry* e = reinterpret_cast<const nox::TADFrameEntry*>(SequenceBlock(s)) + f;
      if (static_cast<uint64_t>(e->offset) + e->size > m_Data.size()) {
        error = name + ": a frame lies past the end of the data";
        return false;
      }
    }
  }
  return true;
}

unsigned SpriteReader::GetNumSequences() const {
  return m_Anim.empty() ? 0 : Header(m_Anim)->numSequences;
}

int SpriteReader::FindSequence(nox::NameHash name) const {
  for (unsigned s = 0; s < GetNumSequences(); ++s) {
    if (Sequences(m_Anim)[s].name == name) return static_cast<int>(s);
  }
  return -1;
}

unsigned SpriteReader::GetFrameCount(unsigned sequence) const {
  return sequence < GetNumSequences() ? Sequences(m_Anim)[sequence].frameCount : 0;
}

unsigned SpriteReader::GetTileWidth() const {
  return Header(m_Anim)->TileWidth();
}

unsigned SpriteReader::GetTileHeight() const {
  return Header(m_Anim)->TileHeight();
}

const uint8_t* SpriteReader::SequenceBlock(unsigned sequence) const {
  const nox::TADSequenceEntry* seqs = Sequences(m_Anim);
  const uint8_t* p = reinterpret_cast<const uint8_t*>(seqs + GetNumSequences());
  for (unsigned s = 0; s < sequence; ++s) {
    const uint64_t f = seqs[s].frameCount;
    p += 12 * f + seqs[s].numPointSeries * (4 + 4 * f) + seqs[s].numRectSeries * (4 + 8 * f) +
         seqs[s].numCallbackSeries * (4 + 4 * f);
  }
  return p;
}

uint32_t SpriteReader::GetFrameOffset(unsigned sequence, unsigned frame) const {
  return reinterpret_cast<const nox::TADFrameEntry*>(SequenceBlock(sequence))[frame].offset;
}

bool SpriteReader::ReadFrame(unsigned sequence, unsigned frame, std::vector<SpriteTile>& out,
                             std::string& error) const {
  out.clear();
  if (sequence >= GetNumSequences() || frame >= GetFrameCount(sequence)) {
    error = m_Name + ": no such frame";
    return false;
  }
  const nox::TADHeader* header = Header(m_Anim);
  const nox::TADFrameEntry& entry =
      reinterpret_cast<const nox::TADFrameEntry*>(SequenceBlock(sequence))[frame];
  Bytes block(m_Data.begin() + entry.offset, m_Data.begin() + entry.offset + entry.size);
  if (header->storage == nox::kTADStorageFrames && nox::TADIsPacked(header->texFormat)) {
    Bytes unpacked(header->maxUnpackedFrame);
    uLongf got = unpacked.size();
    if (uncompress(unpacked.data(), &got, block.data(), block.size()) != Z_OK) {
      error = m_Name + ": frame " + std::to_string(frame) + " does not unpack";
      return false;
    }
    unpacked.resize(got);
    block.swap(unpacked);
  }
  unsigned long layerBytes = 0;
  const unsigned layers = Sequences(m_Anim)[sequence].numLayers;
  if (const char* problem = nox::CheckFrameLayers(block.data(), block.size(), layers, &layerBytes)) {
    error = m_Name + ": frame " + std::to_string(frame) + ": " + problem;
    return false;
  }
  // The texture the tiles lie on: the sheet, or the frame's own behind its layers.
  const uint8_t* texture;
  uint32_t width, height;
  if (header->storage == nox::kTADStorageSheet) {
    texture = m_Data.data() + header->sheetOffset;
    width = header->sheetWidth;
    height = header->sheetHeight;
  } else {
    const size_t at = (layerBytes + 15) & ~static_cast<size_t>(15);
    width = entry.width;
    height = entry.height;
    if (at + 2ull * width * height > block.size()) {
      error = m_Name + ": frame " + std::to_string(frame) + ": its pixels run past the block";
      return false;
    }
    texture = block.data() + at;
  }
  const unsigned tw = GetTileWidth(), th = GetTileHeight();
  const nox::TADLayerBlock* layer = reinterpret_cast<const nox::TADLayerBlock*>(block.data());
  for (unsigned l = 0; l < layers; ++l, layer = layer->Next()) {
    for (uint32_t t = 0; t < layer->tileCount; ++t) {
      SpriteTile tile;
      tile.x = layer->Positions()[2 * t];
      tile.y = layer->Positions()[2 * t + 1];
      const uint64_t left =
          (static_cast<uint64_t>(static_cast<uint32_t>(layer->TexCoords()[2 * t].Raw())) * width) >> 16;
      const uint64_t top =
          (static_cast<uint64_t>(static_cast<uint32_t>(layer->TexCoords()[2 * t + 1].Raw())) * height) >> 16;
      if (left + tw > width || top + th > height) {
        error = m_Name + ": frame " + std::to_string(frame) + ": a tile lies outside its texture";
        return false;
      }
      for (unsigned y = 0; y < th; ++y) {
        for (unsigned x = 0; x < tw; ++x)
          tile.pixels.push_back(Get16(texture + ((top + y) * width + left + x) * 2));
      }
      out.push_back(std::move(tile));
    }
  }
  return true;
}

bool SpriteReader::DrawFrame(unsigned sequence, unsigned frame, Image& canvas, int originX, int originY,
                             std::string& error) const {
  std::vector<SpriteTile> tiles;
  if (!ReadFrame(sequence, frame, tiles, error)) return false;
  const int tw = static_cast<int>(GetTileWidth()), th = static_cast<int>(GetTileHeight());
  for (const SpriteTile& tile : tiles) {
    for (int y = 0; y < th; ++y) {
      for (int x = 0; x < tw; ++x) {
        const int cx = originX + tile.x + x, cy = originY + tile.y + y;
        const uint16_t p = tile.pixels[y * tw + x];
        if (p == 0 || cx < 0 || cy < 0 || cx >= static_cast<int>(canvas.width) ||
            cy >= static_cast<int>(canvas.height))
          continue;
        FromPixel16(p, m_Format, canvas.At(cx, cy));
      }
    }
  }
  return true;
}

bool SpriteReader::RenderStrip(unsigned sequence, Image& out, std::string& error) const {
  int left = INT_MAX, top = INT_MAX, right = INT_MIN, bottom = INT_MIN;
  const unsigned frames = GetFrameCount(sequence);
  for (unsigned f = 0; f < frames; ++f) {
    std::vector<SpriteTile> tiles;
    if (!ReadFrame(sequence, f, tiles, error)) return false;
    for (const SpriteTile& t : tiles) {
      left = std::min(left, t.x);
      top = std::min(top, t.y);
      right = std::max(right, t.x + static_cast<int>(GetTileWidth()));
      bottom = std::max(bottom, t.y + static_cast<int>(GetTileHeight()));
    }
  }
  if (left > right) left = right = top = bottom = 0;  // nothing visible anywhere
  const uint32_t cellW = static_cast<uint32_t>(std::max(1, right - left));
  const uint32_t cellH = static_cast<uint32_t>(std::max(1, bottom - top));
  if (static_cast<uint64_t>(cellW) * frames > 32768 || cellH > 32768) {
    error = m_Name + ": the strip would be wider than 32768 pixels";
    return false;
  }
  out = Image(cellW * frames, cellH);
  for (unsigned f = 0; f < frames; ++f) {
    if (!DrawFrame(sequence, f, out, static_cast<int>(f * cellW) - left, -top, error)) return false;
  }
  return true;
}

}  // namespace assetlib
