// The debug settings screen through the real pad, touches and window manager: it
// walks the groups, changes a bool and a whole number within their limits (notifying
// as the setters do), repeats a held direction at most every 121 ms, scrolls a long
// group, and ends with Complete when B or a top corner has nothing left to do.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "MenuTestSupport.h"
#include "core/Settings.h"
#include "menu/DebugSettingsScene.h"

namespace {

using noxfw::DebugSettingsOverlay;
using noxfw::DebugSettingsScene;

class EndLog : public nox::EventListener<nox::Scene> {
 public:
  void OnEventOccurred(nox::Scene*, const nox::EventData*) override { ++m_Ends; }
  int m_Ends = 0;
};

int g_Notified = 0;
void CountNotice(void*, const char* name) {
  if (strcmp(name, "Sound Duck Amount") == 0) ++g_Notified;
}

class DebugSettingsTest : public menutest::WidgetTest {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    nox::Settings::Create();
    nox::Settings* s = nox::Settings::s_pSettings;
    m_Notifier.m_pReceiver = this;
    m_Notifier.m_pCallback = CountNotice;
    g_Notified = 0;
    s->RegisterU32("Sound Duck Amount", 20, 0, 100, 5, "1.Global", &m_Notifier);
    s->RegisterBool("Unlock All Games", true, "1.Global", nullptr);
    s->RegisterBool("Throttle Framerate", false, "2.Debug", nullptr);
    s->RegisterReal("A3_Triplet_Speed", nox::Real(50), nox::Real(0), nox::Real(100), nox::Real(1),
                    "A3.Triplets", nullptr);
    m_pScene = new DebugSettingsScene();
    m_pScene->AddEventListener(&m_Ends);
    nox::WindowManager::Get()->OpenWindow(m_pScene->GetView(0), false);
  }
  void TearDown() override {
    nox::WindowManager::Get()->CloseWindow(m_pScene->GetView(0));
    delete m_pScene;
    nox::Settings::Destroy();
    WidgetTest::TearDown();
  }
  // A frame as the scene manager runs it: input, windows, then the scene.
  void SceneFrame() {
    Frame();
    m_pScene->Update(17);
  }
  void Press(uint32_t bits) {
    menutest::TestButtons() = bits;
    SceneFrame();
    menutest::TestButtons() = 0;
    SceneFrame();
  }
  std::string Row(int row) {
    char text[80];
    Overlay().GetRowText(row, text, sizeof text);
    return text;
  }
  DebugSettingsOverlay& Overlay() { return m_pScene->GetOverlay(); }

  nox::SettingChangedNotifier m_Notifier;
  DebugSettingsScene* m_pScene = nullptr;
  EndLog m_Ends;
};

TEST_F(DebugSettingsTest, ChangesABoolAndANumberWithinTheirLimitsAndReturns) {
  nox::Settings* s = nox::Settings::s_pSettings;
  EXPECT_TRUE(Overlay().IsAtGroupList());
  EXPECT_EQ(Overlay().GetItemCount(), 3);
  EXPECT_EQ(Row(0), "1.Global -->");
  EXPECT_EQ(Row(2), "A3.Triplets -->");

  Press(0x10);  // A opens the selected group
  EXPECT_EQ(Overlay().GetGroupName(), "1.Global");
  EXPECT_EQ(Row(0), "Sound Duck Amount   [ 20 ]");
  Press(0x4);
  EXPECT_EQ(s->GetU32Value("Sound Duck Amount"), 25u);
  EXPECT_EQ(g_Notified, 1);
  for (int i = 0; i < 30; ++i) Press(0x8);
  EXPECT_EQ(s->GetU32Value("Sound Duck Amount"), 0u);  // held at the minimum
  EXPECT_EQ(g_Notified, 6);                            // only real changes notify

  Press(0x2);
  EXPECT_EQ(Row(1), "Unlock All Games   [ TRUE ]");
  Press(0x8);
  EXPECT_FALSE(s->GetBoolValue("Unlock All Games"));
  Press(0x8);
  EXPECT_FALSE(s->GetBoolValue("Unlock All Games"));
  Press(0x4);
  Press(0x4);
  EXPECT_TRUE(s->GetBoolValue("Unlock All Games"));
  EXPECT_EQ(s->GetSetting("1.Global", 1)->m_Value, nox::Real(1));

  // B inside a group goes back to the groups; the scene goes on.
  Press(0x20);
  EXPECT_TRUE(Overlay().IsAtGroupList());
  EXPECT_EQ(Overlay().GetSelection(), 0);
  EXPECT_EQ(m_Ends.m_Ends, 0);

  // Right opens a group too; the top-left corner leaves it. A long row is cut.
  s->RegisterU32("Bonus Pattern Chace(acctual % is (1-above)*this)", 15, 0, 100, 5, "2.Debug", nullptr);
  Press(0x2);
  Press(0x4);
  EXPECT_EQ(Overlay().GetGroupName(), "2.Debug");
  EXPECT_EQ(Row(1), std::string("Bonus Pattern Chace(acctual % is (1-above)*this)   [ 15 ]").substr(0, 63));
  Press(0x4);
  EXPECT_TRUE(s->GetBoolValue("Throttle Framerate"));
  Touch(true, 10, 10);
  SceneFrame();
  Touch(false, 10, 10);
  SceneFrame();
  EXPECT_TRUE(Overlay().IsAtGroupList());
  EXPECT_EQ(m_Ends.m_Ends, 0);

  // At the group list B has nothing to do: the scene ends, once.
  Press(0x20);
  EXPECT_EQ(m_Ends.m_Ends, 1);
  EXPECT_TRUE(m_pScene->IsDone());
  Press(0x20);
  Press(0x10);
  EXPECT_EQ(m_Ends.m_Ends, 1);
}

