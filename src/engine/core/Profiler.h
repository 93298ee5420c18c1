// Frame statistics over windows of 20 frames: the length of each frame, the sum and
// average of a window, and the frames-per-second figure of the last closed window.
// Integer and Q16.16 work only, so it is cheap enough to run every frame.
#pragma once
#include <cstdint>

namespace nox {

class Profiler {
 public:
  explicit Profiler(const char* name) : m_pName(name) {}
  virtual ~Profiler() {}

  uint32_t m_FrameStartMS = 0;  // host ms at the start of the current frame
  uint32_t m_FrameEndMS = 0;    // host ms when the last frame was measured
  uint32_t m_FPS = 0;           // frames per second of the last closed window
  uint32_t m_LastFrameMS = 0;   // length of the last frame, ms
  uint32_t m_WindowSumMS = 0;   // sum of frame lengths in the current window, ms
  uint32_t m_AverageMS = 0;     // average frame length of the last window, ms
  uint32_t m_WindowFrames = 0;  // frames in the current window
  const char* m_pName;          // not owned; a literal
};

}  // namespace nox
