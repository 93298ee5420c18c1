// Runs of the real title for the integration suites: appmanager headless on the
// virtual clock, muted, with the platform's stock sounds, an input script and
// screenshots; and what the suites read back from a run: the automation log's lines,
// its "Scene ..." lines, the sounds it asked for and did not get, the frames it ran.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "Process.h"
#include "Screenshots.h"

namespace integration {

// The main menu is up and faded in by this frame of a run without input.
const int kMenuFrame = 1150;
// A chosen button clicks and says its name before the fade to the next scene; the
// longest name lasts about a second, so the next scene has begun well within 4 s.
const int kChoiceFrames = 240;
// The scenes from power-on to the main menu, and those followed by `more`.
extern const std::vector<std::string> kToMainMenu;
std::vector<std::string> ToMainMenuThen(const std::vector<std::string>& more);

// What to run: for how many frames at most, with what input and screenshots.
struct TitleArgs {
  explicit TitleArgs(int frameLimit) : frames(frameLimit) {}
  TitleArgs& Script(const std::string& text) {
    script = text;
    return *this;
  }
  // A screenshot of `frame`, read back as TitleRun::Shot(name).
  TitleArgs& Shot(int frame, const std::string& name) {
    shots.emplace_back(frame, name);
    return *this;
  }
  TitleArgs& Arg(const std::string& arg) {
    extra.push_back(arg);
    return *this;
  }
  // The player's directory; a fresh one when not given.
  TitleArgs& Saves(const std::string& dir) {
    saves = dir;
    return *this;
  }
  // Another title directory than the real title's.
  TitleArgs& Title(const std::string& dir) {
    title = dir;
    return *this;
  }

  int frames;
  std::string script;  // none when empty
  std::vector<std::pair<int, std::string>> shots;
  std::vector<std::string> extra;
  std::string saves;
  std::string title;
};

struct TitleRun {
  ProcessResult result;
  std::string dir;  // the run's own directory: log, script, screenshots
  std::string log;
  std::vector<std::string> lines;   // the log's lines without trailing blanks
  std::vector<std::string> scenes;  // the "Scene ..." lines in order
  int frames = -1;                  // frames the host ran, from its statistics

  // The index of the first line equal to `text` at or after `from`, or -1.
  int Find(const std::string& text, int from = 0) const { return FindLine(lines, text, from); }
  bool Contains(const std::string& part) const { return integration::Contains(log, part); }
  std::string Shot(const std::string& name) const { return dir + "/" + name + ".png"; }
};

// Runs the title; a run that does not exit with 0 fails the test, with its log.
TitleRun RunTitle(const TitleArgs& args);

// "FRAME COMMAND" as a line of an input script.
std::string At(int frame, const std::string& command);
// A tap at (x, y) on `frame`.
std::string TapAt(int frame, int x, int y);
// A long hold in the far corner on `frame`, which opens the settings from the main menu
// while cheats are on, and B 300 frames later, which leaves them.
std::string SettingsScript(int frame);

// Sounds looked up and not found, unless the platform played them after all (the
// stock sounds are looked for in the title first).
std::vector<std::string> MissingSounds(const TitleRun& run);

// Distinct colours of a screenshot on a 4-pixel grid: a blank or faded screen has one.
// 0 when it cannot be read.
size_t ShotColours(const std::string& file);

bool Exists(const std::string& path);
bool StartsWith(const std::string& line, const std::string& prefix);

// Sets byte `offset` of the one save game under the player's directory `saves`.
::testing::AssertionResult PatchSaveGame(const std::string& saves, size_t offset, char value);
// The save game's flag of the adventure's first visit: cleared, the main menu's
// "Adventure" opens the zone picker instead of the first zone's intro.
const size_t kFirstAdventureOffset = 700;

// The suites that need the real title skip while it is not built.
class RealTitleTest : public ::testing::Test {
 protected:
  void SetUp() override;
};

}  // namespace integration
