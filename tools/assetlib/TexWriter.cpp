#include "TexWriter.h"

namespace assetlib {

Image PadImage(const Image& image, uint32_t width, uint32_t height) {
  Image out(width, height);
  for (uint32_t y = 0; y < image.height && y < height; ++y) {
    for (uint32_t x = 0; x < image.width && x < width; ++x) memcpy(out.At(x, y), image.At(x, y), 4);
  }
  return out;
}

bool BuildTex(const Image& source, const TexOptions& options, const std::string& name, Bytes& out,
              std::string& error) {
  Image image = source;
  if (!IsPowerOfTwo(image.width) || !IsPowerOfTwo(image.height)) {
    if (!options.pad) {
      error = name + ": " + std::to_string(image.width) + " by " + std::to_string(image.height) +
              " is not a power-of-two size (use --pad)";
      return false;
    }
    image = PadImage(image, NextPowerOfTwo(image.width), NextPowerOfTwo(image.height));
  }
  if (image.width > 2048 || image.height > 2048) {
    error = name + ": larger than 2048 pixels, the largest texture";
    return false;
  }
  Bytes pixels;
  pixels.reserve(static_cast<size_t>(image.width) * image.height * 2);
  for (uint32_t y = 0; y < image.height; ++y) {
    for (uint32_t x = 0; x < image.width; ++x) Put16(pixels, ToPixel16(image.At(x, y), options.format));
  }
  out.clear();
  Put32(out, options.format);
  Put32(out, image.width);
  Put32(out, image.height);
  if (options.packed) {
    Bytes packed = Pack(pixels);
    Put32(out, static_cast<uint32_t>(packed.size()));
    Append(out, packed);
  } else {
    Put32(out, 0);
    Append(out, pixels);
  }
  return true;
}

bool WriteTex(const std::string& pngPath, const std::string& texPath, const TexOptions& options,
              std::string& error) {
  Image image;
  Bytes tex;
  return ReadPng(pngPath, image, error) && BuildTex(image, options, pngPath, tex, error) &&
         WriteFile(texPath, tex, error);
}

}  // namespace assetlib
