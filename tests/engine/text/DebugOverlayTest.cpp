// The debug overlay: screen lines one font height apart that wrap past the bottom,
// one-frame items dropped after each Draw, fixed stores, and what reaches the screen.
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include "TextFixtures.h"
#include "debug/DebugOverlay.h"
#include "graphics/FontManager.h"
#include "graphics/GLUtils.h"

namespace {

using nox::DebugOverlay;
using nox::Real;
using nox::Rectangle;
using nox::Vector2;
using nox::Vector3;

const Vector3 kRed(Real(1), Real(0), Real(0));
const Vector3 kGreen(Real(0), Real(1), Real(0));
const Vector3 kBlue(Real(0), Real(0), Real(1));

class DebugOverlayTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // The overlay's font, 10 pixels high: 27 lines fit the 272 rows of the screen.
    m_Title.PutFont("HNCurry_10", texttest::SmallFdata(), texttest::SmallFtex());
    nox::FontManager::Create();
    DebugOverlay::Create();
    m_pOverlay = DebugOverlay::sm_pInstance;
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  }
  void TearDown() override {
    DebugOverlay::sm_pApplyCamera = nullptr;
    DebugOverlay::Destroy();
    nox::FontManager::Destroy();
  }

  uint32_t Pixel(int x, int y) {
    unsigned char rgba[4];
    const Real fx(x), fy(y);
    nox::CaptureScreen(*nox::ScreenManager::Get(), Rectangle(fx, fy, fx + Real(1), fy + Real(1)), rgba);
    return (rgba[0] << 16) | (rgba[1] << 8) | rgba[2];
  }

  texttest::TitleWithScreen m_Title;
  DebugOverlay* m_pOverlay = nullptr;
};

TEST_F(DebugOverlayTest, ScreenLinesGoDownOneFontHeightApartAndWrapToTheTopPastTheBottom) {
  EXPECT_EQ(m_pOverlay->GetLineTop(0), Real(0));
  EXPECT_EQ(m_pOverlay->GetLineTop(1), Real(10));
  EXPECT_EQ(m_pOverlay->GetLineTop(26), Real(260));
  EXPECT_EQ(m_pOverlay->GetLineTop(27), Real(0));
  EXPECT_EQ(m_pOverlay->GetLineTop(30), Real(30));

  // The 28th line lands on the first and is drawn after it.
  m_pOverlay->AddString(false, kRed, "A");
  for (int i = 1; i < 27; ++i) m_pOverlay->AddString(false, kBlue, "B%d", i);
  m_pOverlay->AddString(false, kGreen, "A");
  m_pOverlay->Draw();
  EXPECT_EQ(Pixel(2, 5), 0x00FF00u);
  EXPECT_EQ(Pixel(2, 265), 0x0000FFu) << "the 27th line, at the bottom";
}

TEST_F(DebugOverlayTest, OneFrameItemsAreDroppedAfterDrawAndPersistentOnesStayUntilCleared) {
  const Vector2 a(Real(10), Real(10));
  const Vector2 b(Real(50), Real(20));
  m_pOverlay->AddString(true, kRed, "kept %s", "line");
  m_pOverlay->AddString(false, kRed, "FPS: %u", 60u);
  m_pOverlay->AddString(true, Vector3(a), nullptr, kGreen, "at %d", 1);
  m_pOverlay->AddString(false, Vector3(b), nullptr, kGreen, "gone");
  m_pOverlay->AddPoint(true, a, nullptr, kBlue);
  m_pOverlay->AddPoint3D(false, Vector3(b), nullptr, kBlue);
  m_pOverlay->AddRect(false, Rectangle(Real(1), Real(2), Real(3), Real(4)), nullptr, kBlue);
  m_pOverlay->AddRect3D(true, Vector3(a), Vector3(b), nullptr, kBlue);
  m_pOverlay->AddLine(true, a, b, nullptr, kBlue);
  m_pOverlay->AddLine3D(false, Vector3(a), Vector3(b), nullptr, kBlue);

  m_pOverlay->Draw();
  ASSERT_EQ(m_pOverlay->GetScreenStrings().size(), 1u);
  EXPECT_STREQ(m_pOverlay->GetScreenStrings()[0].text, "kept line");
  ASSERT_EQ(m_pOverlay->GetWorldStrings().size(), 1u);
  EXPECT_STREQ(m_pOverlay->GetWorldStrings()[0].text, "at 1");
  EXPECT_EQ(m_pOverlay->GetPoints().size(), 1u);
  ASSERT_EQ(m_pOverlay->GetRects().size(), 1u);
  EXPECT_TRUE(m_pOverlay->GetRects()[0].is3D);
  ASSERT_EQ(m_pOverlay->GetLines().size(), 1u);
  EXPECT_FALSE(m_pOverlay->GetLines()[0].is3D);

  m_pOverlay->Draw();
  EXPECT_EQ(m_pOverlay->GetScreenStrings().size(), 1u) << "persistent items survive every draw";
  m_pOverlay->ClearPersistentStrings();
  EXPECT_TRUE(m_pOverlay->GetScreenStrings().empty());
  EXPECT_TRUE(m_pOverlay->GetWorldStrings().empty());
  EXPECT_EQ(m_pOverlay->GetPoints().size(), 1u) << "graphics are cleared apart from strings";
  m_pOverlay->ClearPersistentGraphics();
  EXPECT_TRUE(m_pOverlay->GetPoints().empty());
  EXPECT_TRUE(m_pOverlay->GetRects().empty());
  EXPECT_TRUE(m_pOverlay->GetLines().empty());
}

