// The reward banner: drawn through GL, its text (a new badge or a new level) shows on
// the banner where the banner's point puts it; and without its sprite files,
// notifications still queue, run in turn and end, so a scene waiting for the banner is
// never held for ever.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../engine/files/TestFiles.h"
#include "../../framework/menu/MenuTestSupport.h"
#include "core/PathRegistry.h"
#include "ostra/HostConfig.h"
#include "shell/GameRewardPopUp.h"

namespace {

namespace Host = Hollin::Ostra::Host;

using menutest::Colour;

// The banner: a panel drawn where it sits on the screen, its point "BadgeText" in the
// middle; each text a small block centred on its own origin.
const int kPanelLeft = 140, kPanelTop = 20, kPanelWidth = 200, kPanelHeight = 60;
const int kTextX = 240, kTextY = 50, kTextWidth = 40, kTextHeight = 12;
const Colour kPanelColour = {0, 0, 255, 255};
const Colour kBadgeTextColour = {0, 255, 0, 255};
const Colour kLevelTextColour = {255, 0, 0, 255};

class RewardPopUpDrawTest : public menutest::WidgetTest {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    WriteBanner();
    WriteText("RewardPopUpText", kBadgeTextColour);
    WriteText("LevelUpText", kLevelTextColour);
  }

  static assetlib::AnimDesc Desc() {
    assetlib::AnimDesc desc;
    desc.tileSize = 8;
    desc.storage = assetlib::AnimStorage::kSheet;
    // The depth of the title's art: the banner lies on the near plane.
    desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
    return desc;
  }
  // "Achieved" holds the badge's medal (one frame here); "Badge" plays for two seconds.
  void WriteBanner() {
    assetlib::AnimDesc desc = Desc();
    for (const char* name : {"Achieved", "Badge"}) {
      assetlib::AnimSequenceDesc seq;
      seq.name = name;
      seq.originX = -kPanelLeft;
      seq.originY = -kPanelTop;
      const int frames = std::string(name) == "Badge" ? 24 : 1;
      for (int f = 0; f < frames; ++f) seq.frames.push_back({{0u, "panel"}});
      seq.points.push_back({"Origin", std::vector<assetlib::AnimPoint>(frames, {false, 0, 0})});
      seq.points.push_back({"BadgeText", std::vector<assetlib::AnimPoint>(frames, {false, kTextX, kTextY})});
      desc.sequences.push_back(seq);
    }
    WriteSprite("RewardPopUp", desc, {{"panel", menutest::Filled(kPanelWidth, kPanelHeight, kPanelColour)}});
  }
  void WriteText(const char* name, Colour colour) {
    assetlib::AnimDesc desc = Desc();
    assetlib::AnimSequenceDesc seq;
    seq.name = "Idle";
    seq.originX = kTextWidth / 2;
    seq.originY = kTextHeight / 2;
    seq.frames.push_back({{0u, "text"}});
    seq.points.push_back({"Origin", {{false, 0, 0}}});
    desc.sequences.push_back(seq);
    WriteSprite(name, desc, {{"text", menutest::Filled(kTextWidth, kTextHeight, colour)}});
  }

  // Pixels of `colour` inside the panel, read from the drawn frame in one go.
  static int CountInPanel(Colour colour) {
    std::vector<uint8_t> rgba(4 * kPanelWidth * kPanelHeight);
    glReadPixels(kPanelLeft, 272 - kPanelTop - kPanelHeight, kPanelWidth, kPanelHeight, GL_RGBA,
                 GL_UNSIGNED_BYTE, rgba.data());
    int n = 0;
    for (size_t i = 0; i < rgba.size(); i += 4) {
      if (rgba[i] == colour.r && rgba[i + 1] == colour.g && rgba[i + 2] == colour.b) ++n;
    }
    return n;
  }
};

TEST_F(RewardPopUpDrawTest, TheBadgeAndTheLevelUpTextsAreDrawnOnTheBanner) {
  game::GameRewardPopUp popUp;
  nox::WindowManager::Get()->OpenWindow(&popUp, true);
  struct Case {
    const char* what;
    bool levelUp;
    Colour text;
  };
  for (const Case& c : {Case{"level up", true, kLevelTextColour}, Case{"badge", false, kBadgeTextColour}}) {
    SCOPED_TRACE(c.what);
    if (c.levelUp) {
      popUp.ShowLevelUp();
    } else {
      popUp.ShowBadge(0);
    }
    // The most of the banner and of its text seen in one frame while it shows.
    int panel = 0, text = 0;
    for (int frame = 0; frame < 200 && popUp.IsNotificationShowing(); ++frame) {
      popUp.Update(17);
      DrawFrame();
      const int p = CountInPanel(kPanelColour), t = CountInPanel(c.text);
      if (p > panel) panel = p;
      if (t > text) text = t;
    }
    EXPECT_FALSE(popUp.IsNotificationShowing());
    // The banner was up, and the text on it at its point, whole or nearly.
    EXPECT_GT(panel, kPanelWidth * kPanelHeight / 2);
    EXPECT_GE(text, kTextWidth * kTextHeight * 9 / 10);
  }
  nox::WindowManager::Get()->CloseWindow(&popUp);
}

TEST(RewardPopUpTest, NotificationsWithoutSpritesStillQueueAndEnd) {
  testfiles::TempDir dir;
  Host::HostConfig config;
  config.titlePath = dir / "title";
  config.saveRoot = dir / "players";
  config.quiet = true;
  Host::SetHostConfig(config);
  nox::PathRegistry::Create();
  {
    game::GameRewardPopUp popUp;
    EXPECT_FALSE(popUp.IsNotificationShowing());
    popUp.ShowBadge(3);
    popUp.ShowBadge(game::GameRewardPopUp::kFinalBadge);
    popUp.ShowLevelUp();
    EXPECT_TRUE(popUp.IsNotificationShowing());
    int frames = 0;
    while (popUp.IsNotificationShowing() && frames < 100) {
      popUp.Update(16);
      ++frames;
    }
    EXPECT_FALSE(popUp.IsNotificationShowing());
    popUp.Draw();
    // Destroyed with a notification still queued.
    popUp.ShowLevelUp();
  }
  nox::PathRegistry::Destroy();
  Host::SetHostConfig(Host::HostConfig());
}

}  // namespace
