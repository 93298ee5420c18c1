// The soft buttons in the running game: which of them each scene shows, and a soft
// Home touch that the title must see in the frame it happens, before that frame's
// update clears the mark.
#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <vector>

#include "../../framework/menu/MenuTestSupport.h"
#include "SceneManagerTestSupport.h"
#include "menu/Button.h"
#include "shell/DappletSoftButtons.h"
#include "shell/GameExitPopUp.h"

namespace {

using game::DappletSoftButtons;

class SoftButtonScenesTest : public shelltest::SceneManagerFixture<menutest::WidgetTest> {
 protected:
  void PrepareScenes() override {
    // Drawn where they sit, as the title's art is: Home top left, Hint top right.
    WriteButton(DappletSoftButtons::kHomeSprite, 44, 44, 4, 4);
    WriteButton(DappletSoftButtons::kHintSprite, 44, 44, 432, 4);
  }
  void Step() override {
    m_pScenes->Update(20);
    nox::WindowManager::Get()->Update(20);
  }
  DappletSoftButtons& Buttons() { return *m_pScenes->GetSoftButtons(); }

  shelltest::InputTitle m_Title;
};

TEST_F(SoftButtonScenesTest, EachSceneShowsHomeAndHintByItsKind) {
  ASSERT_NE(m_pScenes->GetSoftButtons(), nullptr);
  struct Case {
    unsigned long id;
    bool home, hint;
  };
  // Settings comes between scenes on purpose: it hides both, and the next scene must
  // choose again.
  const std::vector<Case> cases = {
      {9, false, false}, {10, false, false}, {11, false, false}, {12, false, false}, {3, false, false},
      {13, true, true},  {28, true, false},  {3, false, false},  {29, true, false},  {30, true, false},
      {31, true, false}, {33, true, false},  {34, true, false},  {37, true, false},  {38, true, false},
      {14, false, true}, {15, false, true},  {16, true, true},   {19, true, true},   {20, true, true},
      {27, true, true},  {39, false, false}, {44, false, false}, {16, true, true}};
  for (const Case& c : cases) {
    GoTo(c.id);
    EXPECT_EQ(Buttons().IsHomeButtonVisible(), c.home) << "scene " << c.id;
    EXPECT_EQ(Buttons().IsHintButtonVisible(), c.hint) << "scene " << c.id;
  }
}

TEST_F(SoftButtonScenesTest, TheSoftButtonsSitAboveTheSceneAndTakeItsTouches) {
  GoTo(13);
  const std::list<nox::Window*>& overlays = nox::WindowManager::Get()->GetOverlays();
  EXPECT_NE(std::find(overlays.begin(), overlays.end(), &Buttons()), overlays.end());
  Touch(true, 450, 20);  // hint
  m_Title.Input();
  EXPECT_TRUE(m_pScenes->GetHintButtonTouched());
  EXPECT_FALSE(m_pScenes->GetHomeButtonTouched());
  m_pScenes->Update(17);
  nox::WindowManager::Get()->Update(17);
  EXPECT_FALSE(m_pScenes->GetHintButtonTouched());  // the mark lasted one frame
}

TEST_F(SoftButtonScenesTest, ASoftHomeTouchInAMenuLeavesItTheSameFrame) {
  GoTo(29);
  Touch(true, 20, 20);
  m_Title.Input();
  EXPECT_TRUE(m_pScenes->IsChangingScene());
  EXPECT_TRUE(Buttons().GetHomeButton()->IsTriggered());
  Touch(false, 20, 20);
  Settle();
  EXPECT_EQ(m_pScenes->GetSceneId(), 28u);
}

TEST_F(SoftButtonScenesTest, HomeInTheMainMenuPressesTheButtonAndAsksWhetherToLeaveTheGame) {
  GoTo(28);
  Touch(true, 20, 20);
  m_Title.Input();
  EXPECT_TRUE(Buttons().GetHomeButton()->IsTriggered());
  // The question is put over the paused menu, which stays where it is.
  ASSERT_TRUE(m_pScenes->IsExitPopUpOpen());
  EXPECT_EQ(m_pScenes->GetExitPopUp().GetTarget(),
            static_cast<unsigned long>(game::GameExitPopUp::kExitTitle));
  EXPECT_TRUE(m_pScenes->IsScenePaused());
  EXPECT_FALSE(m_pScenes->IsChangingScene());
  EXPECT_EQ(m_pScenes->GetSceneId(), 28u);
}

TEST_F(SoftButtonScenesTest, LockedSoftButtonsLetTheMenuStay) {
  GoTo(29);
  m_pScenes->LockSoftUI();
  Touch(true, 20, 20);
  m_Title.Input();
  EXPECT_FALSE(m_pScenes->IsChangingScene());
  m_pScenes->UnlockSoftUI();
  EXPECT_FALSE(m_pScenes->IsSoftUILocked());
}

}  // namespace
