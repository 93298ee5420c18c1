// The host adapter: the game's millisecond clock (zero at construction, wrapping at
// 2^32), the frame counter and per-frame delta, sleeping, and the C library's random
// numbers. One instance, s_pGameHost, created first at start and destroyed late.
#pragma once
#include <cstdint>
#include "platform/GameHost_pf.h"

namespace nox {

class GameHost : public GameHost_pf {
 public:
  static void Create();
  static void Destroy();
  static GameHost* s_pGameHost;

  // Kernel milliseconds minus the start time; differences stay right across a wrap.
  uint32_t GetCurrentMilliseconds() const { return KernelMilliseconds() - m_StartMS; }
  void Update();
  void Sleep(uint32_t ms) const { KernelSleep(ms); }
  void SetRandomSeed(uint32_t seed) const;
  uint32_t GenerateRandomSeed() const;
  // rand() % n; n must not be 0.
  uint32_t GetRandomU32(uint32_t n) const;

  uint32_t GetFrameCount() const { return m_FrameCount; }
  uint32_t GetFrameMS() const { return m_FrameMS; }
  uint32_t GetPrevFrameMS() const { return m_PrevFrameMS; }
  uint32_t GetDeltaMS() const { return m_DeltaMS; }
  uint8_t GetTargetFPS() const { return m_TargetFPS; }
  uint8_t GetFixedStep() const { return m_FixedStep; }

  GameHost();

 private:
  uint32_t m_StartMS;          // kernel ms at construction
  uint32_t m_FrameCount = 0;   // frames since start
  uint32_t m_PrevFrameMS = 0;  // host ms of the frame before
  uint32_t m_FrameMS = 0;      // host ms of this frame
  uint32_t m_DeltaMS = 0;      // m_FrameMS - m_PrevFrameMS
  uint8_t m_TargetFPS = 60;
  uint8_t m_FixedStep = 1;  // steps of a clamped frame
  uint8_t m_Reserved = 0;   // kept, never read
};

}  // namespace nox
