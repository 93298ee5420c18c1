// The play-again menu: Yes ends the scene with Jump (the same activity again), No and
// the pad's B with MenuBack, each after the click is heard and only once however
// often the child taps; the buttons stand at the background's points.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ShellMenuTestSupport.h"
#include "menu/Button.h"
#include "shell/PlayAgain.h"

namespace {

using game::PlayAgain;
using noxfw::ExitReason;
using Reasons = std::vector<ExitReason::eExitReason>;
using Sounds = std::vector<std::string>;

const int kYesX = 100, kNoX = 300, kButtonY = 180;

class PlayAgainTest : public shelltest::ShellMenuTest {
 protected:
  void SetUp() override {
    ShellMenuTest::SetUp();
    // Buttons drawn from their own corner; the background says where they stand.
    WriteButton("YesButton", 60, 40);
    WriteButton("NoButton", 60, 40);
    assetlib::AnimDesc desc;
    desc.tileSize = 8;
    desc.storage = assetlib::AnimStorage::kSheet;
    desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
    assetlib::AnimSequenceDesc idle;
    idle.name = "Idle";
    idle.frames.push_back({{0u, "sky"}});
    idle.points.push_back({"Origin", {{false, 0, 0}}});
    idle.points.push_back({"YesButton", {{false, kYesX, kButtonY}}});
    idle.points.push_back({"NoButton", {{false, kNoX, kButtonY}}});
    desc.sequences.push_back(idle);
    WriteSprite("M5_Background", desc, {{"sky", menutest::Filled(8, 8, menutest::kOtherColour)}});
  }
  PlayAgain* Show() {
    PlayAgain* menu = new PlayAgain();
    ShowMenu(menu);
    RunScript(menu->GetSequencer());
    TakeSounds();
    return menu;
  }
  PlayAgain* Menu() { return static_cast<PlayAgain*>(m_pMenu); }
  void TapAt(int x, int y) {
    Touch(true, x, y);
    Frame();
    Touch(false, x, y);
    Frame();
  }
};

TEST_F(PlayAgainTest, TheQuestionIsAskedAndTheButtonsStandAtTheirPoints) {
  ShowMenu(new PlayAgain());
  EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_PromptSfx_6", "KDNA0012"}));
  EXPECT_EQ(Menu()->GetButton(PlayAgain::kYes)->GetPosition().x.ToInt(), kYesX);
  EXPECT_EQ(Menu()->GetButton(PlayAgain::kNo)->GetPosition().x.ToInt(), kNoX);
  EXPECT_EQ(Menu()->GetButton(PlayAgain::kNo)->GetPosition().y.ToInt(), kButtonY);
}

TEST_F(PlayAgainTest, YesIsJumpAndADoubleTapAnswersOnce) {
  Show();
  TapAt(kYesX + 10, kButtonY + 10);
  TapAt(kYesX + 12, kButtonY + 12);
  TapAt(kNoX + 10, kButtonY + 10);  // too late: the answer is given
  EXPECT_EQ(TakeSounds(), Sounds{"h_OSTM_MenuSelectSfx_6"});
  RunScript(Menu()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, Reasons{ExitReason::Jump});
}

TEST_F(PlayAgainTest, NoAndThePadsBAreMenuBack) {
  Show();
  TapAt(kNoX + 10, kButtonY + 10);
  RunScript(Menu()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, Reasons{ExitReason::MenuBack});

  m_pScenes->reasons.clear();
  Show();
  Tap(0x20);
  EXPECT_EQ(TakeSounds(), Sounds{"h_OSTM_BackSfx_6"});
  RunScript(Menu()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, Reasons{ExitReason::MenuBack});

  // The pad's A on the first focused button is Yes.
  m_pScenes->reasons.clear();
  Show();
  Tap(0x4);
  Tap(0x10);
  RunScript(Menu()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, Reasons{ExitReason::Jump});
}

TEST_F(PlayAgainTest, APausedMenuHoldsItsScriptAndTakesNoTouch) {
  ShowMenu(new PlayAgain());
  Menu()->Pause();  // as under the exit pop-up
  for (int i = 0; i < 10; ++i) Frame();
  EXPECT_FALSE(Menu()->GetSequencer().IsEmpty());
  TapAt(kYesX + 10, kButtonY + 10);
  Menu()->Resume();
  RunScript(Menu()->GetSequencer());
  EXPECT_TRUE(m_pScenes->reasons.empty());
  EXPECT_FALSE(Menu()->IsInputLocked());
}

}  // namespace
