// Fonts: measuring and laying out glyphs, bytes without glyphs, the loader's checks
// of ".fdata" and ".ftex", and sharing through the font manager.
#include <gtest/gtest.h>

#include "TextFixtures.h"
#include "graphics/FontManager.h"

namespace {

using nox::Font;
using nox::FontManager;
using nox::Real;
using nox::Vector2;
using texttest::Bytes;

class FontTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(texttest::Adopt(m_Font, texttest::SmallFdata(), 64 * 16)); }

  Vector2 Measure(const std::string& text, unsigned long* triangles = nullptr) {
    unsigned long count = 0;
    Vector2 size = m_Font.MeasureText(text, &count);
    if (triangles) *triangles = count;
    return size;
  }

  Font m_Font;
};

TEST_F(FontTest, WidthAddsAdvancesAndSpacingButTheFirstGlyphGetsNoSpacing) {
  unsigned long triangles = 99;
  EXPECT_EQ(Measure("", &triangles), Vector2(Real(0), Real(10)));
  EXPECT_EQ(triangles, 0u);
  EXPECT_EQ(Measure("A", &triangles), Vector2(Real(6), Real(10)));
  EXPECT_EQ(triangles, 2u);
  // A: 6, then B: its spacing 2 and the later record's advance 5.
  EXPECT_EQ(Measure("AB", &triangles).x, Real(13));
  EXPECT_EQ(triangles, 4u);
  EXPECT_EQ(Measure("BA").x, Real(5 + 1 + 6));
  // Blanks have a width and no triangles; a leading blank makes the next glyph pay
  // its spacing.
  EXPECT_EQ(Measure("   ", &triangles).x, Real(9));
  EXPECT_EQ(triangles, 0u);
  EXPECT_EQ(Measure(" A", &triangles).x, Real(3 + 1 + 6));
  EXPECT_EQ(triangles, 2u);
}

TEST_F(FontTest, BytesWithoutGlyphsAreSkippedAsIfAbsent) {
  unsigned long triangles = 0;
  EXPECT_EQ(Measure(std::string("zA\x01\xff"
                                "B\0",
                                6),
                    &triangles),
            Measure("AB"));
  EXPECT_EQ(triangles, 4u);
  EXPECT_EQ(Measure("zzz", &triangles).x, Real(0));
  EXPECT_EQ(triangles, 0u);

  short positions[24];
  Real coords[24];
  unsigned long formatted = 0;
  Vector2 size;
  m_Font.FormatText("qAq", positions, coords, &formatted, &size);
  EXPECT_EQ(formatted, 2u);
  EXPECT_EQ(positions[0], 0) << "the missing first byte takes no room";

  Font empty;
  EXPECT_EQ(empty.MeasureText("AB", &triangles), Vector2());
  EXPECT_EQ(triangles, 0u);
  empty.FormatText("AB", positions, coords, &formatted, &size);
  EXPECT_EQ(formatted, 0u);
}

TEST_F(FontTest, FormattingWritesSixVerticesPerGlyphFromTheGlyphsCellAndCoordinates) {
  short positions[36];
  Real coords[36];
  unsigned long triangles = 0;
  Vector2 size;
  m_Font.FormatText("A B", positions, coords, &triangles, &size);
  EXPECT_EQ(triangles, 4u);
  EXPECT_EQ(size, Vector2(Real(6 + 3 + 2 + 5), Real(10)));
  // A at 0: top left, bottom left, bottom right, top left, bottom right, top right.
  const short a[12] = {0, 0, 0, 10, 5, 10, 0, 0, 5, 10, 5, 0};
  // The blank advances the pen to 9 and B's spacing to 11.
  const short b[12] = {11, 0, 11, 10, 15, 10, 11, 0, 15, 10, 15, 0};
  for (int i = 0; i < 12; ++i) {
    EXPECT_EQ(positions[i], a[i]) << i;
    EXPECT_EQ(positions[12 + i], b[i]) << i;
  }
  const int32_t bc[12] = {0x1800, 0, 0x1800, 0xA000, 0x2800, 0xA000, 0x1800, 0, 0x2800, 0xA000, 0x2800, 0};
  for (int i = 0; i < 12; ++i) EXPECT_EQ(coords[12 + i].Raw(), bc[i]) << i;
  // The first record's left coordinate is the table word: A's left of 0 is kept as 0.
  EXPECT_EQ(coords[0].Raw(), 0);
}

