// The activity picker and its stars: every star's limit on the save game, the
// setting that earns them all, the star sprites at their places saying how they are
// earned, locked activities, a double tap, Back, the reminder after a quiet while,
// and stars earned since the last visit flashing through the greeting.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "ShellMenuTestSupport.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "menu/Button.h"
#include "shell/ActivityPicker.h"
#include "shell/ActivityStars.h"
#include "shell/InactivityPrompt.h"

namespace {

using game::ActivityPicker;
using game::ActivityStars;
using noxfw::ExitReason;
using Sounds = std::vector<std::string>;

// Cards 40 by 30 in a row at y 60; Back below them; star i centred at (StarX(i), 150).
const int kCardX[4] = {20, 100, 180, 260};  // riding, archery, triplets, pin the tail
const int kCardY = 60;
int StarX(int star) {
  return 30 + 25 * star;
}
const int kStarY = 150;

class ActivityPickerTest : public shelltest::ShellMenuTest {
 protected:
  void SetUp() override {
    ShellMenuTest::SetUp();
    ActivityStars::ForgetShown();
    const char* cards[4] = {"M2_A1Button", "M2_A2Button", "M2_A3Button", "M2_A4Button"};
    for (int i = 0; i < 4; ++i) WriteButton(cards[i], 40, 30, kCardX[i], kCardY);
    WriteButton("M2_BackButton", 40, 30, 20, 220);
    WriteBackground();
    WriteStars();
  }

  void WriteBackground() {
    assetlib::AnimDesc desc;
    desc.tileSize = 8;
    desc.storage = assetlib::AnimStorage::kSheet;
    desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
    assetlib::AnimSequenceDesc idle;
    idle.name = "Idle";
    idle.frames.push_back({{0u, "sky"}});
    idle.points.push_back({"Origin", {{false, 0, 0}}});
    for (int i = 0; i < ActivityStars::kNumStars; ++i) {
      char name[16];
      snprintf(name, sizeof(name), "Star%02d", i + 1);
      idle.points.push_back({name, {{false, StarX(i), kStarY - 11}}});
    }
    desc.sequences.push_back(idle);
    WriteSprite("M2_Background", desc, {{"sky", menutest::Filled(8, 8, menutest::kOtherColour)}});
  }

  // A star 20 by 20 drawn around its middle, one frame per look.
  void WriteStars() {
    assetlib::AnimDesc desc;
    desc.tileSize = 8;
    desc.storage = assetlib::AnimStorage::kSheet;
    desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
    for (const char* look : {"Star_Gold", "Star_Gray", "Gold_Flash_Loop", "Gray_Flash_Loop"}) {
      assetlib::AnimSequenceDesc seq;
      seq.name = look;
      seq.originX = 10;
      seq.originY = 10;
      seq.frames.push_back({{0u, "star"}});
      seq.points.push_back({"Origin", {{false, 0, 0}}});
      seq.rects.push_back({"Hotspot0", {{false, -10, -10, 10, 10}}});
      desc.sequences.push_back(seq);
    }
    WriteSprite("M2_Stars", desc, {{"star", menutest::Filled(20, 20, menutest::kSelectColour)}});
  }

  ActivityPicker* Show() {
    ActivityPicker* picker = new ActivityPicker();
    ShowMenu(picker);
    return picker;
  }
  ActivityPicker* Picker() { return static_cast<ActivityPicker*>(m_pMenu); }

