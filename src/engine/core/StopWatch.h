// Measures elapsed game time from a start point taken from the game host's clock.
// Differences are unsigned, so they stay right across the clock's 2^32 ms wrap.
#pragma once
#include <cstdint>

namespace nox {

class StopWatch {
 public:
  StopWatch();  // starts at once
  virtual ~StopWatch() = default;

  void Start();
  uint32_t GetStartMS() const { return m_StartMS; }
  uint32_t GetElapsedMS() const;

 private:
  uint32_t m_StartMS;  // host ms
};

}  // namespace nox