// A table whose one fault is named by the test.
struct Malformed {
  const char* fault;
  Bytes fdata;
  unsigned long ftexSize;
};

std::vector<Malformed> MalformedTables() {
  using texttest::GlyphSpec;
  using texttest::MakeFdata;
  const std::vector<GlyphSpec> good = texttest::SmallGlyphs();
  std::vector<Malformed> cases;
  cases.push_back({"empty file", Bytes(), 1024});
  const Bytes whole = texttest::SmallFdata();
  cases.push_back({"header cut short", Bytes(whole.begin(), whole.begin() + 7), 1024});
  Bytes cut = texttest::SmallFdata();
  cut.pop_back();
  cases.push_back({"last record cut short", cut, 1024});
  Bytes longer = texttest::SmallFdata();
  longer.push_back(0);
  cases.push_back({"bytes past the last record", longer, 1024});
  Bytes counted = texttest::SmallFdata();
  counted[0] = 0xFF;
  counted[1] = 0xFF;
  cases.push_back({"count far past the file", counted, 1024});
  cases.push_back({"no glyphs", MakeFdata(10, 64, 16, {}), 1024});
  cases.push_back({"width not a power of two", MakeFdata(10, 48, 16, good), 48 * 16});
  cases.push_back({"zero height", MakeFdata(10, 64, 0, good), 0});
  cases.push_back({"texture over 2048", MakeFdata(10, 4096, 16, good), 4096 * 16});
  cases.push_back({"line taller than the texture", MakeFdata(17, 64, 16, good), 1024});
  cases.push_back({"zero line height", MakeFdata(0, 64, 16, good), 1024});
  std::vector<GlyphSpec> outside = good;
  outside[2].right = 0x10001;
  cases.push_back({"coordinate past 1.0", MakeFdata(10, 64, 16, outside), 1024});
  std::vector<GlyphSpec> negative = good;
  negative[3].top = -1;
  cases.push_back({"negative coordinate", MakeFdata(10, 64, 16, negative), 1024});
  std::vector<GlyphSpec> reversed = good;
  std::swap(reversed[3].left, reversed[3].right);
  cases.push_back({"coordinates reversed", MakeFdata(10, 64, 16, reversed), 1024});
  std::vector<GlyphSpec> wide = good;
  wide[2].advance = 5000;
  cases.push_back({"advance of 5000", MakeFdata(10, 64, 16, wide), 1024});
  cases.push_back({"texture file too short", texttest::SmallFdata(), 1023});
  cases.push_back({"texture file too long", texttest::SmallFdata(), 1025});
  return cases;
}

TEST(FontFileTest, EveryMalformedTableIsRefusedAndLeavesTheFontEmpty) {
  for (const Malformed& m : MalformedTables()) {
    Font font;
    EXPECT_FALSE(texttest::Adopt(font, m.fdata, m.ftexSize)) << m.fault;
    EXPECT_FALSE(font.IsLoaded()) << m.fault;
    unsigned long triangles = 1;
    EXPECT_EQ(font.MeasureText("AB", &triangles), Vector2()) << m.fault;
    EXPECT_EQ(triangles, 0u);
  }
  // The first record's left coordinate is never checked: the loader claims it.
  std::vector<texttest::GlyphSpec> claimed = texttest::SmallGlyphs();
  claimed[0].left = -12345;
  Font font;
  EXPECT_TRUE(texttest::Adopt(font, texttest::MakeFdata(10, 64, 16, claimed), 1024));
}

