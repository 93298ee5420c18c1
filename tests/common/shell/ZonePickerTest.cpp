// The zone picker: the rune counts written on the cards, locked zones that only click,
// the setting that opens them all, the highlight on the zone being played, the voice
// of a choice, and the greeting once the story is done.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ShellMenuTestSupport.h"
#include "graphics/TileAnimation.h"
#include "menu/Button.h"
#include "shell/ZonePicker.h"

namespace {

using game::ZonePicker;
using noxfw::ExitReason;
using Sounds = std::vector<std::string>;

// Cards 40 by 30 in a row at y 100, x 20 + 80 i.
int CardX(int zone) {
  return 20 + 80 * zone;
}
const int kCardY = 100;

class ZonePickerTest : public shelltest::ShellMenuTest {
 protected:
  void SetUp() override {
    ShellMenuTest::SetUp();
    for (int zone = 0; zone < ZonePicker::kZoneCount; ++zone) WriteZone(zone);
    WriteButton("M6_Star", 10, 10);
  }
  // A card like WriteButton's, with its name sequence and its points Runes and Star.
  void WriteZone(int zone) {
    assetlib::AnimDesc desc;
    desc.tileSize = 8;
    desc.storage = assetlib::AnimStorage::kSheet;
    desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
    const std::string name = "Zone" + std::to_string(zone + 1);
    const int x = CardX(zone);
    for (const char* state :
         {"Active", "Inactive", "Select", "Trigger", "Prompt", "Activate", "Highlight", name.c_str()}) {
      assetlib::AnimSequenceDesc seq;
      seq.name = state;
      seq.originX = -x;
      seq.originY = -kCardY;
      seq.frames.push_back({{0u, "card"}});
      seq.points.push_back({"Origin", {{false, 0, 0}}});
      seq.points.push_back({"Runes", {{false, x + 20, kCardY + 40}}});
      seq.points.push_back({"Star", {{false, x + 36, kCardY}}});
      seq.rects.push_back({"Hotspot0", {{false, x, kCardY, x + 40, kCardY + 30}}});
      desc.sequences.push_back(seq);
    }
    WriteSprite("M6_" + name, desc, {{"card", menutest::Filled(40, 30, menutest::kActiveColour)}});
  }

