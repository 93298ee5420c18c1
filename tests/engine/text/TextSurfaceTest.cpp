// Text surfaces: the store's capacity, alignment at whole pixels, one vertex store
// for all texts, hit tests, and what reaches the screen (shadow under the text).
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include "TextFixtures.h"
#include "graphics/GLBuffer.h"
#include "graphics/GLUtils.h"
#include "graphics/TextSurface.h"

namespace {

using nox::Font;
using nox::Real;
using nox::Rectangle;
using nox::TextProperties;
using nox::TextSurface;
using nox::Vector2;

class TextSurfaceTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(texttest::Adopt(m_Font, texttest::SmallFdata(), 64 * 16)); }

  TextProperties Aligned(int32_t horizontal, int32_t vertical) {
    TextProperties props;
    props.horizontalAlignment = horizontal;
    props.verticalAlignment = vertical;
    return props;
  }

  Font m_Font;
};

TEST_F(TextSurfaceTest, ATextThatWouldOverflowTheStoreIsDroppedWhole) {
  TextSurface surface;
  surface.Initialise(Real(100), Real(50), 3);
  EXPECT_TRUE(surface.DrawText("ABA", &m_Font, Real(0), Real(0), TextProperties()));
  EXPECT_EQ(surface.GetTrianglesInUse(), 6u);
  EXPECT_FALSE(surface.DrawText("A", &m_Font, Real(0), Real(20), TextProperties()));
  EXPECT_EQ(surface.GetRecords().size(), 1u);
  EXPECT_EQ(surface.GetTrianglesInUse(), 6u);
  // Blanks take no room in the store.
  EXPECT_TRUE(surface.DrawText("  ", &m_Font, Real(0), Real(20), TextProperties()));

  surface.Clear();
  EXPECT_TRUE(surface.GetRecords().empty());
  EXPECT_EQ(surface.GetTrianglesInUse(), 0u);
  EXPECT_TRUE(surface.DrawText("AB", &m_Font, Real(0), Real(0), TextProperties()));
  EXPECT_FALSE(surface.DrawText("BA", &m_Font, Real(0), Real(0), TextProperties()));
  EXPECT_TRUE(surface.DrawText("A", &m_Font, Real(0), Real(0), TextProperties()));
  EXPECT_FALSE(surface.DrawText("A", nullptr, Real(0), Real(0), TextProperties()));
}

TEST_F(TextSurfaceTest, TextsFollowEachOtherInTheOneVertexStore) {
  TextSurface surface;
  surface.Initialise(Real(100), Real(50), 10);
  surface.DrawText("A", &m_Font, Real(0), Real(0), TextProperties());
  surface.DrawText(" B", &m_Font, Real(0), Real(0), TextProperties());
  ASSERT_EQ(surface.GetRecords().size(), 2u);
  const TextSurface::TextRecord& second = surface.GetRecords()[1];
  EXPECT_EQ(second.firstVertex, 6u);
  EXPECT_EQ(second.triangles, 2u);
  EXPECT_EQ(second.size, Vector2(Real(3 + 2 + 5), Real(10)));
  // The second text's own layout, from its own pen position 0.
  const short* b = surface.GetPositions() + 12;
  EXPECT_EQ(b[0], 5);
  EXPECT_EQ(b[4], 9);
  EXPECT_EQ(b[5], 10);
  EXPECT_EQ(surface.GetCoords()[12].Raw(), 0x1800);
}

TEST_F(TextSurfaceTest, AlignmentPlacesTheMeasuredTextInTheRectangleAtWholePixels) {
  TextSurface surface;
  surface.Initialise(Real(480), Real(272), 64);
  const Rectangle rect(Real(10), Real(20), Real(110), Real(60));  // "AB" is 13 by 10
  const struct {
    int32_t h, v;
    int x, y;
  } cases[] = {
      {TextProperties::kLeft, TextProperties::kTop, 10, 20},
      {TextProperties::kRight, TextProperties::kBottom, 97, 50},
      {TextProperties::kCentre, TextProperties::kMiddle, 53, 35},  // 53.5 is cut to 53
      {7, 7, 10, 20},                                              // unknown values align left and top
  };
  for (const auto& c : cases) {
    ASSERT_TRUE(surface.DrawText("AB", &m_Font, rect, Aligned(c.h, c.v)));
    const TextSurface::TextRecord& r = surface.GetRecords().back();
    EXPECT_EQ(r.x, Real(c.x)) << c.h;
    EXPECT_EQ(r.y, Real(c.y)) << c.v;
    EXPECT_EQ(r.rect, rect);
  }
  // A point is a rectangle of no size: a centred text is centred on it. -6.5 goes
  // through the engine's whole-pixel cut, which takes a negative half one lower.
  ASSERT_TRUE(surface.DrawText("AB", &m_Font, Real(0), Real(0),
                               Aligned(TextProperties::kCentre, TextProperties::kMiddle)));
  EXPECT_EQ(surface.GetRecords().back().x, Real(-8));
  EXPECT_EQ(surface.GetRecords().back().y, Real(-5));
}

