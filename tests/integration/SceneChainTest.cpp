// The real title started headless: the logos and the title card follow one another
// into the main menu on their own; the settings scene opens from it and returns; the
// menu's buttons answer the stylus and the pad.
#include <string>

#include "TitleRun.h"

namespace integration {
namespace {

using SceneChain = RealTitleTest;

TEST_F(SceneChain, TheLogosAndTheTitleCardLeadIntoAMainMenuWithPictures) {
  // About 19 s of virtual time; the three cut-scenes take about 5 s each.
  TitleRun run = RunTitle(TitleArgs(kMenuFrame + 2).Shot(100, "logo").Shot(kMenuFrame, "menu"));
  ASSERT_EQ(run.scenes, kToMainMenu) << run.log;
  // The logo has a sky, mountains and a name; the menu a landscape and five buttons.
  EXPECT_GT(ShotColours(run.Shot("logo")), 8u);
  EXPECT_GT(ShotColours(run.Shot("menu")), 20u);
}

TEST_F(SceneChain, TheSettingsSceneOpensFromTheMainMenuAndReturnsToIt) {
  const TitleArgs args = TitleArgs(kMenuFrame + 400).Script(SettingsScript(kMenuFrame));
  TitleRun run = RunTitle(TitleArgs(args).Arg("--cheats"));
  EXPECT_EQ(run.scenes, ToMainMenuThen({"Scene 3 Settings", "Scene 28 MainMenu"})) << run.log;

  // Without cheats the same hold does nothing.
  run = RunTitle(args);
  EXPECT_EQ(run.scenes, kToMainMenu) << run.log;
}

TEST_F(SceneChain, MainMenuButtonsAnswerTheStylusAndThePad) {
  // The pad: the first move focuses "Games", A chooses it: the activity picker.
  TitleRun run = RunTitle(TitleArgs(kMenuFrame + kChoiceFrames)
                              .Script(At(kMenuFrame, "down right") + At(kMenuFrame + 2, "up right") +
                                      At(kMenuFrame + 10, "down a") + At(kMenuFrame + 12, "up a")));
  ASSERT_GE(run.scenes.size(), 5u) << run.log;
  EXPECT_EQ(run.scenes[4], "Scene 29 ActivityPicker") << run.log;

  // The stylus: a tap on "Badges" chooses the badge album.
  run = RunTitle(TitleArgs(kMenuFrame + kChoiceFrames).Script(TapAt(kMenuFrame, 310, 195)));
  ASSERT_GE(run.scenes.size(), 5u) << run.log;
  EXPECT_EQ(run.scenes[4], "Scene 30 BadgeMenu cannot be built") << run.log;
}

}  // namespace
}  // namespace integration
