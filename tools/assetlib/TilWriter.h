// Scrolling backgrounds: one large PNG cut into 32 by 32 tiles, written as a ".til"
// index and a "-tiled.tex" of zlib streams. A tile whose pixels are all zero gets
// packed size 0 and no data; tiles with one picture are stored once and share an
// offset, which the engine uses as the tile's key. A picture whose sides are not
// multiples of 32 is padded with clear pixels on the right and at the bottom.
#pragma once
#include <string>

#include "Bytes.h"
#include "Image.h"

namespace assetlib {

struct TilOptions {
  PixelFormat16 format = kFormat5551;
};

struct TilOutput {
  Bytes index;  // the ".til"
  Bytes data;   // the "-tiled.tex"
  uint32_t columns = 0;
  uint32_t rows = 0;
  uint32_t storedTiles = 0;  // distinct tiles with data
};

bool BuildTil(const Image& image, const TilOptions& options, const std::string& name, TilOutput& out,
              std::string& error);
// Writes prefix + ".til" and prefix + "-tiled.tex".
bool WriteTil(const std::string& pngPath, const std::string& prefix, const TilOptions& options,
              std::string& error);

}  // namespace assetlib
