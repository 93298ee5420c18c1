// The only way out of the real title, run headless: Home in the main menu asks over the
// menu, No goes back to it, Home again and Yes end the title through the application
// manager before the run's frame limit. And what the player did survives: a second run
// on the same player's directory reads back the play time, the first activation and
// the scenes played that the first run saved on its way out.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdio>
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

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// The main menu is up and faded in by this frame of a run without input.
const int kMenuFrame = 1150;
// Where the answers sit on the pop-up, and the soft Home button.
const int kYesX = 172, kNoX = 308, kAnswerY = 182;
const int kSoftHomeX = 26, kSoftHomeY = 26;
// Well past the end of the script: a run that gets here did not end through the pop-up.
const int kFrameLimit = kMenuFrame + 600;

struct TitleRun {
  ProcessResult result;
  std::string log;
  int frames = -1;  // frames the host ran, from its statistics
};

// The title on the player directory `saves` for at most `frames` frames.
TitleRun RunTitle(const std::string& saves, int frames, const std::string& script,
                  const std::vector<std::string>& extra = {}) {
  const std::string dir = MakeTempDir();
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
                                   "--stats",
                                   "--saves",
                                   saves,
                                   "--downloads",
                                   dir + "/downloads",
                                   "--log",
                                   dir + "/run.log"};
  if (!script.empty()) {
    WriteFile(dir + "/input.txt", script);
    args.push_back("--input");
    args.push_back(dir + "/input.txt");
  }
  args.insert(args.end(), extra.begin(), extra.end());
  TitleRun run;
  run.result = RunProcess(args, {}, 280);
  run.log = ReadFile(dir + "/run.log");
  for (const std::string& line : SplitLines(run.result.out)) {
    if (line.compare(0, 8, "frames: ") == 0) run.frames = std::stoi(line.substr(8));
  }
  return run;
}

// The line the title writes on the save game it starts with.
std::string SaveLine(const std::string& log) {
  for (const std::string& line : SplitLines(log)) {
    if (line.compare(0, 10, "Save game ") == 0) return line;
  }
  return "";
}

// Distinct colours on a 4-pixel grid of a rectangle.
size_t Colours(const Picture& picture, int left, int top, int right, int bottom) {
  std::set<uint32_t> colours;
  for (int y = top; y < bottom; y += 4) {
    for (int x = left; x < right; x += 4) {
      const unsigned char* px = picture.At(x, y);
      colours.insert(px[0] << 16 | px[1] << 8 | px[2]);
    }
  }
  return colours.size();
}

// Dark pixels of a rectangle: the question's letters on the light panel.
int InkPixels(const Picture& picture, int left, int top, int right, int bottom) {
  int n = 0;
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      const unsigned char* px = picture.At(x, y);
      if (px[0] + px[1] + px[2] < 240) ++n;
    }
  }
  return n;
}

// Brightness of the screen's corner, away from the panel: the veil darkens it.
int CornerLight(const Picture& picture) {
  int sum = 0;
  for (int y = 230; y < 270; y += 2) {
    for (int x = 420; x < 478; x += 2) {
      const unsigned char* px = picture.At(x, y);
      sum += px[0] + px[1] + px[2];
    }
  }
  return sum;
}

std::string At(int frame, const std::string& command) {
  return std::to_string(frame) + " " + command + "\n";
}

class ExitRun : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string& title = GetPaths().realTitle;
    if (title.empty() || !Exists(title + "/App.so")) {
      GTEST_SKIP() << "the title is not built yet (" << title << "/App.so); build the 'title' target";
    }
  }
};

