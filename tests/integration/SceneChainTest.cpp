// The real title started headless with no input: the logos and the title card follow
// one another into the main menu, and the first logo shows a picture.
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

TEST(SceneChain, TheLogosAndTheTitleCardLeadIntoTheMainMenuOnTheirOwn) {
  const std::string& title = GetPaths().realTitle;
  if (title.empty() || !Exists(title + "/App.so")) {
    GTEST_SKIP() << "the title is not built yet (" << title << "/App.so); build the 'title' target";
  }
  std::string dir = MakeTempDir();
  // About 18 s of virtual time; the three cut-scenes take about 5 s each.
  ProcessResult r =
      RunProcess({GetPaths().appmanager, "--title", title, "--headless", "--clock", "virtual", "--frames",
                  "1100", "--quiet", "--mute", "--saves", dir + "/saves", "--downloads", dir + "/downloads",
                  "--log", dir + "/run.log", "--screenshot", "100:" + dir + "/logo.png"},
                 {}, 280);
  const std::string log = ReadFile(dir + "/run.log");
  ASSERT_EQ(r.exitCode, 0) << r.err << log;

  std::vector<std::string> scenes;
  for (const std::string& line : SplitLines(log)) {
    if (line.compare(0, 6, "Scene ") == 0) scenes.push_back(line);
  }
  const std::vector<std::string> expected = {"Scene 10 Morvane", "Scene 11 Quennet", "Scene 12 Title",
                                             "Scene 28 MainMenu"};
  EXPECT_EQ(scenes, expected) << log;

  if (!Exists(title + "/AnimData/MorvaneLogo.anim")) {
    GTEST_SKIP() << "the title has no logo art yet; the chain ran on black scenes";
  }
  Picture picture;
  ASSERT_TRUE(picture.Load(dir + "/logo.png"));
  std::set<uint32_t> colours;
  for (int y = 0; y < picture.height; y += 4) {
    for (int x = 0; x < picture.width; x += 4) {
      const unsigned char* px = picture.At(x, y);
      colours.insert(px[0] << 16 | px[1] << 8 | px[2]);
    }
  }
  // A blank screen is one colour; the logo has a sky, mountains and a name.
  EXPECT_GT(colours.size(), 8u);
}

}  // namespace
}  // namespace integration
