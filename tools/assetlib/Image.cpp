#include "Image.h"

#include <png.h>

#include <cstring>

namespace assetlib {

bool ReadPng(const std::string& path, Image& out, std::string& error) {
  png_image image;
  memset(&image, 0, sizeof(image));
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) {
    error = path + ": " + (image.message[0] ? image.message : "not a PNG file");
    return false;
  }
  image.format = PNG_FORMAT_RGBA;
  if (image.width == 0 || image.height == 0 || image.width > 16384 || image.height > 16384) {
    png_image_free(&image);
    error = path + ": picture size outside 1 to 16384";
    return false;
  }
  out = Image(image.width, image.height);
  if (!png_image_finish_read(&image, nullptr, out.rgba.data(), 0, nullptr)) {
    error = path + ": " + image.message;
    png_image_free(&image);
    return false;
  }
  return true;
}

bool WritePng(const std::string& path, const Image& source, std::string& error) {
  png_image image;
  memset(&image, 0, sizeof(image));
  image.version = PNG_IMAGE_VERSION;
  image.width = source.width;
  image.height = source.height;
  image.format = PNG_FORMAT_RGBA;
  if (!png_image_write_to_file(&image, path.c_str(), 0, source.rgba.data(), 0, nullptr)) {
    error = path + ": " + (image.message[0] ? image.message : "cannot write");
    return false;
  }
  return true;
}

namespace {

unsigned Scale(unsigned v, unsigned max) {
  return (v * max + 127) / 255;
}

}  // namespace

uint16_t ToPixel16(const uint8_t* rgba, PixelFormat16 format) {
  if (format == kFormat4444) {
    const unsigned a = Scale(rgba[3], 15);
    if (a == 0) return 0;
    return static_cast<uint16_t>(Scale(rgba[0], 15) << 12 | Scale(rgba[1], 15) << 8 |
                                 Scale(rgba[2], 15) << 4 | a);
  }
  if (rgba[3] < 128) return 0;
  return static_cast<uint16_t>(Scale(rgba[0], 31) << 11 | Scale(rgba[1], 31) << 6 | Scale(rgba[2], 31) << 1 |
                               1);
}

void FromPixel16(uint16_t p, PixelFormat16 format, uint8_t* rgba) {
  if (format == kFormat4444) {
    rgba[0] = static_cast<uint8_t>((p >> 12 & 15) * 17);
    rgba[1] = static_cast<uint8_t>((p >> 8 & 15) * 17);
    rgba[2] = static_cast<uint8_t>((p >> 4 & 15) * 17);
    rgba[3] = static_cast<uint8_t>((p & 15) * 17);
    return;
  }
  const unsigned r = p >> 11 & 31, g = p >> 6 & 31, b = p >> 1 & 31;
  rgba[0] = static_cast<uint8_t>(r << 3 | r >> 2);
  rgba[1] = static_cast<uint8_t>(g << 3 | g >> 2);
  rgba[2] = static_cast<uint8_t>(b << 3 | b >> 2);
  rgba[3] = (p & 1) ? 255 : 0;
}

bool ParsePixelFormat(const std::string& text, PixelFormat16& out) {
  if (text == "4444") {
    out = kFormat4444;
  } else if (text == "5551") {
    out = kFormat5551;
  } else {
    return false;
  }
  return true;
}

bool IsPowerOfTwo(uint32_t v) {
  return v != 0 && (v & (v - 1)) == 0;
}

uint32_t NextPowerOfTwo(uint32_t v) {
  uint32_t p = 1;
  while (p < v) p <<= 1;
  return p;
}

}  // namespace assetlib
