// Reading the host's screenshots back in tests.
#pragma once
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "display/Screenshot.h"

namespace integration {

struct Picture {
  int width = 0;
  int height = 0;
  std::vector<unsigned char> rgba;
  bool Load(const std::string& path) { return Hollin::Ostra::Screenshot::ReadPng(path, rgba, width, height); }
  const unsigned char* At(int x, int y) const { return &rgba[(static_cast<size_t>(y) * width + x) * 4]; }
};

// Distinct colours on a 4-pixel grid of a rectangle: a blank or faded screen has one.
inline size_t Colours(const Picture& picture, int left, int top, int right, int bottom) {
  std::set<uint32_t> colours;
  for (int y = top; y < bottom; y += 4) {
    for (int x = left; x < right; x += 4) {
      const unsigned char* px = picture.At(x, y);
      colours.insert(static_cast<uint32_t>(px[0] << 16 | px[1] << 8 | px[2]));
    }
  }
  return colours.size();
}
inline size_t Colours(const Picture& picture) {
  return Colours(picture, 0, 0, picture.width, picture.height);
}

// The colour the fake app clears to on `frame`.
inline int FakeRed(int frame) {
  return frame * 3 % 256;
}
const int kFakeGreen = 128;
const int kFakeBlue = 64;

// The kernel time the virtual clock shows during frame `frame` (0-based): one step of
// 17, 17, 16 ms is taken before each frame.
inline long VirtualTimeAtFrame(long frame) {
  static const int kSteps[3] = {17, 17, 16};
  long t = 0;
  for (long i = 0; i <= frame; ++i) t += kSteps[i % 3];
  return t;
}

}  // namespace integration