  ZonePicker* Show() {
    ZonePicker* picker = new ZonePicker();
    ShowMenu(picker);
    return picker;
  }
  ZonePicker* Picker() { return static_cast<ZonePicker*>(m_pMenu); }
  void TapZone(int zone) {
    Touch(true, CardX(zone) + 10, kCardY + 10);
    Frame();
    Touch(false, CardX(zone) + 10, kCardY + 10);
    Frame();
  }
};

TEST_F(ZonePickerTest, EachCardCountsItsRunesOverTwentyWithoutClamping) {
  game::GameSaveData& b = Block();
  b.runeBits[0] = 0;
  b.runeBits[1] = 0x000FFFFFu;  // all twenty
  b.runeBits[2] = 0x00080001u;  // the first and the twentieth
  b.runeBits[3] = 0xFFFFFFFFu;  // a word the game never writes
  b.runeBits[4] = 0x80000000u;
  Show();
  const std::vector<std::string> expected = {"0/20", "20/20", "2/20", "32/20", "1/20"};
  for (int zone = 0; zone < ZonePicker::kZoneCount; ++zone) {
    EXPECT_EQ(Picker()->GetRuneText(zone), expected[zone]) << zone;
  }
  b.runeBits[0] = 0x7;
  Picker()->DrawRuneCount();
  EXPECT_STREQ(Picker()->GetRuneText(0), "3/20");
  EXPECT_STREQ(Picker()->GetRuneText(5), "");
}

TEST_F(ZonePickerTest, LockedZonesAreInactiveAndOnlyClick) {
  // A new game: only the first zone is open.
  Show();
  EXPECT_TRUE(Picker()->GetZoneButton(1)->IsEnabled());
  for (int index = 2; index <= ZonePicker::kZoneCount; ++index) {
    EXPECT_FALSE(Picker()->GetZoneButton(index)->IsEnabled()) << index;
  }
  RunScript(Picker()->GetSequencer());
  TakeSounds();
  TapZone(2);
  EXPECT_EQ(TakeSounds(), Sounds{"h_OSTM_DeadClickSfx_6"});
  RunScript(Picker()->GetSequencer());
  EXPECT_TRUE(m_pScenes->reasons.empty());
  EXPECT_FALSE(Picker()->IsInputLocked());
  // The pad walks past them.
  Tap(0x4);  // right: with no focus yet, the first enabled card
  EXPECT_EQ(Picker()->GetSelectedId(), 1);
  Tap(0x4);
  EXPECT_EQ(Picker()->GetSelectedId(), 1);

  Block().zoneUnlocked[2] = 1;
  Show();
  EXPECT_TRUE(Picker()->GetZoneButton(3)->IsEnabled());
  EXPECT_FALSE(Picker()->GetZoneButton(2)->IsEnabled());
}

TEST_F(ZonePickerTest, UnlockAllAdventureZonesOpensEveryZone) {
  SetBool("Unlock All Adventure Zones", true);
  Show();
  for (int index = 1; index <= ZonePicker::kZoneCount; ++index) {
    EXPECT_TRUE(Picker()->GetZoneButton(index)->IsEnabled()) << index;
  }
  RunScript(Picker()->GetSequencer());
  TakeSounds();
  TapZone(4);
  RunScript(Picker()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, std::vector<ExitReason::eExitReason>{ExitReason::Complete});
  EXPECT_EQ(Picker()->GetSelectedId(), 5);
}

TEST_F(ZonePickerTest, TheZoneBeingPlayedWearsTheStarAndAChoiceMovesItAndSaysTheZone) {
  SetBool("Unlock All Adventure Zones", true);
  Block().currentZone = 2;
  Show();
  EXPECT_EQ(Picker()->GetZoneButton(3)->GetState(), noxfw::Button::kHighlight);
  EXPECT_EQ(Picker()->GetHighlightedZone(), 3);
  EXPECT_EQ(Picker()->GetHighlight()->GetRawPosition().x.ToInt(), CardX(2) + 36);
  EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_PromptSfx_6", "KDNA0107"}));
  RunScript(Picker()->GetSequencer());

  // A double tap on the second zone: one choice.
  TapZone(1);
  TapZone(1);
  RunScript(Picker()->GetSequencer());
  EXPECT_EQ(TakeSounds(), (Sounds{"h_OSTM_MenuSelectSfx_6", "KDNA0108b"}));
  EXPECT_EQ(Picker()->GetZoneButton(2)->GetState(), nox::HashString("Zone2"));
  EXPECT_EQ(Picker()->GetHighlightedZone(), 2);
  EXPECT_EQ(m_pScenes->reasons, std::vector<ExitReason::eExitReason>{ExitReason::Complete});
}

TEST_F(ZonePickerTest, OnceTheStoryIsDoneTheGreetingTellsOfTheBadges) {
  Show();
  EXPECT_STREQ(Picker()->GetOpeningVoice(), "KDNA0107");
  Block().questData[19].complete = 1;
  EXPECT_STREQ(Picker()->GetOpeningVoice(), "KDNA0014");
  for (uint8_t& badge : Block().framework.badge) badge = 1;
  EXPECT_STREQ(Picker()->GetOpeningVoice(), "KDNA0108f");
  Block().framework.badge[7] = 0;
  SetBool("Award All Badges", true);
  EXPECT_STREQ(Picker()->GetOpeningVoice(), "KDNA0107");
}

TEST_F(ZonePickerTest, BackLeavesWithBack) {
  Show();
  RunScript(Picker()->GetSequencer());
  TakeSounds();
  menutest::TestButtons() = 0x100;  // Home
  Frame();
  menutest::TestButtons() = 0;
  EXPECT_EQ(TakeSounds(), Sounds{"h_OSTM_HomeSfx_6"});
  RunScript(Picker()->GetSequencer());
  EXPECT_EQ(m_pScenes->reasons, std::vector<ExitReason::eExitReason>{ExitReason::Back});
}

}  // namespace