TEST(FontFileTest, LoadFindsTheFilesByNameAndSizeAndUploadsTheTexture) {
  texttest::TitleWithScreen title;
  title.PutFont("Tiny_10", texttest::SmallFdata(), texttest::SmallFtex());
  Font font("Tiny", 10);
  ASSERT_TRUE(font.IsLoaded());
  EXPECT_EQ(font.GetName(), "Tiny");
  EXPECT_EQ(font.GetHeight(), Real(10));
  EXPECT_NE(font.GetTextureId(), 0u);
  EXPECT_EQ(font.GetWidth(), 64);
  EXPECT_EQ(font.GetHeight(), Real(10));
  EXPECT_EQ(title.Log().Count("Font:"), 0);

  font.UnLoad();
  EXPECT_FALSE(font.IsLoaded());
  EXPECT_EQ(font.GetName(), "");
  EXPECT_EQ(font.GetTextureId(), 0u);
  EXPECT_FALSE(font.Load("Tiny", 12));
  EXPECT_EQ(title.Log().Count("Font: Tiny_12 not found"), 1);
}

TEST(FontFileTest, AMalformedFileIsTreatedAsMissingWithOneLogLineNamingIt) {
  texttest::TitleWithScreen title;
  int n = 0;
  for (const Malformed& m : MalformedTables()) {
    const std::string base = "Bad" + std::to_string(n++);
    title.PutFont(base + "_10", m.fdata, Bytes(m.ftexSize, 0x80));
    Font font(base, 10);
    EXPECT_FALSE(font.IsLoaded()) << m.fault;
    EXPECT_EQ(font.GetTextureId(), 0u) << m.fault;
    EXPECT_EQ(title.Log().Count(title.Textures() + "/" + base + "_10.fdata refused"), 1) << m.fault;
  }
  EXPECT_EQ(title.Log().Count("Font:"), n) << "one line each";
}

TEST(FontManagerTest, FontsAreSharedByNameAndSizeAndLiveWhileTheyHaveUsers) {
  texttest::TitleWithScreen title;
  title.PutFont("Tiny_10", texttest::SmallFdata(), texttest::SmallFtex());
  title.PutFont("Tiny_12", texttest::SmallFdata(), texttest::SmallFtex());
  FontManager::Create();
  FontManager* fonts = FontManager::Get();
  Font* a = fonts->GetFont("Tiny", 10);
  Font* b = fonts->GetFont("Tiny", 10);
  Font* c = fonts->GetFont("Tiny", 12);
  ASSERT_NE(a, nullptr);
  EXPECT_EQ(a, b);
  EXPECT_NE(a, c);
  EXPECT_EQ(fonts->GetReferenceCount(a), 2);

  fonts->ReleaseFont(a);
  EXPECT_EQ(fonts->GetReferenceCount(a), 1);
  EXPECT_TRUE(a->IsLoaded()) << "one user is left";
  fonts->ReleaseFont(a);
  EXPECT_EQ(fonts->GetReferenceCount(a), 0);
  EXPECT_NE(fonts->GetFont("Tiny", 10), nullptr);

  // A missing font is an empty font, shared all the same, and logged once.
  Font* missing = fonts->GetFont("Nowhere", 10);
  ASSERT_NE(missing, nullptr);
  EXPECT_FALSE(missing->IsLoaded());
  EXPECT_EQ(fonts->GetFont("Nowhere", 10), missing);
  EXPECT_EQ(title.Log().Count("Font: Nowhere_10 not found"), 1);

  fonts->ReleaseFont(nullptr);
  // What is still held goes with the manager (the sanitizer's leak check sees it).
  FontManager::Destroy();
  EXPECT_EQ(FontManager::Get(), nullptr);
}

}  // namespace