TEST_F(ExitRun, HomeAsksNoGoesBackAndYesEndsTheTitleThroughTheApplicationManager) {
  const std::string dir = MakeTempDir();
  const int m = kMenuFrame;
  // Pad Home opens the question; the device takes the screen for a while and gives it
  // back with the question still up; No closes it; the soft Home button opens it
  // again; Yes ends the title.
  const std::string script =
      At(m, "down home") + At(m + 2, "up home") + At(m + 20, "suspend") + At(m + 30, "resume") +
      At(m + 60, "tap " + std::to_string(kNoX) + " " + std::to_string(kAnswerY)) +
      At(m + 120, "tap " + std::to_string(kSoftHomeX) + " " + std::to_string(kSoftHomeY)) +
      At(m + 180, "tap " + std::to_string(kYesX) + " " + std::to_string(kAnswerY));
  TitleRun run = RunTitle(dir + "/saves", kFrameLimit, script,
                          {"--screenshot", std::to_string(m - 10) + ":" + dir + "/menu.png", "--screenshot",
                           std::to_string(m + 40) + ":" + dir + "/asking.png", "--screenshot",
                           std::to_string(m + 100) + ":" + dir + "/back.png"});
  ASSERT_EQ(run.result.exitCode, 0) << run.result.err << run.log;
  const std::string& log = run.log;

  // Asked twice, in the main menu, for the end of the title; the narrator asks aloud.
  const std::string asking = "Exit pop-up: asking \"Exit\" for scene 1";
  const size_t first = log.find(asking);
  ASSERT_NE(first, std::string::npos) << log;
  EXPECT_NE(log.find(asking, first + 1), std::string::npos) << log;
  EXPECT_TRUE(Contains(log, "Playing audio file: KDNA0662")) << log;
  EXPECT_TRUE(Contains(log, "Playing audio file: h_OSTM_PromptSfx_6")) << log;
  EXPECT_FALSE(Contains(log, "Failed to find audio: KDNA0662")) << log;
  EXPECT_FALSE(Contains(log, "Couldn't find sequence index by name")) << log;

  // No first, then yes with its click, then the end.
  const size_t no = log.find("Exit pop-up: no");
  const size_t yes = log.find("Exit pop-up: yes, to scene 1");
  const size_t ends = log.find("Exit pop-up: the title ends");
  ASSERT_NE(no, std::string::npos) << log;
  ASSERT_NE(yes, std::string::npos) << log;
  ASSERT_NE(ends, std::string::npos) << log;
  EXPECT_LT(no, yes);
  EXPECT_TRUE(Contains(log.substr(yes, ends - yes), "Playing audio file: h_OSTM_MenuSelectSfx_6")) << log;
  // The menu never left: no scene after it.
  const std::string menuLine = "Scene 28 MainMenu";
  ASSERT_NE(log.find(menuLine), std::string::npos) << log;
  EXPECT_FALSE(Contains(log.substr(log.find(menuLine) + menuLine.size()), "Scene ")) << log;
  // Ended by the pop-up, soon after Yes, not by the frame limit.
  EXPECT_GT(run.frames, m + 180);
  EXPECT_LT(run.frames, m + 300) << run.result.out;

  // The question shows over the menu: the veil darkens what lies around the panel, and
  // the panel has its text and two buttons; after No the menu is back as it was.
  Picture menu, asked, back;
  ASSERT_TRUE(menu.Load(dir + "/menu.png"));
  ASSERT_TRUE(asked.Load(dir + "/asking.png"));
  ASSERT_TRUE(back.Load(dir + "/back.png"));
  EXPECT_LT(CornerLight(asked), CornerLight(menu) * 3 / 4);
  EXPECT_GT(Colours(asked, 100, 60, 380, 220), 12u);
  // The panel is plain there but for the question's two lines.
  EXPECT_GT(InkPixels(asked, 140, 76, 340, 132), 600);
  EXPECT_GT(CornerLight(back), CornerLight(menu) * 9 / 10);
}

TEST_F(ExitRun, ProgressSurvivesARestart) {
  const std::string saves = MakeTempDir() + "/saves";
  const int m = kMenuFrame;
  const std::string quit = At(m, "down home") + At(m + 2, "up home") +
                           At(m + 60, "tap " + std::to_string(kYesX) + " " + std::to_string(kAnswerY));

  // A new player: the logos, the title card and the menu are played, then the title
  // ends through the pop-up about 20 s of play in.
  TitleRun first = RunTitle(saves, kFrameLimit, quit);
  ASSERT_EQ(first.result.exitCode, 0) << first.result.err << first.log;
  EXPECT_EQ(SaveLine(first.log),
            "Save game new: first activation 1, play time 0 s, scenes played 0, badges 0")
      << first.log;
  ASSERT_TRUE(Contains(first.log, "Exit pop-up: the title ends")) << first.log;
  ASSERT_LT(first.frames, kFrameLimit);

  // The same player again: what the first run saved is read back.
  TitleRun second = RunTitle(saves, m + 120, quit);
  ASSERT_EQ(second.result.exitCode, 0) << second.result.err << second.log;
  const std::string line = SaveLine(second.log);
  unsigned activation = 9, seconds = 0, scenes = 0, badges = 9;
  ASSERT_EQ(
      sscanf(line.c_str(), "Save game read: first activation %u, play time %u s, scenes played %u, badges %u",
             &activation, &seconds, &scenes, &badges),
      4)
      << line << "\n"
      << second.log;
  EXPECT_EQ(activation, 0u);
  // The first run lasted first.frames frames of about 16.7 ms; the whole seconds count.
  const unsigned expected = static_cast<unsigned>(VirtualTimeAtFrame(first.frames - 1) / 1000);
  EXPECT_GE(seconds, expected - 1);
  EXPECT_LE(seconds, expected + 1);
  // Morvane, Quennet and the title card each ended once; the menu was left by the end
  // of the title, which is no play.
  EXPECT_EQ(scenes, 3u);
  EXPECT_EQ(badges, 0u);

  // And the second run added its own: a third start sees both.
  TitleRun third = RunTitle(saves, 5, "");
  ASSERT_EQ(third.result.exitCode, 0) << third.result.err << third.log;
  unsigned total = 0;
  ASSERT_EQ(sscanf(SaveLine(third.log).c_str(),
                   "Save game read: first activation %u, play time %u s, scenes played %u, badges %u",
                   &activation, &total, &scenes, &badges),
            4)
      << third.log;
  EXPECT_GT(total, seconds + 15);
  EXPECT_EQ(scenes, 6u);
}

}  // namespace
}  // namespace integration
