// The shell's menus in the real title run headless: from power-on through the main
// menu into the activity picker (pictures and stars on screen, a touched star speaks)
// and back; and, for a player who has been to the adventure, into the zone picker
// (pictures, rune counts, a locked zone that only clicks) and back. Every sound the
// menus ask for is there.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "Process.h"
#include "Screenshots.h"

namespace integration {
namespace {

bool Exists(const std::string& path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0;
}

bool StartsWith(const std::string& line, const std::string& prefix) {
  return line.compare(0, prefix.size(), prefix) == 0;
}

// The main menu is up and faded in by this frame of a run; scene changes and their
// clicks are over well within kStep frames.
const int kMenuFrame = 1150;
const int kStep = 200;

const std::vector<std::string> kToMainMenu = {"Scene 10 Morvane", "Scene 11 Quennet", "Scene 12 Title",
                                              "Scene 28 MainMenu"};

struct RunResult {
  std::string log;
  std::vector<std::string> lines;
  std::vector<std::string> scenes;  // the "Scene ..." lines in order
};

// The real title for `frames` frames with `script`, its saves kept in `dir`.
RunResult RunTitle(const std::string& dir, int frames, const std::string& script,
                   const std::vector<std::string>& extra) {
  WriteFile(dir + "/input.txt", script);
  std::vector<std::string> args = {GetPaths().appmanager,
                                   "--title",
                                   GetPaths().realTitle,
                                   "--stock-audio",
                                   GetPaths().realTitle + "/../stock-audio",
                                   "--headless",
                                   "--clock",
                                   "virtual",
                                   "--frames",
                                   std::to_string(frames),
                                   "--quiet",
                                   "--mute",
                                   "--saves",
                                   dir + "/saves",
                                   "--downloads",
                                   dir + "/downloads",
                                   "--input",
                                   dir + "/input.txt",
                                   "--log",
                                   dir + "/run.log"};
  args.insert(args.end(), extra.begin(), extra.end());
  ProcessResult r = RunProcess(args, {}, 280);
  RunResult run;
  run.log = ReadFile(dir + "/run.log");
  EXPECT_EQ(r.exitCode, 0) << r.err << run.log;
  for (std::string line : SplitLines(run.log)) {
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
    if (StartsWith(line, "Scene ")) run.scenes.push_back(line);
    run.lines.push_back(line);
  }
  return run;
}

// Sounds looked up and not found, unless the platform played them after all (the
// stock sounds are looked for in the title first).
std::vector<std::string> MissingSounds(const RunResult& run) {
  const std::string failed = "Failed to find audio: ";
  std::vector<std::string> missing;
  for (size_t i = 0; i < run.lines.size(); ++i) {
    if (!StartsWith(run.lines[i], failed)) continue;
    const std::string played = "Playing audio file: " + run.lines[i].substr(failed.size());
    bool found = false;
    for (size_t j = i + 1; j < run.lines.size() && !found; ++j) found = run.lines[j] == played;
    if (!found) missing.push_back(run.lines[i]);
  }
  return missing;
}

// The index of the first line equal to `text` at or after `from`, or -1.
int Find(const RunResult& run, const std::string& text, int from = 0) {
  for (size_t i = static_cast<size_t>(from); i < run.lines.size(); ++i) {
    if (run.lines[i] == text) return static_cast<int>(i);
  }
  return -1;
}

size_t Colours(const Picture& picture) {
  std::set<uint32_t> colours;
  for (int y = 0; y < picture.height; y += 4) {
    for (int x = 0; x < picture.width; x += 4) {
      const unsigned char* px = picture.At(x, y);
      colours.insert(px[0] << 16 | px[1] << 8 | px[2]);
    }
  }
  return colours.size();
}

// Pixels of a light grey (a star still to earn) in the square of `radius` around (x, y).
int GreyPixels(const Picture& picture, int x, int y, int radius) {
  int n = 0;
  for (int py = y - radius; py <= y + radius; ++py) {
    for (int px = x - radius; px <= x + radius; ++px) {
      const unsigned char* p = picture.At(px, py);
      const int r = p[0], g = p[1], b = p[2];
      if (r > 120 && std::abs(r - g) < 30 && std::abs(g - b) < 40) ++n;
    }
  }
  return n;
}

// White pixels (written text) in the rectangle.
int WhitePixels(const Picture& picture, int left, int top, int right, int bottom) {
  int n = 0;
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      const unsigned char* p = picture.At(x, y);
      if (p[0] > 200 && p[1] > 200 && p[2] > 200) ++n;
    }
  }
  return n;
}

std::string At(int frame, const std::string& what) {
  return std::to_string(frame) + " " + what + "\n";
}

class MenuRun : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string& title = GetPaths().realTitle;
    if (title.empty() || !Exists(title + "/App.so")) {
      GTEST_SKIP() << "the title is not built yet (" << title << "/App.so); build the 'title' target";
    }
  }
};

// The stars under the cards, from the left: riding, archery, triplets, pin the tail.
int StarX(int star) {
  const int cards[4] = {66, 182, 298, 414};
  return cards[star / 3] + 32 * (star % 3 - 1);
}
const int kStarY = 198;

