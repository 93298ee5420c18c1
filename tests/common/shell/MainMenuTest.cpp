// The main menu's voice: the greeting and the reminder after a quiet while, each
// choice clicking and naming its button before the scene ends, the pad's moves naming
// the button they reach, the hint key greeting again, a paused menu holding its
// script, a menu given no voices that only clicks, and the achievement for all badges
// given on opening in the last zone.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ShellMenuTestSupport.h"
#include "menu/Button.h"
#include "save/GameBadge.h"
#include "sequencer/SoundSeqItems.h"
#include "shell/DoneSceneSeqItem.h"
#include "shell/InactivityPrompt.h"
#include "shell/MainMenu.h"

namespace {

using game::MainMenu;
using noxfw::ExitReason;
using Sounds = std::vector<std::string>;

// The buttons, 60 by 40, by ButtonIndex - 1: three on top, the journal and the badges
// below, drawn where they sit.
struct Place {
  const char* sprite;
  int x, y;
};
const Place kButtons[MainMenu::kButtonCount] = {{"M1_ActivityButton", 20, 60},
                                                {"M1_AdventureModeButton", 100, 60},
                                                {"M1_MicroModButton", 180, 60},
                                                {"M1_BadgeButton", 180, 160},
                                                {"M1_JournalButton", 20, 160}};

const uint32_t kRight = 0x4, kUp = 0x1, kA = 0x10, kB = 0x20, kHint = 0x200;

class MainMenuTest : public shelltest::ShellMenuTest {
 protected:
  void SetUp() override {
    ShellMenuTest::SetUp();
    for (const Place& b : kButtons) WriteButton(b.sprite, 60, 40, b.x, b.y);
  }
  MainMenu* Show(const char* intro = game::M1Dialogue::kIntro,
                 const char* repeat = game::M1Dialogue::kRepeat) {
    MainMenu* menu = new MainMenu(false, false, false, false, intro, repeat);
    ShowMenu(menu);
    return menu;
  }
  // Shown, greeted, and quiet.
  MainMenu* ShowQuiet() {
    MainMenu* menu = Show();
    RunScript(menu->GetSequencer());
    TakeSounds();
    return menu;
  }
  MainMenu* Menu() { return static_cast<MainMenu*>(m_pMenu); }

