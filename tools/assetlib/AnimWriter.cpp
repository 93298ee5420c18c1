#include "AnimWriter.h"

#include <algorithm>
#include <climits>
#include <map>

#include "core/HashString.h"
#include "graphics/TileFileFormat.h"

namespace assetlib {

namespace {

constexpr uint32_t kToolMark = 0x3141584E;  // "NXA1"

typedef Bytes TilePixels;  // tileSize * tileSize 16-bit pixels

struct PlacedTile {
  int x = 0;  // animation pixels
  int y = 0;
  uint32_t tile = 0;     // index into the sheet's tile pool
  uint32_t ownTile = 0;  // index into the frame's own tile pool
};

struct FrameLayer {
  unsigned layer = 0;  // index into the description's layers
  std::vector<PlacedTile> tiles;
};

struct Frame {
  std::vector<FrameLayer> layers;  // the sequence's layers, in drawing order
  AnimRect box;                    // visible pixels, animation pixels
};

// Distinct tiles in first-seen order.
class TilePool {
 public:
  uint32_t Add(const TilePixels& pixels) {
    auto found = m_Index.find(pixels);
    if (found != m_Index.end()) return found->second;
    const uint32_t index = static_cast<uint32_t>(m_Tiles.size());
    m_Tiles.push_back(pixels);
    m_Index.emplace(pixels, index);
    return index;
  }
  const std::vector<TilePixels>& Tiles() const { return m_Tiles; }

