// Plain pictures: one PNG to one ".tex" (TextureFileHeader and the 16-bit pixels,
// plain or as one zlib stream). Textures on the device must have power-of-two sides;
// a picture that has not is refused unless padding is asked for, which adds clear
// pixels on the right and at the bottom.
#pragma once
#include <string>

#include "Bytes.h"
#include "Image.h"

namespace assetlib {

struct TexOptions {
  PixelFormat16 format = kFormat4444;
  bool packed = true;  // zlib
  bool pad = false;    // grow to power-of-two sides instead of refusing
};

// `name` names the source in error messages.
bool BuildTex(const Image& image, const TexOptions& options, const std::string& name, Bytes& out,
              std::string& error);
bool WriteTex(const std::string& pngPath, const std::string& texPath, const TexOptions& options,
              std::string& error);

// Copies `image` into a larger clear picture of width by height, at the top left.
Image PadImage(const Image& image, uint32_t width, uint32_t height);

}  // namespace assetlib