TEST_F(MenuRun, TheActivityPickerShowsItsCardsAndStarsASpeakingStarAndLeadsBack) {
  const std::string dir = MakeTempDir();
  const int picker = kMenuFrame + kStep;
  const int star = picker + 40;
  const int back = star + kStep;
  const std::string script = At(kMenuFrame, "tap 86 112") +  // "Games"
                             At(star, "tap " + std::to_string(StarX(5)) + " " + std::to_string(kStarY)) +
                             At(back, "tap 48 246");  // "Back"
  RunResult run = RunTitle(dir, back + kStep, script,
                           {"--screenshot", std::to_string(picker) + ":" + dir + "/picker.png",
                            "--screenshot", std::to_string(star + 10) + ":" + dir + "/star.png"});
  std::vector<std::string> expected = kToMainMenu;
  expected.push_back("Scene 29 ActivityPicker");
  expected.push_back("Scene 28 MainMenu");
  EXPECT_EQ(run.scenes, expected) << run.log;

  Picture shot;
  ASSERT_TRUE(shot.Load(dir + "/picker.png"));
  EXPECT_GT(Colours(shot), 20u);
  // A new player has earned no star: all twelve stand grey on their plinths.
  for (int i = 0; i < 12; ++i) EXPECT_GT(GreyPixels(shot, StarX(i), kStarY, 4), 20) << "star " << i;

  // The main menu greets, and the chosen button's name is heard before the picker.
  const int welcome = Find(run, "Playing audio file: KDNA0001");
  const int games = Find(run, "Playing audio file: KDNA0003", welcome);
  EXPECT_GE(welcome, 0) << run.log;
  EXPECT_GT(games, welcome) << run.log;
  EXPECT_LT(games, Find(run, "Scene 29 ActivityPicker")) << run.log;

  // The archery's third star says how to earn it: a click, then its line.
  const int greeting = Find(run, "Playing audio file: KDNA0008");
  EXPECT_GE(greeting, 0) << run.log;
  const int click = Find(run, "Playing audio file: h_OSTM_DefaultClickSfx_6", greeting);
  EXPECT_GT(click, greeting) << run.log;
  EXPECT_GT(Find(run, "Playing audio file: KDNA0031", click), click) << run.log;
  EXPECT_GT(Find(run, "Playing audio file: h_OSTM_BackSfx_6", click), click) << run.log;
  EXPECT_EQ(MissingSounds(run), std::vector<std::string>{}) << run.log;
}

TEST_F(MenuRun, ThePlayerBackFromTheAdventureChoosesAZoneOnTheMap) {
  const std::string dir = MakeTempDir();
  // A first run leaves a save; then the player is marked as having seen the adventure,
  // so that the main menu's "Adventure" opens the map instead of the first zone's intro.
  RunResult first = RunTitle(dir, kMenuFrame, "", {});
  ASSERT_EQ(first.scenes, kToMainMenu) << first.log;
  ProcessResult found = RunProcess({"/usr/bin/find", dir + "/saves", "-name", "SaveGame.bin"});
  std::vector<std::string> saves = SplitLines(found.out);
  ASSERT_EQ(saves.size(), 1u) << found.out << found.err;
  std::string save = ReadFile(saves[0]);
  ASSERT_EQ(save.size(), 1888u);
  save[700] = 0;  // the adventure flag
  WriteFile(saves[0], save);

  const int zones = kMenuFrame + kStep;
  const int locked = zones + 40;
  const int back = locked + 60;
  const std::string script = At(kMenuFrame, "tap 240 106") +  // "Adventure"
                             At(locked, "tap 170 84") +       // zone 2, not open yet
                             At(back, "down b") + At(back + 2, "up b");
  RunResult run =
      RunTitle(dir, back + kStep, script, {"--screenshot", std::to_string(zones) + ":" + dir + "/zones.png"});
  std::vector<std::string> expected = kToMainMenu;
  expected.push_back("Scene 33 ZonePicker");
  expected.push_back("Scene 28 MainMenu");
  EXPECT_EQ(run.scenes, expected) << run.log;

  Picture shot;
  ASSERT_TRUE(shot.Load(dir + "/zones.png"));
  EXPECT_GT(Colours(shot), 20u);
  // "0/20" written on each card's dark label under it.
  const int cardX[5] = {74, 170, 250, 330, 418};
  const int cardY[5] = {178, 84, 190, 84, 178};
  for (int z = 0; z < 5; ++z) {
    EXPECT_GT(WhitePixels(shot, cardX[z] - 12, cardY[z] + 48, cardX[z] + 26, cardY[z] + 64), 5)
        << "zone " << z + 1;
  }

  const int greeting = Find(run, "Playing audio file: KDNA0107");
  EXPECT_GE(greeting, 0) << run.log;
  EXPECT_GT(Find(run, "Playing audio file: h_OSTM_DeadClickSfx_6", greeting), greeting) << run.log;
  EXPECT_GT(Find(run, "Playing audio file: h_OSTM_BackSfx_6", greeting), greeting) << run.log;
  EXPECT_EQ(MissingSounds(run), std::vector<std::string>{}) << run.log;
}

}  // namespace
}  // namespace integration
