// The exit pop-up in the running game: which question each scene asks, No going back
// to the paused scene, Yes leading to the target or, in the main menu, to the end of
// the title through the application manager, and one answer however often it is
// tapped.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <list>

#include "../../framework/menu/MenuTestSupport.h"
#include "SceneManagerTestSupport.h"
#include "menu/Button.h"
#include "ostra/AppInterface.h"
#include "scenes/NisScene.h"
#include "shell/DappletSoftButtons.h"
#include "shell/GameExitPopUp.h"
#include "shell/GameSceneManager.h"

namespace {

using game::GameExitPopUp;
using game::GameSceneManager;

// A bare cut-scene for the first activity's intro, a plain scene elsewhere.
class IntroSceneManager : public shelltest::ProbeSceneManager {
 protected:
  nox::Scene* MakeProbe(unsigned long id) override {
    return id == 20 ? new noxfw::NisScene() : ProbeSceneManager::MakeProbe(id);
  }
};

// Where the test art puts the two answers: drawn where they sit, as the title's are.
const int kYesX = 150, kNoX = 290, kButtonY = 160;

class ExitPopUpTest : public shelltest::SceneManagerFixture<menutest::WidgetTest, IntroSceneManager> {
 protected:
  void PrepareScenes() override {
    WriteButton("YesButton", 60, 40, kYesX - 30, kButtonY - 20);
    WriteButton("NoButton", 60, 40, kNoX - 30, kButtonY - 20);
    WriteButton(game::DappletSoftButtons::kHomeSprite, 44, 44, 4, 4);
    CAppManager::Instance()->ClearPopRequest();
  }
  void TearDown() override {
    SceneManagerFixture::TearDown();
    CAppManager::Instance()->ClearPopRequest();
  }
  void Step() override { Run(1); }
  // Frames of the title's windows and scenes until nothing is left to do.
  void Run(int frames = 30) {
    for (int i = 0; i < frames; ++i) {
      Frame();
      m_pScenes->Update(17);
    }
  }
  void TapAt(int x, int y) {
    Touch(true, x, y);
    Frame();
    Touch(false, x, y);
    Frame();
  }
  GameExitPopUp& PopUp() { return m_pScenes->GetExitPopUp(); }
};

TEST_F(ExitPopUpTest, EachTargetHasItsTextAndVoiceAndTheMicromodsAreNotSpokenTo) {
  struct Case {
    unsigned long target;
    const char* text;
    const char* voice;
  };
  const Case cases[] = {{1, "Exit", "KDNA0662"},      {13, "Adventure", "KDNA0663"}, {28, "Main", "KDNA0664"},
                        {29, "Activity", "KDNA0665"}, {31, "Micromods", "NONE"},     {45, "Main", "NONE"}};
  for (const Case& c : cases) {
    EXPECT_STREQ(GameExitPopUp::GetTextSequence(c.target), c.text) << c.target;
    EXPECT_STREQ(GameExitPopUp::GetVoice(c.target), c.voice) << c.target;
  }
}

TEST_F(ExitPopUpTest, TheTargetFollowsTheSceneAndThePlayMode) {
  struct Case {
    unsigned long scene;
    GameSceneManager::GameMode mode;
    unsigned long target;
  };
  const Case cases[] = {
      {28, GameSceneManager::Story, 1},      {13, GameSceneManager::Story, 28},
      {16, GameSceneManager::Story, 13},     {19, GameSceneManager::Story, 13},
      {14, GameSceneManager::Story, 13},     {20, GameSceneManager::Story, 29},
      {42, GameSceneManager::Story, 28},     {17, GameSceneManager::Activity, 29},
      {19, GameSceneManager::Micromods, 31},
  };
  for (const Case& c : cases) {
    m_pScenes->SetGameMode(c.mode);
    m_pScenes->SetSceneData(m_pScenes->GetSceneDataFromTable(c.scene));
    EXPECT_EQ(m_pScenes->GetExitTarget(), c.target) << "scene " << c.scene << " mode " << c.mode;
  }
}

TEST_F(ExitPopUpTest, HomeInPlayAsksOverThePausedSceneAndNoGoesBackToIt) {
  shelltest::InputTitle title;
  GoTo(13);
  Touch(true, 20, 20);  // the soft Home button
  title.Input();
  ASSERT_TRUE(m_pScenes->IsExitPopUpOpen());
  EXPECT_TRUE(title.IsExitPopUpOpen());
  EXPECT_TRUE(m_pScenes->IsScenePaused());
  EXPECT_EQ(PopUp().GetTarget(), 28u);
  EXPECT_EQ(LogCount("Exit pop-up: asking \"Main\" for scene 28"), 1);
  // Above every overlay, the soft buttons included: it draws last and is asked first.
  EXPECT_EQ(nox::WindowManager::Get()->GetOverlays().back(), &PopUp());
  Touch(false, 20, 20);
  Frame();
  DrawFrame();
  EXPECT_EQ(Pixel(kYesX, kButtonY), menutest::Rgb(menutest::kActiveColour));
  EXPECT_EQ(Pixel(kNoX, kButtonY), menutest::Rgb(menutest::kActiveColour));

  // Home again leaves the question up.
  menutest::TestButtons() = GameExitPopUp::kHomeBit;
  title.Input();
  menutest::TestButtons() = 0;
  EXPECT_TRUE(m_pScenes->IsExitPopUpOpen());
  EXPECT_EQ(LogCount("Exit pop-up: asking"), 1);

  Touch(true, kNoX, kButtonY);
  title.Input();
  EXPECT_FALSE(m_pScenes->IsExitPopUpOpen());
  EXPECT_FALSE(title.IsExitPopUpOpen());
  EXPECT_FALSE(m_pScenes->IsScenePaused());
  Touch(false, kNoX, kButtonY);
  Run();
  EXPECT_FALSE(m_pScenes->IsChangingScene());
  EXPECT_EQ(m_pScenes->GetSceneId(), 13u);
  EXPECT_EQ(LogCount("Exit pop-up: no"), 1);

  // And it asks again the next time, afresh.
  ASSERT_TRUE(m_pScenes->ExitPrompt());
  EXPECT_FALSE(PopUp().IsAnswered());
  EXPECT_FALSE(PopUp().IsInputLocked());
  EXPECT_EQ(PopUp().GetSelected(), nullptr);
}

TEST_F(ExitPopUpTest, BIsNoAndThePadChoosesYesOrNo) {
  GoTo(13);
  ASSERT_TRUE(m_pScenes->ExitPrompt());
  Tap(0x20);
  EXPECT_FALSE(m_pScenes->IsExitPopUpOpen());
  EXPECT_EQ(LogCount("Exit pop-up: no"), 1);

  // The first move focuses Yes, right moves to No, A chooses it.
  ASSERT_TRUE(m_pScenes->ExitPrompt());
  Tap(0x4);
  EXPECT_EQ(PopUp().GetSelectedId(), GameExitPopUp::kYes);
  Tap(0x4);
  EXPECT_EQ(PopUp().GetSelectedId(), GameExitPopUp::kNo);
  Tap(0x10);
  EXPECT_FALSE(m_pScenes->IsExitPopUpOpen());
  EXPECT_EQ(LogCount("Exit pop-up: no"), 2);
}

TEST_F(ExitPopUpTest, NoQuestionWhileTheSceneChangesOrOneIsUp) {
  GoTo(13);
  m_pScenes->DoneScene(noxfw::ExitReason::Back);
  EXPECT_FALSE(m_pScenes->ExitPrompt());
  EXPECT_FALSE(m_pScenes->IsExitPopUpOpen());
  Settle();
  ASSERT_TRUE(m_pScenes->ExitPrompt());
  EXPECT_FALSE(m_pScenes->ExitPrompt());
  const std::list<nox::Window*>& overlays = nox::WindowManager::Get()->GetOverlays();
  EXPECT_EQ(std::count(overlays.begin(), overlays.end(), &PopUp()), 1);
}

TEST_F(ExitPopUpTest, YesInTheMainMenuEndsTheTitleThroughTheApplicationManager) {
  GoTo(28);
  ASSERT_TRUE(m_pScenes->ExitPrompt());
  EXPECT_EQ(PopUp().GetTarget(), 1u);
  TapAt(kYesX, kButtonY);
  EXPECT_TRUE(PopUp().IsAnswered());
  Run();
  EXPECT_TRUE(CAppManager::Instance()->IsPopRequested());
  EXPECT_EQ(LogCount("Exit pop-up: the title ends"), 1);
  // The title ends from the manager's Exit; until then nothing else moves.
  EXPECT_FALSE(m_pScenes->IsChangingScene());
  EXPECT_EQ(m_pScenes->GetSceneId(), 28u);
}

TEST_F(ExitPopUpTest, YesElsewhereLeavesForTheTargetAndADoubleTapAnswersOnce) {
  GoTo(13);
  ASSERT_TRUE(m_pScenes->ExitPrompt());
  // Yes, then at once Yes again and No: only the first counts.
  TapAt(kYesX, kButtonY);
  TapAt(kYesX, kButtonY);
  TapAt(kNoX, kButtonY);
  EXPECT_EQ(LogCount("Exit pop-up: yes, to scene 28"), 1);
  EXPECT_EQ(LogCount("Exit pop-up: no"), 0);
  for (int i = 0; i < 200 && (m_pScenes->IsChangingScene() || m_pScenes->IsExitPopUpOpen()); ++i) Run(1);
  EXPECT_EQ(m_pScenes->GetSceneId(), 28u);
  EXPECT_FALSE(m_pScenes->IsExitPopUpOpen());
  EXPECT_FALSE(CAppManager::Instance()->IsPopRequested());
  EXPECT_EQ(LogCount("Scene 28 MainMenu"), 1);
}

TEST_F(ExitPopUpTest, AnIntroWaitsUnderTheQuestionAndYesClosesItForTheActivityPicker) {
  GoTo(20);
  noxfw::NisScene* intro = nox::TypeCast<noxfw::NisScene>(m_pScenes->GetScene());
  ASSERT_NE(intro, nullptr);
  ASSERT_TRUE(m_pScenes->ExitPrompt());
  EXPECT_STREQ(GameExitPopUp::GetTextSequence(PopUp().GetTarget()), "Activity");
  // Far longer than the cut-scene: paused, it does not end by itself.
  Run(200);
  EXPECT_FALSE(m_pScenes->IsChangingScene());
  EXPECT_EQ(m_pScenes->GetSceneId(), 20u);
  TapAt(kYesX, kButtonY);
  Run(3);
  // Its script is gone before the fade, so nothing of it plays on or completes it.
  ASSERT_TRUE(m_pScenes->IsChangingScene());
  EXPECT_TRUE(intro->GetSequencer().IsEmpty());
  for (int i = 0; i < 200 && m_pScenes->IsChangingScene(); ++i) Run(1);
  EXPECT_EQ(m_pScenes->GetSceneId(), 29u);
}

}  // namespace