TEST_F(DebugSettingsTest, ATopCornerTouchWithNothingToDoEndsTheScene) {
  Touch(true, 470, 8);  // top right at the group list opens the group
  SceneFrame();
  Touch(false, 470, 8);
  SceneFrame();
  EXPECT_EQ(Overlay().GetGroupName(), "1.Global");
  EXPECT_EQ(m_Ends.m_Ends, 0);
  Touch(true, 200, 100);  // the middle of the screen does nothing
  SceneFrame();
  Touch(false, 200, 100);
  SceneFrame();
  EXPECT_EQ(m_Ends.m_Ends, 0);
  Touch(true, 430, 50);  // top right inside a group: nothing for the list to do
  SceneFrame();
  EXPECT_EQ(m_Ends.m_Ends, 1);
}

TEST_F(DebugSettingsTest, AHeldDirectionRepeatsAtMostEvery121Ms) {
  nox::Settings* s = nox::Settings::s_pSettings;
  for (int i = 0; i < 40; ++i) {
    s->RegisterU32(i % 2 ? "Odd" : "Even", 0, 0, 10, 1, "A3.Triplets", nullptr);
  }
  Press(0x2);
  Press(0x2);
  Press(0x10);
  EXPECT_EQ(Overlay().GetGroupName(), "A3.Triplets");
  EXPECT_EQ(Overlay().GetItemCount(), 41);
  const int rows = Overlay().GetVisibleRows();
  ASSERT_LT(rows, 41);

  // Down held for 60 frames of 17 ms (1020 ms): the first frame steps, then one step
  // each time 121 ms have gathered (every 8 frames), so 8 steps in all.
  menutest::TestButtons() = 0x2;
  for (int i = 0; i < 60; ++i) SceneFrame();
  menutest::TestButtons() = 0;
  SceneFrame();
  EXPECT_EQ(Overlay().GetSelection(), 8);

  // Far down the list the view follows the selection, and it stops at the end.
  for (int i = 0; i < 50; ++i) Press(0x2);
  EXPECT_EQ(Overlay().GetSelection(), 40);
  EXPECT_EQ(Overlay().GetFirstVisible(), 41 - rows);
  for (int i = 0; i < 45; ++i) Press(0x1);
  EXPECT_EQ(Overlay().GetSelection(), 0);
  EXPECT_EQ(Overlay().GetFirstVisible(), 0);
  EXPECT_EQ(Row(0), "A3_Triplet_Speed   [ 50.000000 ]");
  EXPECT_EQ(Row(41), "");
}

TEST(DebugSettingsRowTest, WithoutSettingsOrAScreenTheListIsEmpty) {
  DebugSettingsOverlay overlay;
  EXPECT_EQ(overlay.GetItemCount(), 0);
  EXPECT_FALSE(overlay.HandleInput());
  overlay.Update(17);
  char text[80] = "x";
  overlay.GetRowText(0, text, sizeof text);
  EXPECT_STREQ(text, "");
}

}  // namespace
