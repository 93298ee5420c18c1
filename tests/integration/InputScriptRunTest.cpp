// An input script reaches the app through the platform's queues at the frames it names.
#include <gtest/gtest.h>

#include "Process.h"
#include "Screenshots.h"

namespace integration {
namespace {

TEST(InputScriptRun, TouchesButtonsTiltAndFocusArriveInOrder) {
  std::string dir = MakeTempDir();
  WriteFile(dir + "/script.input",
            "# a tap, a drag, buttons and a tilt\n"
            "2 tap 100 50\n"
            "4 down a home\n"
            "5 up home\n"
            "6 tilt 0 -1 0\n"
            "8 drag 10 20 30 40 2\n"
            "12 suspend\n"
            "14 resume\n"
            "20 hold 479 271 3   # the far corner\n");
  ProcessResult r =
      RunProcess({GetPaths().appmanager, "--title", GetPaths().fakeTitle, "--headless", "--clock", "virtual",
                  "--quiet", "--frames", "40", "--input", dir + "/script.input", "--log", dir + "/run.log",
                  "--screenshot", "21:" + dir + "/held.png"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  std::vector<std::string> lines = SplitLines(ReadFile(dir + "/run.log"));

  std::vector<std::string> expected = {
      "fake_app: touch 100 100 50",
      "fake_app: touch 0 100 50",
      "fake_app: buttons 110 changed 110",
      "fake_app: buttons 10 changed 100",
      "fake_app: tilt 0 -1 0",
      "fake_app: touch 100 10 20",
      "fake_app: touch 100 20 30",
      "fake_app: touch 100 30 40",
      "fake_app: touch 0 30 40",
      "fake_app: suspend",
      "fake_app: resume",
      "fake_app: touch 100 479 271",
      "fake_app: touch 0 479 271",
  };
  int at = 0;
  for (const std::string& text : expected) {
    const int found = FindLine(lines, text, at);
    ASSERT_GE(found, 0) << "missing or out of order: " << text << "\n" << ReadFile(dir + "/run.log");
    at = found + 1;
  }

  // While the touch is held the app paints a white square under it.
  Picture picture;
  ASSERT_TRUE(picture.Load(dir + "/held.png"));
  const unsigned char* px = picture.At(477, 269);
  EXPECT_EQ(px[0], 255);
  EXPECT_EQ(px[1], 255);
  EXPECT_EQ(px[2], 255);
}

TEST(InputScriptRun, AQuitLineEndsTheRunLikeClosingTheWindow) {
  std::string dir = MakeTempDir();
  WriteFile(dir + "/quit.input", "7 quit\n");
  ProcessResult r =
      RunProcess({GetPaths().appmanager, "--title", GetPaths().fakeTitle, "--headless", "--clock", "virtual",
                  "--quiet", "--input", dir + "/quit.input", "--log", dir + "/run.log"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_TRUE(Contains(ReadFile(dir + "/run.log"), "fake_app: exit after 7 frames"));
}

}  // namespace
}  // namespace integration
