// The world test title (world_app/) under appmanager, headless on the virtual clock:
// a world scene loads its level, its characters fall onto the walls, scripted taps hit
// the character under them and move on to the next arena, and the same run twice
// gives the same log and the same pictures.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Process.h"
#include "Screenshots.h"

namespace integration {
namespace {

// At frame 40 a tap on the Witch (standing at 300, 240 in the meadow), which brings
// the GuardTall in; at 80 a tap at the right edge; at 90 a tap on the MumBear (800 in
// the world, 320 on the screen once the cave is shown); at 95 a tap on nothing.
const char* const kScript =
    "40 tap 300 210\n"
    "80 tap 470 136\n"
    "90 tap 320 210\n"
    "95 tap 100 100\n";

struct WorldRunResult {
  std::string log;
  std::vector<std::string> events;  // the scene's lines, in order
  Picture meadow;                   // frame 35
  Picture cave;                     // frame 100
};

void RunWorld(WorldRunResult& out) {
  const std::string dir = MakeTempDir();
  WriteFile(dir + "/taps.input", kScript);
  ProcessResult r = RunProcess(
      {GetPaths().appmanager, "--title", WORLD_TITLE_DIR, "--headless", "--clock", "virtual", "--quiet",
       "--mute", "--frames", "110", "--input", dir + "/taps.input", "--log", dir + "/run.log", "--screenshot",
       "35:" + dir + "/meadow.png", "--screenshot", "100:" + dir + "/cave.png"},
      {}, 240);
  ASSERT_EQ(r.exitCode, 0) << r.err;
  out.log = ReadFile(dir + "/run.log");
  for (const std::string& line : SplitLines(out.log)) {
    for (const char* prefix : {"Arena ", "Landed ", "Hit ", "Miss "}) {
      if (line.compare(0, std::string(prefix).size(), prefix) == 0) out.events.push_back(line);
    }
  }
  ASSERT_TRUE(out.meadow.Load(dir + "/meadow.png"));
  ASSERT_TRUE(out.cave.Load(dir + "/cave.png"));
}

bool Near(const unsigned char* px, int r, int g, int b) {
  const int tolerance = 24;  // the sprites are stored with four bits a channel
  return std::abs(px[0] - r) <= tolerance && std::abs(px[1] - g) <= tolerance &&
         std::abs(px[2] - b) <= tolerance;
}

// Lines that depend on the time a run took, if any: none of the title's own.
std::vector<std::string> WithoutTimings(const std::string& log) {
  std::vector<std::string> lines;
  for (const std::string& line : SplitLines(log)) {
    if (line.find(" ms") == std::string::npos) lines.push_back(line);
  }
  return lines;
}

TEST(WorldRun, CharactersLandOnTheWallsTapsHitTheCharacterUnderThemAndTheArenasSwitch) {
  WorldRunResult run;
  ASSERT_NO_FATAL_FAILURE(RunWorld(run));
  // The Witch falls 50 units and the MumBear (in the next arena, loaded at start) 60;
  // the GuardTall is disabled until the Witch is hit, then falls 52.
  const std::vector<std::string> expected = {
      "Arena 0 Meadow",         "Landed Witch y=240", "Landed MumBear y=240", "Hit Witch",
      "Landed GuardTall y=240", "Arena 1 Cave",       "Hit MumBear",          "Miss 580 100",
  };
  EXPECT_EQ(run.events, expected) << run.log;
  EXPECT_EQ(run.log.find("missing"), std::string::npos) << run.log;
  EXPECT_NE(run.log.find("world_app: exit after 110 frames\n"), std::string::npos) << run.log;

  // The meadow: the Witch's purple coat above the ground, no guard yet at 420, the
  // brown ground under them both.
  EXPECT_TRUE(Near(run.meadow.At(300, 215), 138, 60, 200));
  EXPECT_FALSE(Near(run.meadow.At(420, 215), 47, 111, 216));
  EXPECT_TRUE(Near(run.meadow.At(300, 255), 122, 82, 48));
  // The cave, scrolled in: its dark wall, the rock at its place (640..720 in the world),
  // the MumBear's coat at 800 - 480.
  EXPECT_TRUE(Near(run.cave.At(40, 40), 58, 48, 72));
  EXPECT_TRUE(Near(run.cave.At(200, 140), 140, 140, 150));
  EXPECT_TRUE(Near(run.cave.At(320, 215), 138, 90, 44));
}

TEST(WorldRun, TheSameRunTwiceGivesTheSameLogAndTheSamePictures) {
  WorldRunResult first, second;
  ASSERT_NO_FATAL_FAILURE(RunWorld(first));
  ASSERT_NO_FATAL_FAILURE(RunWorld(second));
  EXPECT_EQ(WithoutTimings(first.log), WithoutTimings(second.log));
  EXPECT_FALSE(first.events.empty());
  EXPECT_TRUE(first.meadow.rgba == second.meadow.rgba) << "the meadow pictures differ";
  EXPECT_TRUE(first.cave.rgba == second.cave.rgba) << "the cave pictures differ";
}

}  // namespace
}  // namespace integration
