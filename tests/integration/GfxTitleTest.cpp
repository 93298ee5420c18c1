// The graphics test title (gfx_app/) under appmanager, headless on the virtual clock:
// its pictures at fixed frames against stored references, its log, a star dragged by
// an input script, and a title with its sprites missing.
//
// References live in tests/integration/reference/gfx_*.png. A mismatch saves the
// picture it got in the build tree (GFX_ACTUAL_DIR) and says where they differ. After
// a deliberate change to the title or the engine's drawing, make new references with
//   GFX_UPDATE_REFERENCES=1 ctest -R integration.GfxTitle
// and look at them before committing.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>

#include "Process.h"
#include "Screenshots.h"

namespace integration {
namespace {

const int kTolerance = 8;  // per channel: room for a rasteriser's rounding, not for a moved pixel

ProcessResult RunGfx(const std::string& title, const std::vector<std::string>& extra) {
  std::vector<std::string> args = {
      GetPaths().appmanager, "--title", title, "--headless", "--clock", "virtual", "--quiet"};
  args.insert(args.end(), extra.begin(), extra.end());
  return RunProcess(args, {}, 240);
}

bool Copy(const std::string& from, const std::string& to) {
  std::string bytes = ReadFile(from);
  WriteFile(to, bytes);
  return !bytes.empty() && ReadFile(to) == bytes;
}

// Compares a screenshot with its reference. On a difference beyond the tolerance the
// screenshot is kept as GFX_ACTUAL_DIR/<name> and the failure tells how many pixels
// differ, the first of them, and the box around them all.
void ExpectLikeReference(const std::string& shot, const std::string& name) {
  const std::string reference = std::string(GFX_REFERENCE_DIR) + "/" + name;
  const char* update = getenv("GFX_UPDATE_REFERENCES");
  if (update && update[0] == '1') {
    ASSERT_TRUE(Copy(shot, reference)) << "could not write " << reference;
    fprintf(stderr, "wrote reference %s\n", reference.c_str());
    return;
  }
  Picture want, got;
  ASSERT_TRUE(got.Load(shot)) << shot;
  ASSERT_TRUE(want.Load(reference)) << "no reference " << reference
                                    << "; make it with GFX_UPDATE_REFERENCES=1 (see GfxTitleTest.cpp)";
  ASSERT_EQ(got.width, want.width);
  ASSERT_EQ(got.height, want.height);
  int count = 0, firstX = -1, firstY = -1, worst = 0;
  int left = got.width, top = got.height, right = -1, bottom = -1;
  for (int y = 0; y < got.height; ++y) {
    for (int x = 0; x < got.width; ++x) {
      int diff = 0;
      for (int c = 0; c < 3; ++c) diff = std::max(diff, std::abs(got.At(x, y)[c] - want.At(x, y)[c]));
      if (diff <= kTolerance) continue;
      if (count++ == 0) {
        firstX = x;
        firstY = y;
      }
      worst = std::max(worst, diff);
      left = std::min(left, x);
      right = std::max(right, x);
      top = std::min(top, y);
      bottom = std::max(bottom, y);
    }
  }
  if (count == 0) return;
  mkdir(GFX_ACTUAL_DIR, 0755);
  const std::string actual = std::string(GFX_ACTUAL_DIR) + "/" + name;
  Copy(shot, actual);
  const unsigned char* g = got.At(firstX, firstY);
  const unsigned char* w = want.At(firstX, firstY);
  ADD_FAILURE() << name << ": " << count << " pixels differ by more than " << kTolerance << " (worst "
                << worst << "), within x " << left << ".." << right << ", y " << top << ".." << bottom
                << "; first at (" << firstX << ", " << firstY << "): got " << int(g[0]) << "," << int(g[1])
                << "," << int(g[2]) << " want " << int(w[0]) << "," << int(w[1]) << "," << int(w[2])
                << "; the picture is in " << actual;
}

bool Contains(const std::string& log, const std::string& line) {
  return log.find(line + "\n") != std::string::npos;
}

int CountOf(const std::string& log, const std::string& text) {
  int n = 0;
  for (size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) ++n;
  return n;
}

bool IsStarYellow(const unsigned char* px) {
  return px[0] > 220 && px[1] > 190 && px[2] < 60;
}

// Mid fade, just faded in, and after the background has crossed several tiles and
// the spinners have looped.
TEST(GfxTitle, PicturesAtFixedFramesMatchTheReferencesAndTheLogTellsTheFadeAndTheLoop) {
  std::string dir = MakeTempDir();
  ProcessResult r = RunGfx(
      GFX_TITLE_DIR, {"--frames", "101", "--log", dir + "/run.log", "--screenshot", "12:" + dir + "/f012.png",
                      "--screenshot", "40:" + dir + "/f040.png", "--screenshot", "100:" + dir + "/f100.png"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const std::string log = ReadFile(dir + "/run.log");
  EXPECT_TRUE(Contains(log, "gfx_app: enter")) << log;
  // 600 ms of fade end during frame 35 (the clock reads 600 then) and the first of
  // eight 83 ms frames of the spinner comes round again after 664 ms.
  EXPECT_TRUE(Contains(log, "gfx_app: faded in at frame 35")) << log;
  EXPECT_TRUE(Contains(log, "gfx_app: spinner looped at frame 39")) << log;
  EXPECT_TRUE(Contains(log, "gfx_app: exit after 101 frames")) << log;
  EXPECT_EQ(log.find("missing"), std::string::npos) << log;

  ExpectLikeReference(dir + "/f012.png", "gfx_frame012.png");
  ExpectLikeReference(dir + "/f040.png", "gfx_frame040.png");
  ExpectLikeReference(dir + "/f100.png", "gfx_frame100.png");
}

TEST(GfxTitle, AScriptedDragLeavesTheStarWhereTheFingerLiftedAndTapsAreLogged) {
  std::string dir = MakeTempDir();
  WriteFile(dir + "/drag.input",
            "2 tap 400 40                 # not on the star\n"
            "40 drag 60 200 360 150 20    # the star stands at 60,200; the fade is over\n"
            "110 tap 200 230              # 833 ms after the drop: a single tap\n"
            "114 tap 200 230              # released 67 ms after the first: a double tap\n");
  ProcessResult r = RunGfx(GFX_TITLE_DIR, {"--frames", "120", "--input", dir + "/drag.input", "--log",
                                           dir + "/run.log", "--screenshot", "50:" + dir + "/held.png",
                                           "--screenshot", "80:" + dir + "/dropped.png"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const std::string log = ReadFile(dir + "/run.log");
  EXPECT_TRUE(Contains(log, "gfx_app: touch missed at 400 40")) << log;
  EXPECT_TRUE(Contains(log, "gfx_app: star picked at 60 200")) << log;
  EXPECT_TRUE(Contains(log, "gfx_app: star dropped at 360 150")) << log;
  EXPECT_EQ(CountOf(log, "gfx_app: touch missed at 200 230"), 2) << log;
  EXPECT_EQ(CountOf(log, "gfx_app: double tap"), 1) << log;
  EXPECT_TRUE(Contains(log, "gfx_app: double tap at 200 230")) << log;

  // While held the star is green under the finger somewhere along the line; after the
  // drop it is yellow where the finger lifted, and gone from where it stood.
  Picture held, dropped;
  ASSERT_TRUE(held.Load(dir + "/held.png"));
  ASSERT_TRUE(dropped.Load(dir + "/dropped.png"));
  // The diamond's yellow reaches 9 pixels from its centre along the axes.
  const int kAround[5][2] = {{0, 0}, {-7, 0}, {7, 0}, {0, -7}, {0, 7}};
  for (const auto& d : kAround) {
    EXPECT_TRUE(IsStarYellow(dropped.At(360 + d[0], 150 + d[1])))
        << "no star at " << 360 + d[0] << "," << 150 + d[1];
    EXPECT_FALSE(IsStarYellow(dropped.At(60 + d[0], 200 + d[1])))
        << "star left at " << 60 + d[0] << "," << 200 + d[1];
  }
  int green = 0;
  for (int y = 0; y < held.height; ++y) {
    for (int x = 0; x < held.width; ++x) {
      const unsigned char* px = held.At(x, y);
      if (px[0] < 30 && px[1] > 200 && px[2] > 90 && px[2] < 150) ++green;
    }
  }
  EXPECT_GT(green, 100) << "the held star is not on the picture";
  EXPECT_FALSE(IsStarYellow(held.At(60, 200)));
}

TEST(GfxTitle, ATitleWithoutItsSpritesSaysSoAndStillRuns) {
  std::string dir = MakeTempDir();
  const std::string title = dir + "/title";
  const std::string copy = "mkdir -p '" + title + "' && cp -r '" + std::string(GFX_TITLE_DIR) + "'/App.so '" +
                           GFX_TITLE_DIR + "'/meta.inf '" + GFX_TITLE_DIR + "'/Textures '" + GFX_TITLE_DIR +
                           "'/Levels '" + title + "'";
  ASSERT_EQ(system(copy.c_str()), 0);
  ProcessResult r =
      RunGfx(title, {"--frames", "20", "--log", dir + "/run.log", "--screenshot", "19:" + dir + "/last.png"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const std::string log = ReadFile(dir + "/run.log");
  EXPECT_TRUE(Contains(log, "gfx_app: sprite GfxSpinner is missing")) << log;
  EXPECT_TRUE(Contains(log, "gfx_app: sprite GfxStar is missing")) << log;
  EXPECT_TRUE(Contains(log, "gfx_app: exit after 20 frames")) << log;
  Picture last;
  EXPECT_TRUE(last.Load(dir + "/last.png"));
}

}  // namespace
}  // namespace integration
