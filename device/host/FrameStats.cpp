#include "FrameStats.h"

#include <ctime>

#include "AllocCounter.h"

namespace appmanager {

FrameStats::FrameStats() : m_Cpu(kBuckets + 1, 0), m_Wall(kBuckets + 1, 0) {}

uint64_t FrameStats::CpuNSecs() {
  // The whole process: GL drivers do their work on threads of their own.
  timespec ts;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
  return static_cast<uint64_t>(ts.tv_sec) * 1000000000ull + static_cast<uint64_t>(ts.tv_nsec);
}

uint64_t FrameStats::WallNSecs() {
  timespec ts;
  clock_gettime(CLOCK_MONOTONIC, &ts);
  return static_cast<uint64_t>(ts.tv_sec) * 1000000000ull + static_cast<uint64_t>(ts.tv_nsec);
}

void FrameStats::BeginFrame() {
  m_AllocStart = AllocCounter::Count();
  m_CpuStart = CpuNSecs();
  m_WallStart = WallNSecs();
}

void FrameStats::EndFrame(uint32_t frame) {
  uint64_t cpu = CpuNSecs() - m_CpuStart;
  uint64_t wall = WallNSecs() - m_WallStart;
  uint64_t allocations = AllocCounter::Count() - m_AllocStart;
  if (frame < kFirstFrame) return;
  auto bucket = [](uint64_t ns) {
    uint64_t b = ns / 1000 / kBucketUSecs;
    return b > kBuckets ? kBuckets : static_cast<uint32_t>(b);
  };
  ++m_Cpu[bucket(cpu)];
  ++m_Wall[bucket(wall)];
  ++m_Samples;
  m_Allocations += allocations;
  if (allocations > m_MaxAllocations) m_MaxAllocations = allocations;
}

double FrameStats::Percentile(const std::vector<uint32_t>& histogram, uint64_t samples, double p) {
  if (samples == 0) return 0.0;
  uint64_t rank = static_cast<uint64_t>(p * static_cast<double>(samples - 1));
  uint64_t seen = 0;
  for (uint32_t i = 0; i <= kBuckets; ++i) {
    seen += histogram[i];
    // The bucket's middle stands for its samples.
    if (seen > rank) return (i * kBucketUSecs + kBucketUSecs / 2.0) / 1000.0;
  }
  return kBuckets * kBucketUSecs / 1000.0;
}

void FrameStats::Print(FILE* out, uint32_t frames, const char* allocNote) const {
  fprintf(out, "frames: %u\n", frames);
  if (m_Samples == 0) {
    fprintf(out, "frame statistics: none (fewer than %u frames)\n", kFirstFrame + 1);
    return;
  }
  fprintf(out, "frame cpu time (ms, frames %u on): median %.3f, p99 %.3f\n", kFirstFrame,
          Percentile(m_Cpu, m_Samples, 0.5), Percentile(m_Cpu, m_Samples, 0.99));
  fprintf(out, "frame wall time (ms, frames %u on): median %.3f, p99 %.3f\n", kFirstFrame,
          Percentile(m_Wall, m_Samples, 0.5), Percentile(m_Wall, m_Samples, 0.99));
  if (allocNote) {
    fprintf(out, "heap allocations per frame: n/a (%s)\n", allocNote);
  } else {
    fprintf(out,
            "heap allocations per frame: %.2f (%llu in %llu frames from frame %u on, at most %llu in one)\n",
            static_cast<double>(m_Allocations) / static_cast<double>(m_Samples),
            static_cast<unsigned long long>(m_Allocations), static_cast<unsigned long long>(m_Samples),
            kFirstFrame, static_cast<unsigned long long>(m_MaxAllocations));
  }
}

}  // namespace appmanager
