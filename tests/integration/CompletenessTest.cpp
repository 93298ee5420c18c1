// The real title walked headless through every scene it has so far, and its automation
// log searched for content the game asked for and did not get: sounds, animations,
// textures, sequences, fonts. A copy of the title with files taken out proves the
// search finds them.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "Process.h"

namespace integration {
namespace {

bool Exists(const std::string& path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0;
}

// How a log line that starts with a pattern's text is judged.
enum class Judge {
  kAlways,         // the line alone says something is missing
  kUnlessPlayed,   // the name after the text must be played later ("Playing audio file: NAME")
  kUnlessInTitle,  // the name after the text plus the suffix must be a file in the title's AnimData
};

struct MissingPattern {
  const char* text;
  Judge judge;
  const char* suffix;  // for kUnlessInTitle
};

// Every line that marks missing content. A stock sound ("h_OSTM_...") is looked for in
// the title first and said to be missing, then found by the platform when it plays, so a
// failed look-up counts only when no play of the same name follows. A sprite whose .anim
// or .tex is not there is only named in its "Load ..." line, hence the file check.
const MissingPattern kMissingPatterns[] = {
    {"Failed to find audio: ", Judge::kUnlessPlayed, nullptr},
    {"Load animation: ", Judge::kUnlessInTitle, ".anim"},
    {"Load texture: ", Judge::kUnlessInTitle, ".tex"},
    {"NIS animation missing: ", Judge::kAlways, nullptr},
    {"Couldn't find sequence index by name: ", Judge::kAlways, nullptr},
    {"Malformed file: ", Judge::kAlways, nullptr},
    {"Font: ", Judge::kAlways, nullptr},
    {"StringTable: ", Judge::kAlways, nullptr},
    {"ScrollableQuad: ", Judge::kAlways, nullptr},
    {"LevelLoader: ", Judge::kAlways, nullptr},
};

std::string Trimmed(std::string line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
  return line;
}

bool StartsWith(const std::string& line, const std::string& prefix) {
  return line.compare(0, prefix.size(), prefix) == 0;
}

// The lines of `log` that say content is missing from the title in `titleDir`, in order.
std::vector<std::string> FindMissingContent(const std::string& log, const std::string& titleDir) {
  std::vector<std::string> lines;
  for (const std::string& line : SplitLines(log)) lines.push_back(Trimmed(line));
  std::vector<std::string> offending;
  for (size_t i = 0; i < lines.size(); ++i) {
    for (const MissingPattern& pattern : kMissingPatterns) {
      if (!StartsWith(lines[i], pattern.text)) continue;
      const std::string name = lines[i].substr(strlen(pattern.text));
      bool missing = true;
      if (pattern.judge == Judge::kUnlessPlayed) {
        const std::string played = "Playing audio file: " + name;
        for (size_t j = i + 1; j < lines.size() && missing; ++j) missing = lines[j] != played;
      } else if (pattern.judge == Judge::kUnlessInTitle) {
        missing = !Exists(titleDir + "/AnimData/" + name + pattern.suffix) && !Exists(name + pattern.suffix);
      }
      if (missing) offending.push_back(lines[i]);
      break;
    }
  }
  return offending;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += "  " + line + "\n";
  return text;
}

// A run of `title` for `frames` frames with an input script; its automation log.
struct TitleRun {
  std::string log;
  std::vector<std::string> scenes;  // the "Scene ..." lines in order
};

TitleRun RunTitle(const std::string& title, int frames, const std::string& script, bool cheats) {
  const std::string dir = MakeTempDir();
  std::vector<std::string> args = {GetPaths().appmanager,
                                   "--title",
                                   title,
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
                                   "--log",
                                   dir + "/run.log"};
  if (!script.empty()) {
    WriteFile(dir + "/input.txt", script);
    args.push_back("--input");
    args.push_back(dir + "/input.txt");
  }
  if (cheats) args.push_back("--cheats");
  ProcessResult r = RunProcess(args, {}, 280);
  TitleRun run;
  run.log = ReadFile(dir + "/run.log");
  EXPECT_EQ(r.exitCode, 0) << r.err << run.log;
  for (const std::string& line : SplitLines(run.log)) {
    if (StartsWith(line, "Scene ")) run.scenes.push_back(Trimmed(line));
  }
  return run;
}

// The main menu is up and faded in by this frame of a run without input.
const int kMenuFrame = 1150;

const std::vector<std::string> kToMainMenu = {"Scene 10 Morvane", "Scene 11 Quennet", "Scene 12 Title",
                                              "Scene 28 MainMenu"};

// The logos, the title card, the main menu, the settings (a long hold in the far corner
// with cheats on; B leaves them) and the menu again.
const std::string kSettingsScript = std::to_string(kMenuFrame) + " hold 475 268 220\n" +
                                    std::to_string(kMenuFrame + 300) + " down b\n" +
                                    std::to_string(kMenuFrame + 302) + " up b\n";
const int kSettingsFrames = kMenuFrame + 400;
// A chosen button clicks and says its name before the fade to the next scene; the
// longest name lasts about a second, so the next scene has begun well within 4 s.
const int kChoiceFrames = 240;

// Each main menu button, tapped at its middle, and the scene it leads to for a new player.
struct MenuButton {
  int x, y;
  const char* scene;
};
const MenuButton kMenuButtons[] = {
    {86, 112, "Scene 29 ActivityPicker"}, {240, 106, "Scene 39 Zone1Intro"},
    {394, 112, "Scene 31 MicromodMenu"},  {315, 197, "Scene 30 BadgeMenu"},
    {165, 197, "Scene 14 AdventureLog"},
};

class Completeness : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string& title = GetPaths().realTitle;
    if (title.empty() || !Exists(title + "/App.so")) {
      GTEST_SKIP() << "the title is not built yet (" << title << "/App.so); build the 'title' target";
    }
  }
};

