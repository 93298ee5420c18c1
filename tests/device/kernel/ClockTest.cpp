// The kernel clock: the virtual clock's exact pattern and sleeping, the real clock's
// direction, and the mutex primitives.
#include <gtest/gtest.h>

#include <thread>

#include "kernel/Clock.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"

namespace {

using Hollin::Ostra::CKernelMPI;
using Hollin::Ostra::kErr;
using Hollin::Ostra::kNoErr;
namespace Clock = Hollin::Ostra::Clock;
namespace Host = Hollin::Ostra::Host;

void UseClock(Host::ClockMode mode) {
  Host::HostConfig config;
  config.clock = mode;
  config.quiet = true;
  Host::SetHostConfig(config);
}

TEST(VirtualClock, FramesStepSeventeenSeventeenSixteenAndAverageSixtyPerSecond) {
  UseClock(Host::ClockMode::kVirtual);
  CKernelMPI kernel;
  EXPECT_EQ(kernel.GetElapsedTimeAsMSecs(), 0u);
  const U32 expected[6] = {17, 17, 16, 17, 17, 16};
  U32 previous = 0;
  for (U32 step : expected) {
    EXPECT_EQ(Clock::AdvanceFrame(), step);
    U32 now = kernel.GetElapsedTimeAsMSecs();
    EXPECT_EQ(now - previous, step);
    previous = now;
  }
  for (int i = 6; i < 6000; ++i) Clock::AdvanceFrame();
  // 6000 frames are exactly 100 seconds: no drift, however long the run.
  EXPECT_EQ(kernel.GetElapsedTimeAsMSecs(), 100000u);
  EXPECT_EQ(kernel.GetElapsedTimeAsUSecs(), 100000000u);
}

TEST(VirtualClock, SleepingMovesTheClockAtOnceAndByExactlyThatMuch) {
  UseClock(Host::ClockMode::kVirtual);
  CKernelMPI kernel;
  Clock::AdvanceFrame();
  EXPECT_EQ(kernel.TaskSleep(250), kNoErr);
  EXPECT_EQ(kernel.GetElapsedTimeAsMSecs(), 267u);
  // Sleeping does not shift the frame pattern.
  EXPECT_EQ(Clock::AdvanceFrame(), 17u);
  EXPECT_EQ(Clock::AdvanceFrame(), 16u);
}

TEST(VirtualClock, ANewHostConfigStartsTheClockAndThePatternAgain) {
  UseClock(Host::ClockMode::kVirtual);
  Clock::AdvanceFrame();
  Clock::AdvanceFrame();
  UseClock(Host::ClockMode::kVirtual);
  EXPECT_EQ(CKernelMPI().GetElapsedTimeAsMSecs(), 0u);
  EXPECT_EQ(Clock::AdvanceFrame(), 17u);
}

TEST(RealClock, RunsForwardAndIgnoresFrameSteps) {
  UseClock(Host::ClockMode::kReal);
  CKernelMPI kernel;
  EXPECT_EQ(Clock::AdvanceFrame(), 0u);
  U64 before = kernel.GetElapsedTimeAsUSecs();
  kernel.TaskSleep(20);
  U64 after = kernel.GetElapsedTimeAsUSecs();
  EXPECT_GE(after - before, 20000u);
  EXPECT_LE(kernel.GetElapsedTimeAsMSecs(), static_cast<U32>(kernel.GetElapsedTimeAsUSecs() / 1000));
}

TEST(KernelMutex, TryLockFailsWhileAnotherThreadHoldsIt) {
  CKernelMPI kernel;
  Hollin::Ostra::tMutex mutex;
  ASSERT_EQ(kernel.InitMutex(mutex), kNoErr);
  ASSERT_EQ(kernel.LockMutex(mutex), kNoErr);
  Hollin::Ostra::tErrType other = kNoErr;
  std::thread([&] { other = kernel.TryLockMutex(mutex); }).join();
  EXPECT_EQ(other, kErr);
  EXPECT_EQ(kernel.UnlockMutex(mutex), kNoErr);
  std::thread([&] {
    other = kernel.TryLockMutex(mutex);
    if (other == kNoErr) kernel.UnlockMutex(mutex);
  }).join();
  EXPECT_EQ(other, kNoErr);
  EXPECT_EQ(kernel.DeInitMutex(mutex), kNoErr);
}

}  // namespace
