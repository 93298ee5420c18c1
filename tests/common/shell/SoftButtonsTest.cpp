// The soft Home and Hint buttons: a touch that comes down on one marks it for that
// frame only, hidden or locked buttons report nothing, and the pad is left to the
// windows below.
#include <gtest/gtest.h>

#include "../../framework/menu/MenuTestSupport.h"
#include "menu/Button.h"
#include "shell/DappletSoftButtons.h"

namespace {

using game::DappletSoftButtons;

// A window below the soft buttons that counts what reaches it.
class Below : public nox::Window {
 public:
  void Draw() override {}
  bool HandleInput() override {
    ++m_Seen;
    return true;
  }
  int m_Seen = 0;
};

class SoftButtonsTest : public menutest::WidgetTest {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    // 36 by 36 in the top corners, drawn where they sit: origin at the screen's corner.
    WriteButton("TestHome", 36, 36, 4, 4);
    WriteButton("TestHint", 36, 36, 440, 4);
    m_pButtons = new DappletSoftButtons("TestHome", "TestHint");
    nox::WindowManager::Get()->OpenWindow(&m_Below, false);
    nox::WindowManager::Get()->OpenWindow(m_pButtons, true);
  }
  void TearDown() override {
    nox::WindowManager::Get()->CloseWindow(m_pButtons);
    nox::WindowManager::Get()->CloseWindow(&m_Below);
    delete m_pButtons;
    WidgetTest::TearDown();
  }
  // One frame's input without its update, so the marks can be read as the title does.
  static void InputOnly() {
    Hollin::Ostra::CKernelMPI().TaskSleep(17);
    nox::GameHost::s_pGameHost->Update();
    nox::Input::s_pInput->Update();
    nox::WindowManager::Get()->HandleInput();
  }

  DappletSoftButtons* m_pButtons = nullptr;
  Below m_Below;
};

TEST_F(SoftButtonsTest, ATouchOnAButtonIsReportedForThatFrameOnly) {
  Touch(true, 30, 30);  // home
  InputOnly();
  EXPECT_TRUE(m_pButtons->GetHomeButtonTouched());
  EXPECT_FALSE(m_pButtons->GetHintButtonTouched());
  EXPECT_EQ(m_Below.m_Seen, 0);  // the touch was the soft button's
  nox::WindowManager::Get()->Update(17);
  EXPECT_FALSE(m_pButtons->GetHomeButtonTouched());
  Frame();  // held: no new mark
  EXPECT_FALSE(m_pButtons->GetHomeButtonTouched());
  Touch(false, 30, 30);
  Frame();
  EXPECT_EQ(m_pButtons->GetSelected(), nullptr);

  Touch(true, 470, 36);  // hint
  InputOnly();
  EXPECT_TRUE(m_pButtons->GetHintButtonTouched());
  EXPECT_FALSE(m_pButtons->GetHomeButtonTouched());
  m_pButtons->TriggerHintButton();
  EXPECT_TRUE(m_pButtons->GetHintButton()->IsTriggered());
  nox::WindowManager::Get()->Update(17);
  Touch(false, 470, 36);
  Frame();
  EXPECT_EQ(m_pButtons->GetHintButton()->GetState(), noxfw::Button::kActive);

  // Elsewhere on the screen the touch goes to the window below.
  int seen = m_Below.m_Seen;
  Touch(true, 240, 136);
  InputOnly();
  EXPECT_FALSE(m_pButtons->GetHomeButtonTouched() || m_pButtons->GetHintButtonTouched());
  EXPECT_GT(m_Below.m_Seen, seen);
}

TEST_F(SoftButtonsTest, HiddenOrLockedButtonsReportNothingAndThePadPassesBy) {
  m_pButtons->SetHomeButtonVisible(false);
  EXPECT_FALSE(m_pButtons->IsHomeButtonVisible());
  EXPECT_TRUE(m_pButtons->IsHintButtonVisible());
  Touch(true, 30, 30);
  InputOnly();
  EXPECT_FALSE(m_pButtons->GetHomeButtonTouched());
  Touch(false, 30, 30);
  Frame();

  m_pButtons->SetButtonsVisible(true);
  m_pButtons->LockInput();
  Touch(true, 470, 36);
  InputOnly();
  EXPECT_FALSE(m_pButtons->GetHintButtonTouched());
  Touch(false, 470, 36);
  Frame();
  m_pButtons->UnlockInput();

  // B and Home on the pad are not taken by the soft buttons.
  const int seen = m_Below.m_Seen;
  Tap(0x120);
  EXPECT_EQ(m_Below.m_Seen, seen + 2);

  m_pButtons->HighlightHintButton();
  EXPECT_EQ(m_pButtons->GetHintButton()->GetState(), noxfw::Button::kHighlight);
  m_pButtons->UnHighlightHintButton();
  EXPECT_TRUE(m_pButtons->GetHintButton()->IsActive());
}

}  // namespace