TEST_F(DebugOverlayTest, FullStoresDropNewItemsAndLongTextIsCut) {
  for (unsigned i = 0; i < DebugOverlay::kMaxScreenStrings + 5; ++i)
    m_pOverlay->AddString(true, kRed, "%u", i);
  ASSERT_EQ(m_pOverlay->GetScreenStrings().size(), DebugOverlay::kMaxScreenStrings);
  EXPECT_STREQ(m_pOverlay->GetScreenStrings().back().text, "63");
  const size_t capacity = m_pOverlay->GetScreenStrings().capacity();
  for (unsigned i = 0; i < DebugOverlay::kMaxLines + 1; ++i)
    m_pOverlay->AddLine(false, Vector2(), Vector2(), nullptr, kRed);
  EXPECT_EQ(m_pOverlay->GetLines().size(), DebugOverlay::kMaxLines);
  EXPECT_EQ(m_pOverlay->GetScreenStrings().capacity(), capacity) << "no store grows";

  m_pOverlay->ClearPersistentStrings();
  const std::string longText(300, 'A');
  m_pOverlay->AddString(false, kRed, "%s", longText.c_str());
  EXPECT_EQ(std::string(m_pOverlay->GetScreenStrings()[0].text), longText.substr(0, 127));
  m_pOverlay->Draw();
}

void ShiftRight(const nox::Camera*) {
  glTranslatex(Real(100).Raw(), 0, 0);
}

TEST_F(DebugOverlayTest, ShapesAreDrawnInTheirColourUnderTheirCamera) {
  m_pOverlay->AddRect(false, Rectangle(Real(20), Real(20), Real(60), Real(40)), nullptr, kRed);
  // A line under a camera that looks 100 pixels further left.
  DebugOverlay::sm_pApplyCamera = ShiftRight;
  int camera = 0;
  m_pOverlay->AddLine(false, Vector2(Real(20), Real(100)), Vector2(Real(60), Real(100)),
                      reinterpret_cast<const nox::Camera*>(&camera), kGreen);
  m_pOverlay->Draw();
  EXPECT_EQ(Pixel(40, 20), 0xFF0000u);
  EXPECT_EQ(Pixel(40, 30), 0u) << "an outline, not filled";
  EXPECT_EQ(Pixel(140, 100), 0x00FF00u);
  EXPECT_EQ(Pixel(40, 100), 0u);
}

TEST(DebugOverlayAloneTest, WithoutFontsTheOverlayKeepsItsItemsAndDrawsNoText) {
  texttest::TitleWithScreen title;
  DebugOverlay::Create();
  DebugOverlay* overlay = DebugOverlay::sm_pInstance;
  overlay->AddString(false, kRed, "ERROR: Assertion failed. Please report this message to a programmer.");
  EXPECT_EQ(overlay->GetLineTop(3), Real(0));
  overlay->Draw();
  EXPECT_TRUE(overlay->GetScreenStrings().empty());
  EXPECT_TRUE(nox::IsA<nox::Window>(overlay));
  EXPECT_STREQ(overlay->GetTypeInfo()->m_pName, "DebugOverlay");
  DebugOverlay::Destroy();
  EXPECT_EQ(DebugOverlay::sm_pInstance, nullptr);
}

}  // namespace
