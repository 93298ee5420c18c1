#include "display/Screenshot.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace Hollin {
namespace Ostra {
namespace Screenshot {

bool WritePng(const std::string& path, const U8* rgba, int width, int height, std::string& error) {
  FILE* file = fopen(path.c_str(), "wb");
  if (!file) {
    error = path + ": " + strerror(errno);
    return false;
  }
  png_image image;
  memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  // A screen has no meaningful alpha, so the file is RGB.
  std::vector<U8> rgb(static_cast<size_t>(width) * height * 3);
  for (size_t i = 0, n = static_cast<size_t>(width) * height; i < n; ++i) {
    rgb[i * 3 + 0] = rgba[i * 4 + 0];
    rgb[i * 3 + 1] = rgba[i * 4 + 1];
    rgb[i * 3 + 2] = rgba[i * 4 + 2];
  }
  image.format = PNG_FORMAT_RGB;
  bool ok = png_image_write_to_stdio(&image, file, 0, rgb.data(), 0, nullptr) != 0;
  if (!ok) error = path + ": " + image.message;
  if (fclose(file) != 0 && ok) {
    ok = false;
    error = path + ": " + strerror(errno);
  }
  return ok;
}

bool ReadPng(const std::string& path, std::vector<U8>& rgba, int& width, int& height) {
  png_image image;
  memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) return false;
  image.format = PNG_FORMAT_RGBA;
  rgba.resize(PNG_IMAGE_SIZE(image));
  if (!png_image_finish_read(&image, nullptr, rgba.data(), 0, nullptr)) {
    png_image_free(&image);
    return false;
  }
  width = static_cast<int>(image.width);
  height = static_cast<int>(image.height);
  return true;
}

}  // namespace Screenshot
}  // namespace Ostra
}  // namespace Hollin
