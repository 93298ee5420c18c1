// Headless runs of the fake title: repeatable logs, the virtual clock, screenshots,
// PopApp, and the host's allocation-free frame.
#include <gtest/gtest.h>

#include <cstdlib>

#include "Process.h"
#include "Screenshots.h"

namespace integration {
namespace {

ProcessResult RunFake(const std::vector<std::string>& extra, const std::vector<std::string>& env = {}) {
  std::vector<std::string> args = {
      GetPaths().appmanager, "--title", GetPaths().fakeTitle, "--headless", "--clock", "virtual", "--quiet"};
  args.insert(args.end(), extra.begin(), extra.end());
  return RunProcess(args, env);
}

TEST(HeadlessRun, TwoVirtualClockRunsWriteTheSameAutomationLog) {
  std::string dir = MakeTempDir();
  std::string saves = dir + "/saves";
  ProcessResult first = RunFake({"--frames", "300", "--log", dir + "/a.log", "--saves", saves});
  ProcessResult second = RunFake({"--frames", "300", "--log", dir + "/b.log", "--saves", saves});
  ASSERT_EQ(first.exitCode, 0) << first.err;
  ASSERT_EQ(second.exitCode, 0) << second.err;
  std::string log = ReadFile(dir + "/a.log");
  EXPECT_EQ(log, ReadFile(dir + "/b.log"));
  // --quiet leaves stderr to the host's own notices, of which a headless run has none.
  EXPECT_EQ(first.err, "");

  // The game sees 17, 17, 16 ms per frame, and Exit comes after the last frame.
  EXPECT_TRUE(Contains(log, "fake_app: frame 0 time 17\n")) << log;
  EXPECT_TRUE(Contains(log, "fake_app: frame 270 time " + std::to_string(VirtualTimeAtFrame(270)) + "\n"));
  EXPECT_EQ(VirtualTimeAtFrame(299), 5000);
  EXPECT_TRUE(Contains(log, "fake_app: exit after 300 frames\n"));
}

TEST(HeadlessRun, ScreenshotsHoldTheFrameTheAppJustDrew) {
  std::string dir = MakeTempDir();
  ProcessResult r = RunFake({"--frames", "40", "--screenshot", "10:" + dir + "/ten.png", "--screenshot",
                             "39:" + dir + "/last.png", "--screenshot", "500:" + dir + "/never.png"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  // A screenshot past the end of the run is named, not silently dropped.
  EXPECT_TRUE(Contains(r.err, "no screenshot for frame 500")) << r.err;
  for (int frame : {10, 39}) {
    Picture picture;
    ASSERT_TRUE(picture.Load(dir + (frame == 10 ? "/ten.png" : "/last.png")));
    ASSERT_EQ(picture.width, 480);
    ASSERT_EQ(picture.height, 272);
    for (auto xy : {std::make_pair(0, 0), std::make_pair(479, 271), std::make_pair(240, 136)}) {
      const unsigned char* px = picture.At(xy.first, xy.second);
      EXPECT_NEAR(px[0], FakeRed(frame), 1) << "frame " << frame;
      EXPECT_NEAR(px[1], kFakeGreen, 1);
      EXPECT_NEAR(px[2], kFakeBlue, 1);
    }
  }
}

TEST(HeadlessRun, PopAppEndsTheRunAfterTheCurrentFrame) {
  std::string dir = MakeTempDir();
  ProcessResult r = RunFake({"--frames", "100", "--log", dir + "/pop.log"}, {"FAKE_APP_POP_FRAME=5"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_TRUE(Contains(ReadFile(dir + "/pop.log"), "fake_app: exit after 6 frames\n"));
}

TEST(HeadlessRun, SteadyFramesOfTheHostAllocateNothing) {
  ProcessResult r = RunFake({"--frames", "200", "--stats"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_TRUE(Contains(r.out, "frames: 200\n")) << r.out;
  EXPECT_TRUE(Contains(r.out, "frame cpu time (ms, frames 60 on): median ")) << r.out;
#if defined(__SANITIZE_ADDRESS__)
  EXPECT_TRUE(Contains(r.out, "heap allocations per frame: n/a (sanitizer build)")) << r.out;
#else
  EXPECT_TRUE(Contains(r.out, "heap allocations per frame: 0.00 (")) << r.out;
  // The count does see the app's heap: one block a frame shows as one.
  r = RunFake({"--frames", "200", "--stats"}, {"FAKE_APP_ALLOCATE=1"});
  EXPECT_TRUE(Contains(r.out, "heap allocations per frame: 1.00 (140 in 140 frames")) << r.out;
#endif
}

}  // namespace
}  // namespace integration
