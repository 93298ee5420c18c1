// Pictures for the asset tools: 8-bit RGBA in memory, read from and written to PNG,
// and converted to and from the engine's 16-bit pixel formats.
//
// The 16-bit formats are those the GL uploads with the packed short types:
//   4444 (pixel format 1): red in bits 15-12, green 11-8, blue 7-4, alpha 3-0;
//   5551 (pixel format 2): red in bits 15-11, green 10-6, blue 5-1, alpha bit 0.
// A pixel that converts to no alpha is written as 0, so that invisible pixels never
// make two tiles differ.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace assetlib {

struct Image {
  uint32_t width = 0;
  uint32_t height = 0;
  std::vector<uint8_t> rgba;  // width * height * 4, rows top to bottom

  Image() = default;
  Image(uint32_t w, uint32_t h) : width(w), height(h), rgba(static_cast<size_t>(w) * h * 4, 0) {}
  uint8_t* At(uint32_t x, uint32_t y) { return &rgba[(static_cast<size_t>(y) * width + x) * 4]; }
  const uint8_t* At(uint32_t x, uint32_t y) const { return &rgba[(static_cast<size_t>(y) * width + x) * 4]; }
};

// Pixel formats the tools write (the engine's PixelFormat values).
enum PixelFormat16 { kFormat4444 = 1, kFormat5551 = 2 };

// Reads any PNG as RGBA. On failure `error` is "path: what is wrong".
bool ReadPng(const std::string& path, Image& out, std::string& error);
bool WritePng(const std::string& path, const Image& image, std::string& error);

uint16_t ToPixel16(const uint8_t* rgba, PixelFormat16 format);
void FromPixel16(uint16_t pixel, PixelFormat16 format, uint8_t* rgba);

// "4444" or "5551"; false otherwise.
bool ParsePixelFormat(const std::string& text, PixelFormat16& out);

bool IsPowerOfTwo(uint32_t v);
uint32_t NextPowerOfTwo(uint32_t v);  // v itself when it is one; 1 for 0

}  // namespace assetlib
