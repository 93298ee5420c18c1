// Menus worked by stylus and pad through the real input, screen and window manager:
// a press chooses at once, dragging moves the focus without choosing, the pad walks neighbours past disabled
// buttons, and a locked or paused menu takes nothing. Buttons are sprites written into a temporary title
// directory.
#include <gtest/gtest.h>

#include "MenuTestSupport.h"
#include "graphics/TileAnimation.h"
#include "menu/Button.h"
#include "menu/Menu.h"

namespace {

using noxfw::Button;
using noxfw::Menu;

// Three buttons in a row, 40 by 30, at x 20, 100 and 180, y 100. Right and left
// walk the row as a ring; Activate and Back are counted.
class RowMenu : public Menu {
 public:
  RowMenu() : Menu("RowBackground", nullptr) {
    for (int i = 0; i < 3; ++i) {
      m_pButtons[i] = CreateButton("RowButton");
      m_pButtons[i]->SetPosition(nox::Real(20 + 80 * i), nox::Real(100));
    }
    for (int i = 0; i < 3; ++i) {
      Button* left = m_pButtons[(i + 2) % 3];
      Button* right = m_pButtons[(i + 1) % 3];
      AddButton(m_pButtons[i], nullptr, nullptr, left, right, left, right);
    }
  }
  void Activate() override {
    Menu::Activate();
    ++m_Activations;
    m_LastChosen = GetSelectedId();
  }
  void Back() override {
    Menu::Back();
    ++m_Backs;
  }

  Button* m_pButtons[3] = {};
  int m_Activations = 0;
  int m_LastChosen = 0;
  int m_Backs = 0;
};

class MenuTest : public menutest::WidgetTest {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    WriteButton("RowButton");
    WriteButton("RowBackground", 480, 272);
    m_pMenu = new RowMenu();
    nox::WindowManager::Get()->OpenWindow(m_pMenu, false);
    m_pMenu->SetScreen(nox::ScreenManager::Get());
  }
  void TearDown() override {
    nox::WindowManager::Get()->CloseWindow(m_pMenu);
    delete m_pMenu;
    WidgetTest::TearDown();
  }
  Button* B(int i) const { return m_pMenu->m_pButtons[i]; }

  RowMenu* m_pMenu = nullptr;
};

TEST_F(MenuTest, APressChoosesTheButtonAtOnceAndLiftingLeavesIt) {
  Touch(true, 105, 110);
  Frame();
  EXPECT_EQ(m_pMenu->GetSelected(), B(1));
  EXPECT_EQ(m_pMenu->m_Activations, 1);
  EXPECT_EQ(m_pMenu->m_LastChosen, 2);
  EXPECT_EQ(B(1)->GetState(), Button::kActivate);
  Frame();
  Touch(true, 130, 125);  // moving about inside chooses nothing more
  Frame();
  Touch(false, 130, 125);
  Frame();
  EXPECT_EQ(m_pMenu->m_Activations, 1);
  EXPECT_EQ(B(1)->GetState(), Button::kActive);
  for (int i = 0; i < 5; ++i) Frame();
  EXPECT_EQ(m_pMenu->m_Activations, 1);

  // A second tap is a second choice.
  Stroke(110, 110, 110, 110);
  EXPECT_EQ(m_pMenu->m_Activations, 2);

  // A touch on nothing leaves the menu alone and is not taken.
  Touch(true, 300, 20);
  Frame();
  EXPECT_EQ(m_pMenu->GetSelected(), B(1));
  EXPECT_FALSE(m_pMenu->HandleInput());
  Touch(false, 300, 20);
  Frame();
  EXPECT_EQ(m_pMenu->m_Activations, 2);
}

TEST_F(MenuTest, DraggingOntoAnotherButtonMovesTheFocusWithoutChoosingIt) {
  Stroke(30, 110, 110, 110);
  EXPECT_EQ(m_pMenu->m_Activations, 1);
  EXPECT_EQ(m_pMenu->m_LastChosen, 1);
  EXPECT_EQ(m_pMenu->GetSelected(), B(1));
  EXPECT_EQ(B(0)->GetState(), Button::kActive);
  EXPECT_EQ(B(1)->GetState(), Button::kActive);  // lifted: back to active

  // Dragging onto empty screen keeps the focus where it was.
  Stroke(190, 110, 300, 200);
  EXPECT_EQ(m_pMenu->m_Activations, 2);
  EXPECT_EQ(m_pMenu->GetSelected(), B(2));
}

TEST_F(MenuTest, APressOnADisabledButtonOnlyPromptsIt) {
  m_pMenu->Select(B(0));
  m_pMenu->Disable(B(2));
  Stroke(190, 110, 190, 110);
  EXPECT_EQ(m_pMenu->GetSelected(), B(0));
  EXPECT_EQ(m_pMenu->m_Activations, 0);
  // The prompt plays once and the button looks disabled again.
  for (int i = 0; i < 30; ++i) Frame();
  EXPECT_EQ(B(2)->GetState(), Button::kInactive);
  EXPECT_FALSE(B(2)->IsEnabled());

  // A locked button takes the focus but answers with Invalid, not a choice.
  B(1)->SetLocked(true);
  Stroke(110, 110, 110, 110);
  EXPECT_EQ(m_pMenu->GetSelected(), B(1));
  EXPECT_EQ(m_pMenu->m_Activations, 0);
  Tap(0x10);
  EXPECT_EQ(m_pMenu->m_Activations, 0);
}

