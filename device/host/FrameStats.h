// Per-frame measurements for --stats: process CPU time and wall time of each frame, and
// the heap allocations made in it. Samples go into fixed histograms (1 us buckets up
// to 100 ms), so measuring allocates nothing after construction. Frames before kFirstFrame
// (start-up, first loads) are left out of the figures.
#pragma once
#include <cstdint>
#include <cstdio>
#include <vector>

namespace appmanager {

class FrameStats {
 public:
  static const uint32_t kFirstFrame = 60;

  FrameStats();
  void BeginFrame();
  void EndFrame(uint32_t frame);
  // `allocNote` is printed instead of the count when allocations cannot be counted.
  void Print(FILE* out, uint32_t frames, const char* allocNote) const;

 private:
  static const uint32_t kBucketUSecs = 1;
  static const uint32_t kBuckets = 100000;

  static uint64_t CpuNSecs();
  static uint64_t WallNSecs();
  static double Percentile(const std::vector<uint32_t>& histogram, uint64_t samples, double p);

  std::vector<uint32_t> m_Cpu;   // histogram of frame CPU time
  std::vector<uint32_t> m_Wall;  // histogram of frame wall time
  uint64_t m_Samples = 0;
  uint64_t m_Allocations = 0;
  uint64_t m_MaxAllocations = 0;  // in one frame
  uint64_t m_CpuStart = 0;
  uint64_t m_WallStart = 0;
  uint64_t m_AllocStart = 0;
};

}  // namespace appmanager
