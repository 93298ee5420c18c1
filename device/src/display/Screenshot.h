// Screenshots: a frame of the display as an RGB PNG file.
#pragma once
#include <string>
#include <vector>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {
namespace Screenshot {

// Writes `rgba` (width * height * 4 bytes, top row first) to `path`; alpha is dropped.
// Returns false and sets `error` when the file cannot be written.
bool WritePng(const std::string& path, const U8* rgba, int width, int height, std::string& error);

// Reads a PNG back as RGBA (any bit depth and colour type), for tests and tools.
bool ReadPng(const std::string& path, std::vector<U8>& rgba, int& width, int& height);

}  // namespace Screenshot
}  // namespace Ostra
}  // namespace Hollin