TEST_F(MenuTest, ThePadWalksNeighboursPastDisabledButtonsAndConfirms) {
  // No focus yet: the first move focuses the first button.
  Tap(0x4);
  EXPECT_EQ(m_pMenu->GetSelected(), B(0));
  Tap(0x4);
  EXPECT_EQ(m_pMenu->GetSelected(), B(1));
  EXPECT_EQ(B(0)->GetState(), Button::kActive);
  EXPECT_EQ(B(1)->GetState(), Button::kSelect);
  Tap(0x8);
  Tap(0x8);
  EXPECT_EQ(m_pMenu->GetSelected(), B(2));  // round the ring
  Tap(0x80);                                // right shoulder: next
  EXPECT_EQ(m_pMenu->GetSelected(), B(0));

  m_pMenu->Disable(B(1));
  Tap(0x4);
  EXPECT_EQ(m_pMenu->GetSelected(), B(2));
  // With every other button disabled, the walk comes back to where it began.
  m_pMenu->Disable(B(0));
  EXPECT_FALSE(m_pMenu->Navigate(Menu::kRight));
  EXPECT_FALSE(m_pMenu->Navigate(Menu::kLeft));
  EXPECT_EQ(m_pMenu->GetSelected(), B(2));
  // No neighbour that way at all: the focus stays.
  EXPECT_FALSE(m_pMenu->Navigate(Menu::kUp));

  Tap(0x10);
  EXPECT_EQ(m_pMenu->m_Activations, 1);
  EXPECT_EQ(m_pMenu->m_LastChosen, 3);
  Tap(0x20);
  Tap(0x100);
  EXPECT_EQ(m_pMenu->m_Backs, 2);
  EXPECT_EQ(m_pMenu->m_Activations, 1);
}

TEST_F(MenuTest, ALockedOrPausedMenuTakesNoInput) {
  for (int pass = 0; pass < 2; ++pass) {
    if (pass == 0) {
      m_pMenu->LockInput();
    } else {
      m_pMenu->Pause();
    }
    Stroke(30, 110, 30, 110);
    Tap(0x4);
    Tap(0x10);
    Tap(0x20);
    EXPECT_EQ(m_pMenu->GetSelected(), nullptr);
    EXPECT_EQ(m_pMenu->m_Activations, 0);
    EXPECT_EQ(m_pMenu->m_Backs, 0);
    m_pMenu->UnlockInput();
    m_pMenu->Resume();
  }
  Stroke(30, 110, 30, 110);
  EXPECT_EQ(m_pMenu->m_Activations, 1);
}

TEST_F(MenuTest, AButtonAddedTwiceKeepsItsFirstNeighbours) {
  m_pMenu->AddButton(B(0), B(2), B(2), B(2), B(2), B(2), B(2));
  EXPECT_EQ(m_pMenu->GetButtonCount(), 3);
  EXPECT_EQ(m_pMenu->GetNeighbour(B(0), Menu::kRight), B(1));
  EXPECT_EQ(m_pMenu->GetNeighbour(B(0), Menu::kUp), nullptr);
  m_pMenu->AddButton(nullptr);
  EXPECT_EQ(m_pMenu->GetButtonCount(), 3);
}

TEST_F(MenuTest, TheMenuDrawsItsBackgroundAndEachButtonInItsState) {
  m_pMenu->Select(B(1));
  m_pMenu->Update(0);
  DrawFrame();
  EXPECT_EQ(Pixel(30, 110), menutest::Rgb(menutest::kActiveColour));
  EXPECT_EQ(Pixel(110, 110), menutest::Rgb(menutest::kSelectColour));
  m_pMenu->Trigger();
  DrawFrame();
  EXPECT_EQ(Pixel(110, 110), menutest::Rgb(menutest::kTriggerColour));
  // A hidden button is neither drawn nor hit.
  B(2)->SetVisible(false);
  DrawFrame();
  EXPECT_EQ(m_pMenu->FindButton(nox::Vector2(nox::Real(190), nox::Real(110))), nullptr);
  EXPECT_EQ(Pixel(190, 110), menutest::Rgb(menutest::kActiveColour));  // the background shows
}

TEST(MenuWithoutArtTest, MissingSpritesLeaveAWorkingMenuThatNothingHits) {
  testfiles::TempDir dir;
  menutest::Host::HostConfig config;
  config.titlePath = dir / "title";
  config.logFile = dir / "automation.log";
  config.quiet = true;
  menutest::Host::SetHostConfig(config);
  nox::PathRegistry::Create();
  {
    Menu menu("NoSuchBackground", "NoSuchFont");
    Button* a = menu.CreateButton("NoSuchButton");
    Button* b = menu.CreateButton(nullptr);
    menu.AddButton(a, nullptr, b);
    menu.AddButton(b, a);
    EXPECT_EQ(menu.GetBackground(), nullptr);
    EXPECT_EQ(a->GetAnimation(), nullptr);
    EXPECT_FALSE(menu.PlaceButton(a, "Spot"));
    EXPECT_EQ(menu.FindButton(nox::Vector2()), nullptr);
    EXPECT_TRUE(menu.Navigate(Menu::kDown));  // focuses the first
    EXPECT_TRUE(menu.Navigate(Menu::kDown));
    EXPECT_EQ(menu.GetSelected(), b);
    EXPECT_EQ(menu.GetSelectedId(), 2);
    menu.Update(16);
    EXPECT_FALSE(menu.HandleInput());  // no input, no screen: nothing to take
  }
  nox::PathRegistry::Destroy();
  menutest::Host::SetHostConfig(menutest::Host::HostConfig());
}

}  // namespace