  void Tap(int x, int y) {
    Touch(true, x, y);
    Frame();
    Touch(false, x, y);
    Frame();
  }
  // The star's sprite shows `look`.
  bool Shows(int star, const char* look) {
    const nox::TileAnimation* sprite = Picker()->GetStar(star);
    return sprite && sprite->GetCurrentSequenceIndex() ==
                         sprite->GetTileAnimData()->GetSequenceIndexByName(nox::HashString(look));
  }
  static std::vector<bool> Earned() {
    std::vector<bool> earned;
    for (int i = 0; i < ActivityStars::kNumStars; ++i) earned.push_back(ActivityStars::StarIsUnlocked(i));
    return earned;
  }
};

TEST_F(ActivityPickerTest, EachStarIsEarnedExactlyAtItsLimit) {
  game::GameSaveData& b = Block();
  struct Case {
    const char* what;
    int star;
    std::function<void()> set;
    bool earned;
  };
  const std::vector<Case> cases = {
      {"riding score 499", 0, [&] { b.ridingBestScore = 499; }, false},
      {"riding score 500", 0, [&] { b.ridingBestScore = 500; }, true},
      {"riding score 999", 1, [&] { b.ridingBestScore = 999; }, false},
      {"riding score 1000", 1, [&] { b.ridingBestScore = 1000; }, true},
      {"riding time 90000", 2, [&] { b.ridingBestTimeMS = 90000; }, true},
      {"riding time 90001", 2, [&] { b.ridingBestTimeMS = 90001; }, false},
      {"archery score 199", 3, [&] { b.archeryBestScore = 199; }, false},
      {"archery score 200", 3, [&] { b.archeryBestScore = 200; }, true},
      {"archery counter 9", 4, [&] { b.archerySecondStarCounter = 9; }, false},
      {"archery counter 10", 4, [&] { b.archerySecondStarCounter = 10; }, true},
      {"archery third counter 1", 5, [&] { b.archeryThirdStarCounter = 1; }, true},
      {"triplets 9 puzzles", 6, [&] { b.tripletsPuzzlesFinished = 9; }, false},
      {"triplets 10 puzzles", 6, [&] { b.tripletsPuzzlesFinished = 10; }, true},
      {"triplets 180 s", 7, [&] { b.tripletsBestTimeS = 180; }, true},
      {"triplets 181 s", 7, [&] { b.tripletsBestTimeS = 181; }, false},
      {"triplets 60 s", 8, [&] { b.tripletsBestTimeS = 60; }, true},
      {"triplets 61 s", 8, [&] { b.tripletsBestTimeS = 61; }, false},
      // In ms this no longer fits 32 bits, and a wrapped product would be a fast time.
      {"triplets 4294968 s", 8, [&] { b.tripletsBestTimeS = 4294968; }, false},
      {"pin the tail 10 played", 9, [&] { b.pinTailPuzzleCounts[0] = 4, b.pinTailPuzzleCounts[8] = 6; },
       false},
      {"pin the tail 11 played", 9, [&] { b.pinTailPuzzleCounts[0] = 5, b.pinTailPuzzleCounts[8] = 6; },
       true},
      {"pin the tail 21 played", 10, [&] { b.pinTailPuzzleCounts[3] = 21; }, false},
      {"pin the tail 22 played", 10, [&] { b.pinTailPuzzleCounts[3] = 22; }, true},
      {"pin the tail 34 played", 11, [&] { b.pinTailPuzzleCounts[1] = 30, b.pinTailPuzzleCounts[7] = 4; },
       false},
      {"pin the tail 35 played", 11, [&] { b.pinTailPuzzleCounts[1] = 30, b.pinTailPuzzleCounts[7] = 5; },
       true},
  };
  for (const Case& c : cases) {
    Save().ResetData();
    c.set();
    EXPECT_EQ(ActivityStars::StarIsUnlocked(c.star), c.earned) << c.what;
  }
  // Counters near their top add up without wrapping.
  Save().ResetData();
  for (uint32_t& count : b.pinTailPuzzleCounts) count = 0xFFFFFFFFu;
  EXPECT_EQ(ActivityStars::GetNumPuzzlesPlayed(), 9ull * 0xFFFFFFFFull);
  EXPECT_TRUE(ActivityStars::StarIsUnlocked(ActivityStars::kPinTheTail34));
}

TEST_F(ActivityPickerTest, ANewGameHasNoStarAndUnlockAllUnlockablesEarnsAllTwelve) {
  EXPECT_EQ(Earned(), std::vector<bool>(12, false));
  EXPECT_EQ(ActivityStars::GetUnlockedMask(), 0u);
  SetBool("Unlock All Unlockables", true);
  EXPECT_EQ(Earned(), std::vector<bool>(12, true));
  Show();
  for (int i = 0; i < ActivityStars::kNumStars; ++i) {
    EXPECT_TRUE(Picker()->IsStarGold(i)) << i;
    EXPECT_TRUE(Shows(i, "Star_Gold")) << i;
  }
  // Out of range: not earned, nothing to say.
  EXPECT_FALSE(ActivityStars::StarIsUnlocked(12));
  EXPECT_EQ(ActivityStars::GetEarnedDescription(-1).first, nullptr);
}

TEST_F(ActivityPickerTest, StarsSitBelowTheirPointsAndATouchSaysHowTheyAreEarned) {
  Block().ridingBestScore = 600;  // star 0 earned, star 1 not
  Show();
  for (int i = 0; i < ActivityStars::kNumStars; ++i) {
    const nox::Vector3 at = Picker()->GetStar(i)->GetRawPosition();
    EXPECT_EQ(at.x.ToInt(), StarX(i)) << i;
    EXPECT_EQ(at.y.ToInt(), kStarY) << i;
  }
  RunScript(Picker()->GetSequencer());
  TakeSounds();

  Tap(StarX(0), kStarY);
  EXPECT_TRUE(Shows(0, "Gold_Flash_Loop"));
  EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_DefaultClickSfx_6", "KDNA0026"}));
  Tap(StarX(1), kStarY);  // the first star's lines are cut short, and it is still again
  EXPECT_TRUE(Shows(0, "Star_Gold"));
  EXPECT_TRUE(Shows(1, "Gray_Flash_Loop"));
  EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_DefaultClickSfx_6", "KDNA0027"}));
  // Pin the tail's first stars say two lines.
  Tap(StarX(9), kStarY);
  EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_DefaultClickSfx_6", "KDNA0023", "KDNA0022"}));
  RunScript(Picker()->GetSequencer());
  EXPECT_TRUE(Shows(9, "Star_Gray"));
  // A star is not a button: nothing was chosen.
  EXPECT_TRUE(m_pScenes->reasons.empty());
  EXPECT_EQ(Picker()->GetSelected(), nullptr);
}

TEST_F(ActivityPickerTest, ALockedActivityIsInvalidAndAnUnlockedOneIsChosenOnce) {
  SetBool("Unlock All Games", false);
  Save().SetData_SceneUnlocked(16, true);  // riding only
  Show();
  EXPECT_FALSE(Picker()->GetActivityButton(ActivityPicker::kRiding)->IsLocked());
  EXPECT_TRUE(Picker()->GetActivityButton(ActivityPicker::kArchery)->IsLocked());
  RunScript(Picker()->GetSequencer());
  TakeSounds();

  Tap(kCardX[1] + 10, kCardY + 10);  // archery
  EXPECT_EQ(TakeSounds(), Sounds{"h_OSTM_DeadClickSfx_6"});
  RunScript(Picker()->GetSequencer());
  EXPECT_TRUE(m_pScenes->reasons.empty());
  EXPECT_FALSE(Picker()->IsInputLocked());

  // A double tap on riding: the first tap chooses and locks, the second is not heard.
  Tap(kCardX[0] + 10, kCardY + 10);
  Tap(kCardX[0] + 12, kCardY + 12);
  EXPECT_EQ(TakeSounds(), Sounds{"h_OSTM_MenuSelectSfx_6"});
  EXPECT_EQ(Picker()->GetSelectedId(), ActivityPicker::kRiding);
  RunScript(Picker()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, std::vector<ExitReason::eExitReason>{ExitReason::Complete});
}

TEST_F(ActivityPickerTest, BackLeavesWithBackAndTheBackButtonIsTheFifthChoice) {
  Show();
  RunScript(Picker()->GetSequencer());
  TakeSounds();
  menutest::TestButtons() = 0x20;  // B
  Frame();
  menutest::TestButtons() = 0;
  Frame();
  EXPECT_EQ(TakeSounds(), Sounds{"h_OSTM_BackSfx_6"});
  RunScript(Picker()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, std::vector<ExitReason::eExitReason>{ExitReason::Back});

  m_pScenes->reasons.clear();
  Show();
  RunScript(Picker()->GetSequencer());
  TakeSounds();
  Tap(30, 230);
  EXPECT_EQ(Picker()->GetSelectedId(), ActivityPicker::kBack);
  EXPECT_EQ(TakeSounds(), Sounds{"h_OSTM_BackSfx_6"});
  RunScript(Picker()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, std::vector<ExitReason::eExitReason>{ExitReason::Complete});
  EXPECT_EQ(ActivityPicker::GetActivitySceneId(ActivityPicker::kArchery), 17u);
  EXPECT_EQ(ActivityPicker::GetActivitySceneId(ActivityPicker::kBack), 0u);
}

TEST_F(ActivityPickerTest, TheGreetingAndTheReminderAfterAQuietWhile) {
  Show();
  EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_PromptSfx_6", "KDNA0008"}));
  RunScript(Picker()->GetSequencer());
  const int frames = static_cast<int>(game::InactivityPrompt::kDelayMs / 100);
  for (int i = 0; i < frames - 2; ++i) Frame(100);
  EXPECT_TRUE(TakeSounds().empty());
  Frame(100);
  Frame(100);
  EXPECT_EQ(TakeSounds(), Sounds{"KDNA0009"});
  // A touch restarts the wait.
  RunScript(Picker()->GetSequencer());
  for (int i = 0; i < frames / 2; ++i) Frame(100);
  Tap(StarX(4), kStarY);
  TakeSounds();
  RunScript(Picker()->GetSequencer());
  for (int i = 0; i < frames / 2; ++i) Frame(100);
  EXPECT_TRUE(TakeSounds().empty());
}

TEST_F(ActivityPickerTest, StarsEarnedSinceTheLastVisitFlashThroughTheGreeting) {
  Show();
  EXPECT_TRUE(Shows(3, "Star_Gray"));
  Frame();
  EXPECT_TRUE(Shows(3, "Star_Gray"));  // the first visit has nothing new
  RunScript(Picker()->GetSequencer());

  Block().archeryBestScore = 250;
  Show();
  bool flashed = false;
  for (int i = 0; i < 200 && !Picker()->GetSequencer().IsEmpty(); ++i) {
    Frame();
    flashed = flashed || (Shows(3, "Gold_Flash_Loop") && Shows(0, "Gray_Flash_Loop"));
  }
  EXPECT_TRUE(flashed);
  EXPECT_TRUE(Shows(3, "Star_Gold"));
  EXPECT_TRUE(Shows(0, "Star_Gray"));

  // Nothing new the next time.
  Show();
  for (int i = 0; i < 200 && !Picker()->GetSequencer().IsEmpty(); ++i) {
    Frame();
    EXPECT_FALSE(Shows(3, "Gold_Flash_Loop"));
  }
}

TEST_F(ActivityPickerTest, WithoutASaveGameOrStarArtThePickerStillWorks) {
  game::GameSaveGame::Destroy();
  unlink((m_Dir / "title/AnimData/M2_Stars.anim").c_str());
  ActivityPicker picker("NONE", "NONE");
  picker.Open();
  for (int i = 0; i < ActivityStars::kNumStars; ++i) EXPECT_EQ(picker.GetStar(i), nullptr);
  EXPECT_EQ(picker.FindStar(nox::Vector2(nox::Real(StarX(0)), nox::Real(kStarY))), -1);
  picker.SayStar(3);
  picker.SayStar(99);
  picker.TurnOnStarFlashLoop(true);
  for (int i = 0; i < 20; ++i) picker.Update(16);
  picker.Draw();
  EXPECT_FALSE(ActivityStars::StarIsUnlocked(0));
  game::GameSaveGame::Create();
}

}  // namespace