 private:
  std::vector<TilePixels> m_Tiles;
  std::map<TilePixels, uint32_t> m_Index;
};

// Smallest power-of-two texture, growing the width first, that holds `count` tiles.
bool FitTexture(size_t count, unsigned tileSize, unsigned maxSide, uint32_t& width, uint32_t& height) {
  width = height = NextPowerOfTwo(tileSize);
  if (count == 0) return true;
  while (static_cast<size_t>(width / tileSize) * (height / tileSize) < count) {
    if (width <= height) {
      width <<= 1;
    } else {
      height <<= 1;
    }
    if (width > maxSide || height > maxSide) return false;
  }
  return true;
}

// The pool laid out row by row on a width by height texture of 16-bit pixels.
Bytes LayOutTiles(const std::vector<TilePixels>& tiles, unsigned tileSize, uint32_t width, uint32_t height) {
  Bytes pixels(static_cast<size_t>(width) * height * 2, 0);
  const uint32_t columns = width / tileSize;
  for (size_t i = 0; i < tiles.size(); ++i) {
    const uint32_t left = static_cast<uint32_t>(i % columns) * tileSize;
    const uint32_t top = static_cast<uint32_t>(i / columns) * tileSize;
    for (unsigned y = 0; y < tileSize; ++y) {
      memcpy(&pixels[((top + y) * static_cast<size_t>(width) + left) * 2], &tiles[i][y * tileSize * 2],
             tileSize * 2);
    }
  }
  return pixels;
}

// Layer blocks of a frame whose tiles lie on a width by height texture: the sheet's,
// or with `own` the frame's own.
Bytes LayerBlocks(const Frame& frame, const AnimDesc& desc, bool own, uint32_t width, uint32_t height) {
  Bytes out;
  const uint32_t columns = width / desc.tileSize;
  for (const FrameLayer& layer : frame.layers) {
    Put32(out, nox::HashString(desc.layers[layer.layer].name));
    Put32(out, static_cast<uint32_t>(layer.tiles.size()));
    for (const PlacedTile& t : layer.tiles) {
      Put16(out, static_cast<uint16_t>(static_cast<int16_t>(t.x)));
      Put16(out, static_cast<uint16_t>(static_cast<int16_t>(t.y)));
    }
    for (const PlacedTile& t : layer.tiles) {
      // Exact: the sides are powers of two, so the coordinates are whole raw values.
      const uint32_t index = own ? t.ownTile : t.tile;
      const uint64_t left = static_cast<uint64_t>(index % columns) * desc.tileSize;
      const uint64_t top = static_cast<uint64_t>(index / columns) * desc.tileSize;
      Put32(out, static_cast<uint32_t>((left << 16) / width));
      Put32(out, static_cast<uint32_t>((top << 16) / height));
    }
  }
  return out;
}

// Cuts one layer picture into visible tiles, `pool` giving each tile's index.
bool CutPicture(const Image& image, const AnimDesc& desc, int originX, int originY, TilePool& pool,
                FrameLayer& layer, AnimRect& box, std::string& error) {
  const unsigned ts = desc.tileSize;
  uint32_t minX = UINT32_MAX, minY = UINT32_MAX, maxX = 0, maxY = 0;
  for (uint32_t y = 0; y < image.height; ++y) {
    for (uint32_t x = 0; x < image.width; ++x) {
      if (ToPixel16(image.At(x, y), desc.format) == 0) continue;
      minX = std::min(minX, x);
      minY = std::min(minY, y);
      maxX = std::max(maxX, x + 1);
      maxY = std::max(maxY, y + 1);
    }
  }
  if (minX == UINT32_MAX) return true;  // nothing visible
  const int left = static_cast<int>(minX) - originX, top = static_cast<int>(minY) - originY;
  const int right = static_cast<int>(maxX) - originX, bottom = static_cast<int>(maxY) - originY;
  const int reach = static_cast<int>(ts);
  if (left < -32767 || top < -32767 || right + reach > 32767 || bottom + reach > 32767) {
    error = "picture reaches beyond 32767 pixels from the origin";
    return false;
  }
  if (box.nil) {
    box = AnimRect{false, left, top, right, bottom};
  } else {
    box.left = std::min(box.left, left);
    box.top = std::min(box.top, top);
    box.right = std::max(box.right, right);
    box.bottom = std::max(box.bottom, bottom);
  }
  for (uint32_t ty = minY; ty < maxY; ty += ts) {
    for (uint32_t tx = minX; tx < maxX; tx += ts) {
      TilePixels pixels;
      pixels.reserve(ts * ts * 2);
      bool blank = true;
      for (uint32_t y = ty; y < ty + ts; ++y) {
        for (uint32_t x = tx; x < tx + ts; ++x) {
          const uint16_t p =
              (x < image.width && y < image.height) ? ToPixel16(image.At(x, y), desc.format) : 0;
          blank = blank && p == 0;
          Put16(pixels, p);
        }
      }
      if (blank) continue;
      layer.tiles.push_back(
          PlacedTile{static_cast<int>(tx) - originX, static_cast<int>(ty) - originY, pool.Add(pixels)});
    }
  }
  return true;
}

void PutRect(Bytes& out, const AnimRect& r) {
  const int16_t nil = nox::kNilCoordinate;
  Put16(out, static_cast<uint16_t>(r.nil ? nil : static_cast<int16_t>(r.left)));
  Put16(out, static_cast<uint16_t>(r.nil ? nil : static_cast<int16_t>(r.top)));
  Put16(out, static_cast<uint16_t>(r.nil ? nil : static_cast<int16_t>(r.right)));
  Put16(out, static_cast<uint16_t>(r.nil ? nil : static_cast<int16_t>(r.bottom)));
}

// A point or rectangle series holds one entry per frame or one entry for every frame;
// the file holds one per frame.
template <typename Entry>
std::vector<Entry> PerFrame(const std::vector<Entry>& entries, size_t frames) {
  return entries.size() == 1 ? std::vector<Entry>(frames, entries[0]) : entries;
}

// Refuses a series whose count is neither 1 (where `single` allows it) nor the frame count:
// the engine would read the next series, or past the file, as this one's entries.
template <typename Series>
bool CheckCounts(const Series& series, const char* kind, bool single, size_t frames, const std::string& where,
                 std::string& error) {
  for (const auto& s : series) {
    const size_t count = s.second.size();
    if (count == frames || (single && count == 1)) continue;
    error = where + ": " + kind + " \"" + s.first + "\": " + std::to_string(count) + " entries for " +
            std::to_string(frames) + " frames; give " + (single ? "one for all frames or " : "") +
            "one per frame";
    return false;
  }
  return true;
}

}  // namespace

bool BuildAnim(const AnimDesc& desc, const ImageSource& images, const std::string& name, AnimOutput& out,
               std::string& error) {
  out = AnimOutput();
  if (desc.tileSize < 8 || desc.tileSize > 128) {
    error = name + ": tile size must be 8 to 128";
    return false;
  }
  if (desc.sequences.empty()) {
    error = name + ": no sequences";
    return false;
  }
  if (desc.layers.empty() || desc.layers.size() > 255) {
    error = name + ": 1 to 255 layers are needed";
    return false;
  }
  const unsigned maxSheet = std::min(desc.maxSheet, nox::kMaxTextureSide);

  // Cut every frame, twice pooling the tiles: once for a sheet, once per frame.
  std::map<std::string, Image> pictures;
  TilePool sheetPool;
  std::vector<std::vector<Frame>> frames(desc.sequences.size());
  std::vector<std::vector<TilePool>> framePools(desc.sequences.size());
  for (size_t s = 0; s < desc.sequences.size(); ++s) {
    const AnimSequenceDesc& seq = desc.sequences[s];
    const std::string where = name + ": sequence \"" + seq.name + "\"";
    if (seq.frames.empty() || seq.frames.size() > 0xFFFF) {
      error = where + ": needs 1 to 65535 frames";
      return false;
    }
    const size_t count = seq.frames.size();
    if (!CheckCounts(seq.points, "points", true, count, where, error) ||
        !CheckCounts(seq.rects, "rects", true, count, where, error) ||
        !CheckCounts(seq.callbacks, "callbacks", false, count, where, error))
      return false;
    // The layers this sequence uses, in the description's order.
    std::vector<bool> used(desc.layers.size(), false);
    for (const auto& frame : seq.frames) {
      for (const auto& part : frame) used.at(part.first) = true;
    }
    for (size_t f = 0; f < seq.frames.size(); ++f) {
      Frame frame;
      TilePool framePool;
      for (unsigned l = 0; l < desc.layers.size(); ++l) {
        if (!used[l]) continue;
        FrameLayer layer;
        layer.layer = l;
        for (const auto& part : seq.frames[f]) {
          if (part.first != l) continue;
          auto cached = pictures.find(part.second);
          if (cached == pictures.end()) {
            Image image;
            if (!images(part.second, image, error)) return false;
            cached = pictures.emplace(part.second, std::move(image)).first;
          }
          // Cut against both pools; the tile indexes differ, the positions do not.
          FrameLayer sheetLayer, ownLayer;
          AnimRect scratch;
          if (!CutPicture(cached->second, desc, seq.originX, seq.originY, sheetPool, sheetLayer, frame.box,
                          error) ||
              !CutPicture(cached->second, desc, seq.originX, seq.originY, framePool, ownLayer, scratch,
                          error)) {
            error = where + ": " + part.second + ": " + error;
            return false;
          }
          for (size_t i = 0; i < sheetLayer.tiles.size(); ++i) {
            PlacedTile t = sheetLayer.tiles[i];
            t.ownTile = ownLayer.tiles[i].tile;
            layer.tiles.push_back(t);
          }
        }
        frame.layers.push_back(std::move(layer));
      }
      frames[s].push_back(std::move(frame));
      framePools[s].push_back(std::move(framePool));
    }
  }

  // Storage: a sheet when the distinct tiles fit.
  uint32_t sheetW = 0, sheetH = 0;
  const bool fits = FitTexture(sheetPool.Tiles().size(), desc.tileSize, maxSheet, sheetW, sheetH);
  if (desc.storage == AnimStorage::kSheet && !fits) {
    error = name + ": " + std::to_string(sheetPool.Tiles().size()) +
            " distinct tiles do not fit a sheet of " + std::to_string(maxSheet) + " pixels";
    return false;
  }
  out.sheet = desc.storage == AnimStorage::kSheet || (desc.storage == AnimStorage::kAuto && fits);
  const uint8_t code = desc.format == kFormat4444 ? (desc.packed ? nox::kTADZlib4444 : nox::kTADPlain4444)
                                                  : (desc.packed ? nox::kTADZlib5551 : nox::kTADPlain5551);

  // Frame blocks, equal blocks stored once.
  std::map<Bytes, std::pair<uint32_t, uint32_t>> storedBlocks;  // unpacked block -> offset, stored size
  std::vector<std::vector<nox::TADFrameEntry>> entries(desc.sequences.size());
  Bytes data;
  uint32_t maxPacked = 0, maxUnpacked = 0;
  for (size_t s = 0; s < desc.sequences.size(); ++s) {
    for (size_t f = 0; f < frames[s].size(); ++f) {
      const Frame& frame = frames[s][f];
      uint32_t width = 0, height = 0;
      const std::vector<TilePixels>* ownTiles = nullptr;
      Bytes block;
      if (out.sheet) {
        block = LayerBlocks(frame, desc, false, sheetW, sheetH);
      } else {
        ownTiles = &framePools[s][f].Tiles();
        if (!ownTiles->empty() &&
            !FitTexture(ownTiles->size(), desc.tileSize, nox::kMaxTextureSide, width, height)) {
          error = name + ": sequence \"" + desc.sequences[s].name + "\" frame " + std::to_string(f) +
                  ": its tiles do not fit a texture of 2048 pixels";
          return false;
        }
        if (ownTiles->empty()) width = height = 0;
        block =
            LayerBlocks(frame, desc, true, width ? width : desc.tileSize, height ? height : desc.tileSize);
        if (width) {
          PadTo(block, 16);
          Append(block, LayOutTiles(*ownTiles, desc.tileSize, width, height));
        }
      }
      auto found = storedBlocks.find(block);
      if (found == storedBlocks.end()) {
        Bytes stored = (!out.sheet && desc.packed) ? Pack(block) : block;
        // Plain blocks start on 16 bytes so that frames used in place find their pixels
        // where a fetched copy would have them.
        PadTo(data, out.sheet || !desc.packed ? 16 : 4);
        const uint32_t offset = static_cast<uint32_t>(data.size());
        Append(data, stored);
        maxPacked = std::max(maxPacked, static_cast<uint32_t>(stored.size()));
        maxUnpacked = std::max(maxUnpacked, static_cast<uint32_t>(block.size()));
        found =
            storedBlocks.emplace(block, std::make_pair(offset, static_cast<uint32_t>(stored.size()))).first;
        out.distinctTiles += ownTiles ? static_cast<uint32_t>(ownTiles->size()) : 0;
      }
      entries[s].push_back(nox::TADFrameEntry{found->second.first, found->second.second,
                                              static_cast<uint16_t>(width), static_cast<uint16_t>(height)});
    }
  }
  out.distinctFrames = static_cast<uint32_t>(storedBlocks.size());

  uint32_t sheetOffset = 0;
  if (out.sheet) {
    PadTo(data, 16);
    sheetOffset = static_cast<uint32_t>(data.size());
    Append(data, LayOutTiles(sheetPool.Tiles(), desc.tileSize, sheetW, sheetH));
    out.sheetWidth = sheetW;
    out.sheetHeight = sheetH;
    out.distinctTiles = static_cast<uint32_t>(sheetPool.Tiles().size());
  }
  if (data.size() > nox::kMaxDataFileBytes || maxUnpacked > nox::kMaxFrameBytes) {
    error = name + ": the sprite's data exceeds what the engine loads";
    return false;
  }
  out.tex = (out.sheet && desc.packed) ? Pack(data) : data;

  // The control file.
  Bytes& anim = out.anim;
  Put32(anim, kToolMark);
  Put32(anim, static_cast<uint32_t>(data.size()));
  Put32(anim, maxPacked);
  Put32(anim, maxUnpacked);
  Put32(anim, static_cast<uint32_t>(desc.sequences.size()));
  Put32(anim, sheetOffset);
  Put16(anim, static_cast<uint32_t>(desc.layers.size()));
  Put16(anim, out.sheet ? sheetW : 0);
  Put16(anim, out.sheet ? sheetH : 0);
  Put16(anim, desc.tileSize);
  Put16(anim, desc.tileSize);
  Put8(anim, code);
  Put8(anim, out.sheet ? nox::kTADStorageSheet : nox::kTADStorageFrames);
  for (const AnimLayerDesc& layer : desc.layers) {
    Put32(anim, nox::HashString(layer.name));
    Put32(anim, static_cast<uint32_t>(layer.depthRaw));
  }

  // Each sequence's rectangles: the computed boxes first, then the description's.
  std::vector<std::vector<std::pair<nox::NameHash, std::vector<AnimRect>>>> rects(desc.sequences.size());
  for (size_t s = 0; s < desc.sequences.size(); ++s) {
    const AnimSequenceDesc& seq = desc.sequences[s];
    std::vector<AnimRect> boxes;
    for (const Frame& frame : frames[s]) boxes.push_back(frame.box);
    rects[s].emplace_back(nox::kCellBoxHash, boxes);
    bool ownCollision = false;
    for (const auto& r : seq.rects) ownCollision = ownCollision || r.first == "Collision";
    if (!ownCollision) rects[s].emplace_back(nox::HashString("Collision"), boxes);
    for (const auto& r : seq.rects)
      rects[s].emplace_back(nox::HashString(r.first), PerFrame(r.second, seq.frames.size()));
    if (rects[s].size() > 255 || seq.points.size() > 255 || seq.callbacks.size() > 255) {
      error = name + ": sequence \"" + seq.name + "\": more than 255 series of one kind";
      return false;
    }
  }
  for (size_t s = 0; s < desc.sequences.size(); ++s) {
    const AnimSequenceDesc& seq = desc.sequences[s];
    Put32(anim, nox::HashString(seq.name));
    Put32(anim, 0);
    Put32(anim, static_cast<uint32_t>(seq.frames.size()));
    Put8(anim, static_cast<uint32_t>(frames[s].empty() ? 0 : frames[s][0].layers.size()));
    Put8(anim, static_cast<uint32_t>(seq.points.size()));
    Put8(anim, static_cast<uint32_t>(rects[s].size()));
    Put8(anim, static_cast<uint32_t>(seq.callbacks.size()));
  }
  for (size_t s = 0; s < desc.sequences.size(); ++s) {
    const AnimSequenceDesc& seq = desc.sequences[s];
    for (const nox::TADFrameEntry& e : entries[s]) {
      Put32(anim, e.offset);
      Put32(anim, e.size);
      Put16(anim, e.width);
      Put16(anim, e.height);
    }
    for (const auto& series : seq.points) {
      Put32(anim, nox::HashString(series.first));
      for (const AnimPoint& p : PerFrame(series.second, seq.frames.size())) {
        Put16(anim, static_cast<uint16_t>(p.nil ? nox::kNilCoordinate : static_cast<int16_t>(p.x)));
        Put16(anim, static_cast<uint16_t>(p.nil ? nox::kNilCoordinate : static_cast<int16_t>(p.y)));
      }
    }
    for (const auto& series : rects[s]) {
      Put32(anim, series.first);
      for (const AnimRect& r : series.second) PutRect(anim, r);
    }
    for (const auto& series : seq.callbacks) {
      Put32(anim, nox::HashString(series.first));
      for (uint32_t v : series.second) Put32(anim, v);
    }
  }
  return true;
}

}  // namespace assetlib
