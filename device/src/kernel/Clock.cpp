#include "kernel/Clock.h"

#include <atomic>
#include <cerrno>
#include <ctime>

namespace Hollin {
namespace Ostra {
namespace Clock {
namespace {

const U32 kFramePattern[3] = {17, 17, 16};  // ms; sums to 50 over 3 frames

std::atomic<int> s_Mode{static_cast<int>(Host::ClockMode::kReal)};
std::atomic<U64> s_VirtualUSecs{0};
std::atomic<U32> s_FrameIndex{0};
std::atomic<U64> s_RealStartNSecs{0};

U64 MonotonicNSecs() {
  timespec ts;
  clock_gettime(CLOCK_MONOTONIC, &ts);
  return static_cast<U64>(ts.tv_sec) * 1000000000ull + static_cast<U64>(ts.tv_nsec);
}

// The real clock starts at the first use when nobody called Reset.
struct RealStart {
  RealStart() { s_RealStartNSecs = MonotonicNSecs(); }
} s_RealStart;

bool IsVirtual() {
  return s_Mode.load(std::memory_order_relaxed) == static_cast<int>(Host::ClockMode::kVirtual);
}

}  // namespace

void Reset(Host::ClockMode mode) {
  s_Mode = static_cast<int>(mode);
  s_VirtualUSecs = 0;
  s_FrameIndex = 0;
  s_RealStartNSecs = MonotonicNSecs();
}

Host::ClockMode GetMode() {
  return static_cast<Host::ClockMode>(s_Mode.load());
}

U64 NowUSecs() {
  if (IsVirtual()) return s_VirtualUSecs.load(std::memory_order_relaxed);
  return (MonotonicNSecs() - s_RealStartNSecs.load(std::memory_order_relaxed)) / 1000u;
}

U32 AdvanceFrame() {
  if (!IsVirtual()) return 0;
  U32 step = kFramePattern[s_FrameIndex.fetch_add(1) % 3];
  s_VirtualUSecs.fetch_add(static_cast<U64>(step) * 1000u);
  return step;
}

void Sleep(U32 ms) {
  if (IsVirtual()) {
    s_VirtualUSecs.fetch_add(static_cast<U64>(ms) * 1000u);
    return;
  }
  timespec ts;
  ts.tv_sec = ms / 1000;
  ts.tv_nsec = static_cast<long>(ms % 1000) * 1000000L;
  while (nanosleep(&ts, &ts) != 0 && errno == EINTR) {
  }
}

}  // namespace Clock
}  // namespace Ostra
}  // namespace Hollin