  // A frame's input without its update, so the script it queued can be read whole.
  static void InputOnly() {
    Hollin::Ostra::CKernelMPI().TaskSleep(17);
    nox::GameHost::s_pGameHost->Update();
    nox::Input::s_pInput->Update();
    nox::WindowManager::Get()->HandleInput();
  }
  void Press(int index) {
    const Place& b = kButtons[index - 1];
    Touch(true, b.x + 10, b.y + 10);
    InputOnly();
  }
  void Lift(int index) {
    const Place& b = kButtons[index - 1];
    Touch(false, b.x + 10, b.y + 10);
    Frame();
  }
  void PadDown(uint32_t bits) {
    menutest::TestButtons() = bits;
    InputOnly();
    menutest::TestButtons() = 0;
  }
  // The queued steps: a sound step by its sound's name, "end" for the scene's end, "?"
  // for anything else.
  Sounds Script() {
    Sounds steps;
    noxfw::Sequencer& script = Menu()->GetSequencer();
    for (auto it = script.Begin(); it != script.End(); ++it) {
      if (auto* sound = dynamic_cast<noxfw::PlayStreamingSoundSeqItem*>(*it)) {
        steps.push_back(sound->GetSound().GetName());
      } else if (dynamic_cast<game::DoneSceneSeqItem*>(*it)) {
        steps.push_back("end");
      } else {
        steps.push_back("?");
      }
    }
    return steps;
  }
  // Quiet frames of 100 ms for `ms`.
  void Wait(unsigned long ms) {
    for (unsigned long t = 0; t < ms; t += 100) Frame(100);
  }
};

TEST_F(MainMenuTest, TheGreetingOnOpeningAndTheReminderAfterAQuietWhile) {
  Show();
  EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_PromptSfx_6", "KDNA0001"}));
  RunScript(Menu()->GetSequencer());
  const unsigned long delay = game::InactivityPrompt::kDelayMs;
  Wait(delay - 200);
  EXPECT_TRUE(TakeSounds().empty());
  Wait(200);
  EXPECT_EQ(TakeSounds(), Sounds{"KDNA0002"});

  // A pad move half way restarts the wait.
  RunScript(Menu()->GetSequencer());
  Wait(delay / 2);
  PadDown(kRight);
  Frame();
  RunScript(Menu()->GetSequencer());
  TakeSounds();
  Wait(delay / 2 + 500);
  EXPECT_TRUE(TakeSounds().empty());

  // Under the exit question the menu holds still: no reminder, its script waits.
  Menu()->Pause();
  Wait(2 * delay);
  EXPECT_TRUE(TakeSounds().empty());
  Menu()->GetSequencer().AppendItem(new game::DoneSceneSeqItem(ExitReason::Complete));
  Wait(500);
  EXPECT_TRUE(m_pScenes->reasons.empty());
  Menu()->Resume();
  RunScript(Menu()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons.size(), 1u);
}

TEST_F(MainMenuTest, EachChoiceClicksThenSaysItsButtonAndOnlyThenEndsTheScene) {
  const char* const names[MainMenu::kButtonCount] = {"KDNA0003", "KDNA0004", "KDNA0005", "KDNA0006",
                                                     "KDNA0007"};
  for (int index = 1; index <= MainMenu::kButtonCount; ++index) {
    SCOPED_TRACE(kButtons[index - 1].sprite);
    m_pScenes->reasons.clear();
    ShowQuiet();
    Press(index);
    EXPECT_EQ(Menu()->GetSelectedId(), index);
    EXPECT_EQ(Script(), (Sounds{"h_OSTM_MenuSelectSfx_6", names[index - 1], "end"}));
    Lift(index);
    // A second tap while the name is said is not a second choice.
    Press(index);
    Lift(index);
    RunScript(Menu()->GetSequencer());
    EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_MenuSelectSfx_6", names[index - 1]}));
    EXPECT_EQ(m_pScenes->reasons, std::vector<ExitReason::eExitReason>{ExitReason::Complete});
  }
}

TEST_F(MainMenuTest, APadMoveClicksAndNamesTheButtonItReachesAndHintGreetsAgain) {
  Show();
  // The first move, during the greeting, focuses "Games" and cuts the greeting short.
  PadDown(kRight);
  EXPECT_EQ(Menu()->GetSelectedId(), MainMenu::kActivity);
  EXPECT_EQ(Script(), (Sounds{"h_OSTM_DefaultClickSfx_6", "KDNA0003"}));
  Frame();
  PadDown(kRight);
  EXPECT_EQ(Menu()->GetSelectedId(), MainMenu::kAdventure);
  EXPECT_EQ(Script(), (Sounds{"h_OSTM_DefaultClickSfx_6", "KDNA0004"}));
  RunScript(Menu()->GetSequencer());

  // Up from the top row goes nowhere: a click and no name.
  PadDown(kUp);
  EXPECT_EQ(Menu()->GetSelectedId(), MainMenu::kAdventure);
  EXPECT_EQ(Script(), Sounds{"h_OSTM_DefaultClickSfx_6"});
  RunScript(Menu()->GetSequencer());

  // B is no move and the main menu has nothing to go back to.
  PadDown(kB);
  EXPECT_TRUE(Script().empty());
  Frame();

  PadDown(kHint);
  EXPECT_EQ(Script(), (Sounds{"h_OSTM_HintButtonSfx_6", "KDNA0001"}));
  RunScript(Menu()->GetSequencer());

  // A chooses the button in focus, which says its name as a choice, not as a move.
  PadDown(kA);
  EXPECT_EQ(Script(), (Sounds{"h_OSTM_MenuSelectSfx_6", "KDNA0004", "end"}));
  RunScript(Menu()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, std::vector<ExitReason::eExitReason>{ExitReason::Complete});
}

TEST_F(MainMenuTest, AMenuGivenNoVoicesOnlyClicks) {
  Show("NONE", "NONE");
  EXPECT_EQ(TakeSounds(), Sounds{"h_OSTM_PromptSfx_6"});
  RunScript(Menu()->GetSequencer());
  Wait(2 * game::InactivityPrompt::kDelayMs + 200);
  EXPECT_TRUE(TakeSounds().empty());
  PadDown(kHint);
  EXPECT_EQ(Script(), Sounds{"h_OSTM_HintButtonSfx_6"});
}

TEST_F(MainMenuTest, InTheLastZoneWithEveryBadgeOpeningGivesTheAchievementOnceWithACheer) {
  using game::GameBadge;
  const Sounds greeting = {"h_OSTM_PromptSfx_6", "KDNA0001"};
  Block().currentZone = MainMenu::kLastZone;
  // One badge short, another zone, or the badges given by the setting: the greeting.
  for (int badge = 0; badge < GameBadge::eBadgeAllBadges; ++badge) Save().SetData_Badge(badge, true);
  Show();
  EXPECT_EQ(TakeSounds(), greeting);
  Save().SetData_Badge(GameBadge::eBadgeAllBadges, true);
  SetBool("Award All Badges", true);
  Show();
  EXPECT_EQ(TakeSounds(), greeting);
  SetBool("Award All Badges", false);
  Block().currentZone = MainMenu::kLastZone - 1;
  Show();
  EXPECT_EQ(TakeSounds(), greeting);
  EXPECT_FALSE(Save().GetStoryFlag(GameBadge::kAllBadgesAchievement));

  Block().currentZone = MainMenu::kLastZone;
  Show();
  EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_PromptSfx_6", "SFX_BadgeVictory", "KDNA0001"}));
  EXPECT_TRUE(Save().GetStoryFlag(GameBadge::kAllBadgesAchievement));
  Show();
  EXPECT_EQ(TakeSounds(), greeting);
}

}  // namespace
