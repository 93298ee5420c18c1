// The only way out of the real title, run headless: Home in the main menu asks over the
// menu, No goes back to it, Home again and Yes end the title through the application
// manager before the run's frame limit. And what the player did survives: a second run
// on the same player's directory reads back the play time, the first activation and
// the scenes played that the first run saved on its way out. And a child's whole walk
// through the shell in one run: both pickers, back each time, and out through Home.
#include <cstdio>
#include <string>
#include <vector>

#include "TitleRun.h"

namespace integration {
namespace {

// Where the answers sit on the pop-up, and the soft Home button.
const int kYesX = 172, kNoX = 308, kAnswerY = 182;
const int kSoftHomeX = 26, kSoftHomeY = 26;
// Well past the end of the script: a run that gets here did not end through the pop-up.
const int kFrameLimit = kMenuFrame + 600;

// The line the title writes on the save game it starts with.
std::string SaveLine(const TitleRun& run) {
  for (const std::string& line : run.lines) {
    if (StartsWith(line, "Save game ")) return line;
  }
  return "";
}

// Yes on the pop-up after log line `asked`: its click, then the end of the title.
void ExpectYesEndsTheTitle(const TitleRun& run, int asked) {
  const int yes = run.Find("Exit pop-up: yes, to scene 1", asked);
  const int ends = run.Find("Exit pop-up: the title ends", yes);
  ASSERT_GT(yes, asked) << run.log;
  ASSERT_GT(ends, yes) << run.log;
  const int click = run.Find("Playing audio file: h_OSTM_MenuSelectSfx_6", yes);
  EXPECT_GT(click, yes) << run.log;
  EXPECT_LT(click, ends) << run.log;
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

using ExitRun = RealTitleTest;

TEST_F(ExitRun, HomeAsksNoGoesBackAndYesEndsTheTitleThroughTheApplicationManager) {
  const int m = kMenuFrame;
  // Pad Home opens the question; the device takes the screen for a while and gives it
  // back with the question still up; No closes it; the soft Home button opens it
  // again; Yes ends the title.
  const std::string script = At(m, "down home") + At(m + 2, "up home") + At(m + 20, "suspend") +
                             At(m + 30, "resume") + TapAt(m + 60, kNoX, kAnswerY) +
                             TapAt(m + 120, kSoftHomeX, kSoftHomeY) + TapAt(m + 180, kYesX, kAnswerY);
  TitleRun run = RunTitle(TitleArgs(kFrameLimit)
                              .Script(script)
                              .Shot(m - 10, "menu")
                              .Shot(m + 40, "asking")
                              .Shot(m + 100, "back"));
  ASSERT_EQ(run.result.exitCode, 0);

  // Asked twice, in the main menu, for the end of the title; the narrator asks aloud.
  const std::string asking = "Exit pop-up: asking \"Exit\" for scene 1";
  const int first = run.Find(asking);
  ASSERT_GE(first, 0) << run.log;
  const int second = run.Find(asking, first + 1);
  EXPECT_GT(second, first) << run.log;
  EXPECT_TRUE(run.Contains("Playing audio file: KDNA0662")) << run.log;
  EXPECT_TRUE(run.Contains("Playing audio file: h_OSTM_PromptSfx_6")) << run.log;
  EXPECT_FALSE(run.Contains("Failed to find audio: KDNA0662")) << run.log;
  EXPECT_FALSE(run.Contains("Couldn't find sequence index by name")) << run.log;

  // No between the two, then yes with its click, then the end.
  const int no = run.Find("Exit pop-up: no", first);
  EXPECT_GT(no, first) << run.log;
  EXPECT_LT(no, second) << run.log;
  ExpectYesEndsTheTitle(run, second);
  // The menu never left: no scene after it.
  EXPECT_EQ(run.scenes, kToMainMenu) << run.log;
  // Ended by the pop-up, soon after Yes, not by the frame limit.
  EXPECT_GT(run.frames, m + 180);
  EXPECT_LT(run.frames, m + 300) << run.result.out;

  // The question shows over the menu: the veil darkens what lies around the panel, and
  // the panel has its text and two buttons; after No the menu is back as it was.
  Picture menu, asked, back;
  ASSERT_TRUE(menu.Load(run.Shot("menu")));
  ASSERT_TRUE(asked.Load(run.Shot("asking")));
  ASSERT_TRUE(back.Load(run.Shot("back")));
  EXPECT_LT(CornerLight(asked), CornerLight(menu) * 3 / 4);
  EXPECT_GT(Colours(asked, 100, 60, 380, 220), 12u);
  // The panel is plain there but for the question's two lines.
  EXPECT_GT(InkPixels(asked, 140, 76, 340, 132), 600);
  EXPECT_GT(CornerLight(back), CornerLight(menu) * 9 / 10);
}

TEST_F(ExitRun, AChildVisitsBothPickersFromTheMainMenuAndLeavesThroughHome) {
  // A player back from the adventure, so that "Adventure" opens the zone picker.
  const std::string saves = MakeTempDir() + "/saves";
  ASSERT_EQ(RunTitle(TitleArgs(kMenuFrame).Saves(saves)).scenes, kToMainMenu);
  ASSERT_TRUE(PatchSaveGame(saves, kFirstAdventureOffset, 0));

  // Each scene is up and answers within 200 frames of the choice that leads to it.
  const int picker = kMenuFrame + 200, menu = picker + 240, zones = menu + 200, home = zones + 240;
  const int limit = home + 400;
  const std::string script = TapAt(kMenuFrame, 86, 112) +                         // "Games"
                             TapAt(picker + 40, 48, 246) +                        // its "Back"
                             TapAt(menu, 240, 106) +                              // "Adventure"
                             At(zones + 40, "down b") + At(zones + 42, "up b") +  // back
                             At(home, "down home") + At(home + 2, "up home") +
                             TapAt(home + 60, kYesX, kAnswerY);
  TitleRun run =
      RunTitle(TitleArgs(limit).Saves(saves).Script(script).Shot(picker, "picker").Shot(zones, "zones"));
  ASSERT_EQ(run.result.exitCode, 0);
  EXPECT_EQ(run.scenes, ToMainMenuThen({"Scene 29 ActivityPicker", "Scene 28 MainMenu", "Scene 33 ZonePicker",
                                        "Scene 28 MainMenu"}))
      << run.log;
  // Both pickers drew their cards.
  EXPECT_GT(ShotColours(run.Shot("picker")), 20u);
  EXPECT_GT(ShotColours(run.Shot("zones")), 20u);

  // Asked once, back in the main menu, for the end of the title; yes ended it through
  // the application manager, well before the frame limit.
  const int asked = run.Find("Exit pop-up: asking \"Exit\" for scene 1");
  EXPECT_GT(asked, run.Find("Scene 33 ZonePicker")) << run.log;
  EXPECT_LT(run.Find("Exit pop-up: asking \"Exit\" for scene 1", asked + 1), 0) << run.log;
  EXPECT_FALSE(run.Contains("Exit pop-up: no")) << run.log;
  ExpectYesEndsTheTitle(run, asked);
  EXPECT_GT(run.frames, home + 60);
  EXPECT_LT(run.frames, limit) << run.result.out;
  EXPECT_EQ(MissingSounds(run), std::vector<std::string>{}) << run.log;
}

TEST_F(ExitRun, ProgressSurvivesARestart) {
  const std::string saves = MakeTempDir() + "/saves";
  const int m = kMenuFrame;
  const std::string quit = At(m, "down home") + At(m + 2, "up home") + TapAt(m + 60, kYesX, kAnswerY);

  // A new player: the logos, the title card and the menu are played, then the title
  // ends through the pop-up about 20 s of play in.
  TitleRun first = RunTitle(TitleArgs(kFrameLimit).Saves(saves).Script(quit));
  ASSERT_EQ(first.result.exitCode, 0);
  EXPECT_EQ(SaveLine(first), "Save game new: first activation 1, play time 0 s, scenes played 0, badges 0")
      << first.log;
  ASSERT_TRUE(first.Contains("Exit pop-up: the title ends")) << first.log;
  ASSERT_LT(first.frames, kFrameLimit);

  // The same player again: what the first run saved is read back.
  TitleRun second = RunTitle(TitleArgs(m + 120).Saves(saves).Script(quit));
  ASSERT_EQ(second.result.exitCode, 0);
  const std::string line = SaveLine(second);
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
  TitleRun third = RunTitle(TitleArgs(5).Saves(saves));
  ASSERT_EQ(third.result.exitCode, 0);
  unsigned total = 0;
  ASSERT_EQ(sscanf(SaveLine(third).c_str(),
                   "Save game read: first activation %u, play time %u s, scenes played %u, badges %u",
                   &activation, &total, &scenes, &badges),
            4)
      << third.log;
  EXPECT_GT(total, seconds + 15);
  EXPECT_EQ(scenes, 6u);
}

}  // namespace
}  // namespace integration
