// The real title started headless: the logos and the title card follow one another
// into the main menu on their own; the settings scene opens from it and returns; the
// menu's buttons answer the stylus and the pad.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <set>
#include <string>

#include "Process.h"
#include "Screenshots.h"

namespace integration {
namespace {

bool Exists(const std::string& path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0;
}

// The title's run for `frames` frames with an input script (empty for none); the
// "Scene ..." lines of its automation log in order. Screenshots as "FRAME:FILE".
struct ChainRun {
  std::vector<std::string> scenes;
  std::string log;
  std::string dir;
};

ChainRun RunChain(int frames, const std::string& script, std::vector<std::string> extra) {
  ChainRun run;
  run.dir = MakeTempDir();
  std::vector<std::string> args = {GetPaths().appmanager,
                                   "--title",
                                   GetPaths().realTitle,
                                   "--headless",
                                   "--clock",
                                   "virtual",
                                   "--frames",
                                   std::to_string(frames),
                                   "--quiet",
                                   "--mute",
                                   "--saves",
                                   run.dir + "/saves",
                                   "--downloads",
                                   run.dir + "/downloads",
                                   "--log",
                                   run.dir + "/run.log"};
  if (!script.empty()) {
    WriteFile(run.dir + "/input.txt", script);
    args.push_back("--input");
    args.push_back(run.dir + "/input.txt");
  }
  for (std::string& e : extra) args.push_back(e);
  ProcessResult r = RunProcess(args, {}, 280);
  run.log = ReadFile(run.dir + "/run.log");
  EXPECT_EQ(r.exitCode, 0) << r.err << run.log;
  for (const std::string& line : SplitLines(run.log)) {
    if (line.compare(0, 6, "Scene ") == 0) run.scenes.push_back(line);
  }
  return run;
}

// Distinct colours on a 4-pixel grid: a blank or faded screen has one.
size_t Colours(const std::string& file) {
  Picture picture;
  EXPECT_TRUE(picture.Load(file)) << file;
  std::set<uint32_t> colours;
  for (int y = 0; y < picture.height; y += 4) {
    for (int x = 0; x < picture.width; x += 4) {
      const unsigned char* px = picture.At(x, y);
      colours.insert(px[0] << 16 | px[1] << 8 | px[2]);
    }
  }
  return colours.size();
}

const std::vector<std::string> kToMainMenu = {"Scene 10 Morvane", "Scene 11 Quennet", "Scene 12 Title",
                                              "Scene 28 MainMenu"};

// The main menu is up and faded in by this frame of a run without input.
const int kMenuFrame = 1150;
// A chosen button clicks and says its name before the fade to the next scene; the
// longest name lasts about a second, so the next scene has begun well within 4 s.
const int kChoiceFrames = 240;

class SceneChain : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string& title = GetPaths().realTitle;
    if (title.empty() || !Exists(title + "/App.so")) {
      GTEST_SKIP() << "the title is not built yet (" << title << "/App.so); build the 'title' target";
    }
  }
};

TEST_F(SceneChain, TheLogosAndTheTitleCardLeadIntoAMainMenuWithPictures) {
  // About 19 s of virtual time; the three cut-scenes take about 5 s each.
  const std::string dir = MakeTempDir();
  ChainRun run = RunChain(kMenuFrame + 2, "",
                          {"--screenshot", "100:" + dir + "/logo.png", "--screenshot",
                           std::to_string(kMenuFrame) + ":" + dir + "/menu.png"});
  ASSERT_EQ(run.scenes, kToMainMenu) << run.log;
  // The logo has a sky, mountains and a name; the menu a landscape and five buttons.
  EXPECT_GT(Colours(dir + "/logo.png"), 8u);
  EXPECT_GT(Colours(dir + "/menu.png"), 20u);
}

TEST_F(SceneChain, TheSettingsSceneOpensFromTheMainMenuAndReturnsToIt) {
  // A long hold in the far corner opens the settings while cheats are on; B at the
  // list of groups leaves them.
  const std::string script = std::to_string(kMenuFrame) + " hold 475 268 220\n" +
                             std::to_string(kMenuFrame + 300) + " down b\n" +
                             std::to_string(kMenuFrame + 302) + " up b\n";
  ChainRun run = RunChain(kMenuFrame + 400, script, {"--cheats"});
  std::vector<std::string> expected = kToMainMenu;
  expected.push_back("Scene 3 Settings");
  expected.push_back("Scene 28 MainMenu");
  EXPECT_EQ(run.scenes, expected) << run.log;

  // Without cheats the same hold does nothing.
  run = RunChain(kMenuFrame + 400, script, {});
  EXPECT_EQ(run.scenes, kToMainMenu) << run.log;
}

TEST_F(SceneChain, MainMenuButtonsAnswerTheStylusAndThePad) {
  // The pad: the first move focuses "Games", A chooses it: the activity picker.
  std::string script = std::to_string(kMenuFrame) + " down right\n" + std::to_string(kMenuFrame + 2) +
                       " up right\n" + std::to_string(kMenuFrame + 10) + " down a\n" +
                       std::to_string(kMenuFrame + 12) + " up a\n";
  ChainRun run = RunChain(kMenuFrame + kChoiceFrames, script, {});
  ASSERT_GE(run.scenes.size(), 5u) << run.log;
  EXPECT_EQ(run.scenes[4], "Scene 29 ActivityPicker") << run.log;

  // The stylus: a tap on "Badges" chooses the badge album.
  script = std::to_string(kMenuFrame) + " tap 310 195\n";
  run = RunChain(kMenuFrame + kChoiceFrames, script, {});
  ASSERT_GE(run.scenes.size(), 5u) << run.log;
  EXPECT_EQ(run.scenes[4], "Scene 30 BadgeMenu cannot be built") << run.log;
}

}  // namespace
}  // namespace integration
