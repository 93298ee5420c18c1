// The shell's menus in the real title run headless: from power-on through the main
// menu into the activity picker (pictures and stars on screen, a touched star speaks)
// and back; and, for a player who has been to the adventure, into the zone picker
// (pictures, rune counts, a locked zone that only clicks) and back. Every sound the
// menus ask for is there.
#include <cstdlib>
#include <string>
#include <vector>

#include "TitleRun.h"

namespace integration {
namespace {

// Scene changes and their clicks are over well within this many frames.
const int kStep = 200;

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

using MenuRun = RealTitleTest;

// The stars under the cards, from the left: riding, archery, triplets, pin the tail.
int StarX(int star) {
  const int cards[4] = {66, 182, 298, 414};
  return cards[star / 3] + 32 * (star % 3 - 1);
}
const int kStarY = 198;

TEST_F(MenuRun, TheActivityPickerShowsItsCardsAndStarsASpeakingStarAndLeadsBack) {
  const int picker = kMenuFrame + kStep;
  const int star = picker + 40;
  const int back = star + kStep;
  const std::string script = TapAt(kMenuFrame, 86, 112) +                           // "Games"
                             TapAt(star, StarX(5), kStarY) + TapAt(back, 48, 246);  // "Back"
  TitleRun run = RunTitle(TitleArgs(back + kStep).Script(script).Shot(picker, "picker"));
  EXPECT_EQ(run.scenes, ToMainMenuThen({"Scene 29 ActivityPicker", "Scene 28 MainMenu"})) << run.log;

  Picture shot;
  ASSERT_TRUE(shot.Load(run.Shot("picker")));
  EXPECT_GT(Colours(shot), 20u);
  // A new player has earned no star: all twelve stand grey on their plinths.
  for (int i = 0; i < 12; ++i) EXPECT_GT(GreyPixels(shot, StarX(i), kStarY, 4), 20) << "star " << i;

  // The main menu greets, and the chosen button's name is heard before the picker.
  const int welcome = run.Find("Playing audio file: KDNA0001");
  const int games = run.Find("Playing audio file: KDNA0003", welcome);
  EXPECT_GE(welcome, 0) << run.log;
  EXPECT_GT(games, welcome) << run.log;
  EXPECT_LT(games, run.Find("Scene 29 ActivityPicker")) << run.log;

  // The archery's third star says how to earn it: a click, then its line.
  const int greeting = run.Find("Playing audio file: KDNA0008");
  EXPECT_GE(greeting, 0) << run.log;
  const int click = run.Find("Playing audio file: h_OSTM_DefaultClickSfx_6", greeting);
  EXPECT_GT(click, greeting) << run.log;
  EXPECT_GT(run.Find("Playing audio file: KDNA0031", click), click) << run.log;
  EXPECT_GT(run.Find("Playing audio file: h_OSTM_BackSfx_6", click), click) << run.log;
  EXPECT_EQ(MissingSounds(run), std::vector<std::string>{}) << run.log;
}

TEST_F(MenuRun, ThePlayerBackFromTheAdventureChoosesAZoneOnTheMap) {
  const std::string saves = MakeTempDir() + "/saves";
  // A first run leaves a save; then the player is marked as having seen the adventure,
  // so that the main menu's "Adventure" opens the map instead of the first zone's intro.
  TitleRun first = RunTitle(TitleArgs(kMenuFrame).Saves(saves));
  ASSERT_EQ(first.scenes, kToMainMenu) << first.log;
  ASSERT_TRUE(PatchSaveGame(saves, kFirstAdventureOffset, 0));

  const int zones = kMenuFrame + kStep;
  const int locked = zones + 40;
  const int back = locked + 60;
  const std::string script = TapAt(kMenuFrame, 240, 106) +  // "Adventure"
                             TapAt(locked, 170, 84) +       // zone 2, not open yet
                             At(back, "down b") + At(back + 2, "up b");
  TitleRun run = RunTitle(TitleArgs(back + kStep).Saves(saves).Script(script).Shot(zones, "zones"));
  EXPECT_EQ(run.scenes, ToMainMenuThen({"Scene 33 ZonePicker", "Scene 28 MainMenu"})) << run.log;

  Picture shot;
  ASSERT_TRUE(shot.Load(run.Shot("zones")));
  EXPECT_GT(Colours(shot), 20u);
  // "0/20" written on each card's dark label under it.
  const int cardX[5] = {74, 170, 250, 330, 418};
  const int cardY[5] = {178, 84, 190, 84, 178};
  for (int z = 0; z < 5; ++z) {
    EXPECT_GT(WhitePixels(shot, cardX[z] - 12, cardY[z] + 48, cardX[z] + 26, cardY[z] + 64), 5)
        << "zone " << z + 1;
  }

  const int greeting = run.Find("Playing audio file: KDNA0107");
  EXPECT_GE(greeting, 0) << run.log;
  EXPECT_GT(run.Find("Playing audio file: h_OSTM_DeadClickSfx_6", greeting), greeting) << run.log;
  EXPECT_GT(run.Find("Playing audio file: h_OSTM_BackSfx_6", greeting), greeting) << run.log;
  EXPECT_EQ(MissingSounds(run), std::vector<std::string>{}) << run.log;
}

}  // namespace
}  // namespace integration