TEST_F(Completeness, TheLogosTheMenuAndTheSettingsFindAllTheirContent) {
  TitleRun run = RunTitle(GetPaths().realTitle, kSettingsFrames, kSettingsScript, true);
  std::vector<std::string> expected = kToMainMenu;
  expected.push_back("Scene 3 Settings");
  expected.push_back("Scene 28 MainMenu");
  EXPECT_EQ(run.scenes, expected) << run.log;
  const std::vector<std::string> missing = FindMissingContent(run.log, GetPaths().realTitle);
  EXPECT_TRUE(missing.empty()) << "content missing from the title:\n" << Joined(missing);
}

TEST_F(Completeness, EveryMainMenuButtonFindsAllItsContent) {
  for (const MenuButton& button : kMenuButtons) {
    SCOPED_TRACE(std::to_string(button.x) + "," + std::to_string(button.y));
    const std::string script = std::to_string(kMenuFrame) + " tap " + std::to_string(button.x) + " " +
                               std::to_string(button.y) + "\n";
    TitleRun run = RunTitle(GetPaths().realTitle, kMenuFrame + kChoiceFrames, script, false);
    ASSERT_GE(run.scenes.size(), 5u) << run.log;
    // Scenes not written yet say they cannot be built; their names are enough here.
    EXPECT_TRUE(StartsWith(run.scenes[4], button.scene)) << run.scenes[4];
    const std::vector<std::string> missing = FindMissingContent(run.log, GetPaths().realTitle);
    EXPECT_TRUE(missing.empty()) << "content missing from the title:\n" << Joined(missing);
  }
}

TEST_F(Completeness, TheSearchNamesASoundAnAnimationAndATextureTakenOutOfTheTitle) {
  // What the way to the main menu uses: the menu's music, the animation of its
  // background and the texture of the title card.
  const std::string title = MakeTempDir() + "/title";
  ProcessResult copy = RunProcess({"/bin/cp", "-a", GetPaths().realTitle, title});
  ASSERT_EQ(copy.exitCode, 0) << copy.err;
  for (const char* file :
       {"/Audio/Music/MUS_Menu.ogg", "/AnimData/M1_Background.anim", "/AnimData/GameTitleCard.tex"}) {
    ASSERT_EQ(unlink((title + file).c_str()), 0) << "the title has no " << file;
  }
  TitleRun run = RunTitle(title, kMenuFrame + 50, "", false);
  ASSERT_EQ(run.scenes, kToMainMenu) << run.log;
  const std::vector<std::string> missing = FindMissingContent(run.log, title);
  const std::vector<std::string> expected = {
      "Load texture: GameTitleCard", "NIS animation missing: GameTitleCard", "Load animation: M1_Background",
      "Failed to find audio: MUS_Menu"};
  for (const std::string& line : expected) {
    EXPECT_NE(std::find(missing.begin(), missing.end(), line), missing.end())
        << "\"" << line << "\" is not reported; reported:\n"
        << Joined(missing) << run.log;
  }
  // Nothing else: the stock sounds that the platform plays after the title's look-up
  // failed are no fault.
  EXPECT_EQ(missing.size(), expected.size()) << Joined(missing);
}

}  // namespace
}  // namespace integration
