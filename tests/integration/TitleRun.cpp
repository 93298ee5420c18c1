#include "TitleRun.h"

#include <sys/stat.h>

namespace integration {

const std::vector<std::string> kToMainMenu = {"Scene 10 Morvane", "Scene 11 Quennet", "Scene 12 Title",
                                              "Scene 28 MainMenu"};

std::vector<std::string> ToMainMenuThen(const std::vector<std::string>& more) {
  std::vector<std::string> scenes = kToMainMenu;
  scenes.insert(scenes.end(), more.begin(), more.end());
  return scenes;
}

bool Exists(const std::string& path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0;
}

bool StartsWith(const std::string& line, const std::string& prefix) {
  return line.compare(0, prefix.size(), prefix) == 0;
}

TitleRun RunTitle(const TitleArgs& args) {
  TitleRun run;
  run.dir = MakeTempDir();
  const std::string& title = args.title.empty() ? GetPaths().realTitle : args.title;
  std::vector<std::string> argv = {GetPaths().appmanager,
                                   "--title",
                                   title,
                                   "--stock-audio",
                                   GetPaths().realTitle + "/../stock-audio",
                                   "--headless",
                                   "--clock",
                                   "virtual",
                                   "--frames",
                                   std::to_string(args.frames),
                                   "--quiet",
                                   "--mute",
                                   "--stats",
                                   "--saves",
                                   args.saves.empty() ? run.dir + "/saves" : args.saves,
                                   "--downloads",
                                   run.dir + "/downloads",
                                   "--log",
                                   run.dir + "/run.log"};
  if (!args.script.empty()) {
    WriteFile(run.dir + "/input.txt", args.script);
    argv.push_back("--input");
    argv.push_back(run.dir + "/input.txt");
  }
  for (const auto& shot : args.shots) {
    argv.push_back("--screenshot");
    argv.push_back(std::to_string(shot.first) + ":" + run.Shot(shot.second));
  }
  argv.insert(argv.end(), args.extra.begin(), args.extra.end());
  run.result = RunProcess(argv, {}, 280);
  run.log = ReadFile(run.dir + "/run.log");
  EXPECT_EQ(run.result.exitCode, 0) << run.result.err << run.log;
  for (std::string line : SplitLines(run.log)) {
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
    if (StartsWith(line, "Scene ")) run.scenes.push_back(line);
    run.lines.push_back(line);
  }
  for (const std::string& line : SplitLines(run.result.out)) {
    if (StartsWith(line, "frames: ")) run.frames = std::stoi(line.substr(8));
  }
  return run;
}

std::string At(int frame, const std::string& command) {
  return std::to_string(frame) + " " + command + "\n";
}

std::string TapAt(int frame, int x, int y) {
  return At(frame, "tap " + std::to_string(x) + " " + std::to_string(y));
}

std::string SettingsScript(int frame) {
  return At(frame, "hold 475 268 220") + At(frame + 300, "down b") + At(frame + 302, "up b");
}

std::vector<std::string> MissingSounds(const TitleRun& run) {
  const std::string failed = "Failed to find audio: ";
  std::vector<std::string> missing;
  for (size_t i = 0; i < run.lines.size(); ++i) {
    if (!StartsWith(run.lines[i], failed)) continue;
    const std::string name = run.lines[i].substr(failed.size());
    if (run.Find("Playing audio file: " + name, static_cast<int>(i) + 1) < 0) missing.push_back(run.lines[i]);
  }
  return missing;
}

size_t ShotColours(const std::string& file) {
  Picture picture;
  if (!picture.Load(file)) return 0;
  return Colours(picture);
}

::testing::AssertionResult PatchSaveGame(const std::string& saves, size_t offset, char value) {
  ProcessResult found = RunProcess({"/usr/bin/find", saves, "-name", "SaveGame.bin"});
  const std::vector<std::string> files = SplitLines(found.out);
  if (files.size() != 1)
    return ::testing::AssertionFailure() << "not one save game: " << found.out << found.err;
  std::string save = ReadFile(files[0]);
  if (save.size() != 1888)
    return ::testing::AssertionFailure() << files[0] << " has " << save.size() << " bytes";
  save[offset] = value;
  WriteFile(files[0], save);
  return ::testing::AssertionSuccess();
}

void RealTitleTest::SetUp() {
  const std::string& title = GetPaths().realTitle;
  if (title.empty() || !Exists(title + "/App.so")) {
    GTEST_SKIP() << "the title is not built yet (" << title << "/App.so); build the 'title' target";
  }
}

}  // namespace integration
