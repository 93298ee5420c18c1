// The real title walked headless through every scene it has so far, and its automation
// log searched for content the game asked for and did not get: sounds, animations,
// textures, sequences, fonts. A copy of the title with files taken out proves the
// search finds them.
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "TitleRun.h"

namespace integration {
namespace {

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

// The lines of `run` that say content is missing from the title in `titleDir`, in order.
std::vector<std::string> FindMissingContent(const TitleRun& run, const std::string& titleDir) {
  std::vector<std::string> offending;
  for (size_t i = 0; i < run.lines.size(); ++i) {
    const std::string& line = run.lines[i];
    for (const MissingPattern& pattern : kMissingPatterns) {
      if (!StartsWith(line, pattern.text)) continue;
      const std::string name = line.substr(strlen(pattern.text));
      bool missing = true;
      if (pattern.judge == Judge::kUnlessPlayed) {
        missing = run.Find("Playing audio file: " + name, static_cast<int>(i) + 1) < 0;
      } else if (pattern.judge == Judge::kUnlessInTitle) {
        missing = !Exists(titleDir + "/AnimData/" + name + pattern.suffix) && !Exists(name + pattern.suffix);
      }
      if (missing) offending.push_back(line);
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

using Completeness = RealTitleTest;

TEST_F(Completeness, TheLogosTheMenuAndTheSettingsFindAllTheirContent) {
  // The logos, the title card, the main menu, the settings and the menu again.
  TitleRun run = RunTitle(TitleArgs(kMenuFrame + 400).Script(SettingsScript(kMenuFrame)).Arg("--cheats"));
  EXPECT_EQ(run.scenes, ToMainMenuThen({"Scene 3 Settings", "Scene 28 MainMenu"})) << run.log;
  const std::vector<std::string> missing = FindMissingContent(run, GetPaths().realTitle);
  EXPECT_TRUE(missing.empty()) << "content missing from the title:\n" << Joined(missing);
}

TEST_F(Completeness, EveryMainMenuButtonFindsAllItsContent) {
  for (const MenuButton& button : kMenuButtons) {
    SCOPED_TRACE(std::to_string(button.x) + "," + std::to_string(button.y));
    TitleRun run =
        RunTitle(TitleArgs(kMenuFrame + kChoiceFrames).Script(TapAt(kMenuFrame, button.x, button.y)));
    ASSERT_GE(run.scenes.size(), 5u) << run.log;
    // Scenes not written yet say they cannot be built; their names are enough here.
    EXPECT_TRUE(StartsWith(run.scenes[4], button.scene)) << run.scenes[4];
    const std::vector<std::string> missing = FindMissingContent(run, GetPaths().realTitle);
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
  TitleRun run = RunTitle(TitleArgs(kMenuFrame + 50).Title(title));
  ASSERT_EQ(run.scenes, kToMainMenu) << run.log;
  const std::vector<std::string> missing = FindMissingContent(run, title);
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