TEST_F(TextSurfaceTest, HitTestsIncludeTheEdgesOfThePositionedSurface) {
  class Placed : public TextSurface {
   public:
    void Place(Real x, Real y) { m_Position = nox::Vector3(x, y, Real()); }
  } surface;
  surface.Initialise(Real(40), Real(20), 4);
  surface.Place(Real(100), Real(50));
  EXPECT_TRUE(surface.HitTest(Vector2(Real(100), Real(50))));
  EXPECT_TRUE(surface.HitTest(Vector2(Real(140), Real(70))));
  EXPECT_TRUE(surface.HitTestBounds(Vector2(Real(120), Real(60))));
  EXPECT_FALSE(surface.HitTest(Vector2(Real(140) + Real::FromRaw(1), Real(60))));
  EXPECT_FALSE(surface.HitTest(Vector2(Real(120), Real(50) - Real::FromRaw(1))));
}

// The frame buffer as the title draws windows: black, orthographic, depth off.
class TextOnScreenTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_Title.PutFont("Tiny_10", texttest::SmallFdata(), texttest::SmallFtex());
    m_pFont = new Font("Tiny", 10);
    ASSERT_TRUE(m_pFont->IsLoaded());
    nox::ScreenManager::GetPtr()->SetActiveScreen(0);
    nox::ApplyOrthographicProjection(nox::ScreenManager::Get(), Real(0), Real(-1000));
    glDisable(GL_DEPTH_TEST);
    glLoadIdentity();
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  }
  void TearDown() override { delete m_pFont; }

  // Red, green and blue of a virtual pixel.
  uint32_t Pixel(int x, int y) {
    unsigned char rgba[4];
    const Real fx(x), fy(y);
    nox::CaptureScreen(*nox::ScreenManager::Get(), Rectangle(fx, fy, fx + Real(1), fy + Real(1)), rgba);
    return (rgba[0] << 16) | (rgba[1] << 8) | rgba[2];
  }

  texttest::TitleWithScreen m_Title;
  Font* m_pFont = nullptr;
};

TEST_F(TextOnScreenTest, TheShadowIsDrawnFirstAndTheTextLiesOverIt) {
  TextSurface surface;
  surface.Initialise(Real(480), Real(272), 8);
  TextProperties props;
  props.shadow = true;
  props.shadowColour = nox::Vector3(Real(1), Real(0), Real(0));
  props.shadowX = 2;
  props.shadowY = 1;
  // "A"'s cell is 5 by 10: the text covers x 20..24, y 30..39; the shadow 22..26, 31..40.
  ASSERT_TRUE(surface.DrawText("A", m_pFont, Real(20), Real(30), props));
  surface.Draw();
  EXPECT_EQ(Pixel(20, 30), 0xFFFFFFu);
  EXPECT_EQ(Pixel(23, 35), 0xFFFFFFu) << "the text over its shadow";
  EXPECT_EQ(Pixel(26, 35), 0xFF0000u) << "the shadow beside the text";
  EXPECT_EQ(Pixel(23, 40), 0xFF0000u) << "the shadow under the text";
  EXPECT_EQ(Pixel(19, 35), 0u);
  EXPECT_EQ(Pixel(27, 35), 0u);
}

TEST_F(TextOnScreenTest, AnInvisibleOrEmptySurfaceDrawsNothing) {
  TextSurface surface;
  surface.Initialise(Real(480), Real(272), 8);
  surface.Draw();
  ASSERT_TRUE(surface.DrawText("A", m_pFont, Real(20), Real(30), TextProperties()));
  surface.SetVisible(false);
  surface.Draw();
  EXPECT_EQ(Pixel(22, 35), 0u);
  surface.SetVisible(true);
  surface.Draw();
  EXPECT_EQ(Pixel(22, 35), 0xFFFFFFu);
}

TEST_F(TextOnScreenTest, FormattingIntoGLBuffersUploadsTheFullSizeOfTheText) {
  nox::GLBuffer positions;
  nox::GLBuffer coords;
  unsigned long triangles = 0;
  Vector2 size;
  m_pFont->FormatText("A B", positions, coords, &triangles, &size);
  EXPECT_EQ(triangles, 4u);
  EXPECT_EQ(size.x, Real(16));
  GLint bytes = 0;
  positions.Bind();
  glGetBufferParameteriv(GL_ARRAY_BUFFER, GL_BUFFER_SIZE, &bytes);
  EXPECT_EQ(bytes, 3 * 24);
  coords.Bind();
  glGetBufferParameteriv(GL_ARRAY_BUFFER, GL_BUFFER_SIZE, &bytes);
  EXPECT_EQ(bytes, 3 * 48);
  coords.UnBind();
}

}  // namespace
