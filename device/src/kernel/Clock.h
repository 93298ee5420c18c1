// The platform's one clock, behind CKernelMPI. In real mode it reads CLOCK_MONOTONIC
// from the moment of the last Reset; in virtual mode it only moves when the host ends a
// frame (17, 17, 16 ms in turn: exactly 50 ms per 3 frames, 60 frames a second on average)
// or when somebody sleeps, so a headless run repeats to the millisecond.
#pragma once
#include "ostra/HostConfig.h"
#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {
namespace Clock {

// Switches mode and sets the clock back to 0.
void Reset(Host::ClockMode mode);
Host::ClockMode GetMode();

// Microseconds since the last Reset.
U64 NowUSecs();

// Virtual mode: moves the clock on by the next step of the 17, 17, 16 pattern and
// returns that step in ms. Real mode: does nothing and returns 0.
U32 AdvanceFrame();

// Virtual mode: moves the clock on by `ms`. Real mode: sleeps that long.
void Sleep(U32 ms);

}  // namespace Clock
}  // namespace Ostra
}  // namespace Hollin
