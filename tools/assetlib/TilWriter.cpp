#include "TilWriter.h"

#include <map>
#include <utility>

namespace assetlib {

namespace {

constexpr uint32_t kSide = 32;
constexpr size_t kTileMaxPacked = 2048;  // the engine reads a tile into a buffer of this size

}  // namespace

bool BuildTil(const Image& image, const TilOptions& options, const std::string& name, TilOutput& out,
              std::string& error) {
  out = TilOutput();
  out.columns = (image.width + kSide - 1) / kSide;
  out.rows = (image.height + kSide - 1) / kSide;
  if (out.columns > 0xFFFF || out.rows > 0xFFFF) {
    error = name + ": more than 65535 tiles across or down";
    return false;
  }
  Put16(out.index, out.columns);
  Put16(out.index, out.rows);
  Put16(out.index, kSide);  // the tile size, for the tools; the engine does not read it
  Put16(out.index, kSide);
  Put16(out.index, options.format);
  Put16(out.index, 0);

  std::map<Bytes, std::pair<uint32_t, uint32_t>> stored;  // tile pixels -> offset, packed size
  for (uint32_t row = 0; row < out.rows; ++row) {
    for (uint32_t column = 0; column < out.columns; ++column) {
      Bytes tile;
      tile.reserve(kSide * kSide * 2);
      bool blank = true;
      for (uint32_t y = row * kSide; y < (row + 1) * kSide; ++y) {
        for (uint32_t x = column * kSide; x < (column + 1) * kSide; ++x) {
          const uint16_t p =
              (x < image.width && y < image.height) ? ToPixel16(image.At(x, y), options.format) : 0;
          blank = blank && p == 0;
          Put16(tile, p);
        }
      }
      if (blank) {
        Put32(out.index, 0);
        Put32(out.index, 0);
        continue;
      }
      auto found = stored.find(tile);
      if (found == stored.end()) {
        const Bytes packed = Pack(tile);
        if (packed.size() > kTileMaxPacked) {
          error = name + ": the tile at column " + std::to_string(column) + ", row " + std::to_string(row) +
                  " does not pack into 2048 bytes";
          return false;
        }
        const uint32_t offset = static_cast<uint32_t>(out.data.size());
        Append(out.data, packed);
        found = stored.emplace(tile, std::make_pair(offset, static_cast<uint32_t>(packed.size()))).first;
      }
      Put32(out.index, found->second.first);
      Put32(out.index, found->second.second);
    }
  }
  out.storedTiles = static_cast<uint32_t>(stored.size());
  return true;
}

bool WriteTil(const std::string& pngPath, const std::string& prefix, const TilOptions& options,
              std::string& error) {
  Image image;
  TilOutput tiles;
  return ReadPng(pngPath, image, error) && BuildTil(image, options, pngPath, tiles, error) &&
         WriteFile(prefix + ".til", tiles.index, error) &&
         WriteFile(prefix + "-tiled.tex", tiles.data, error);
}

}  // namespace assetlib
