// The scrolling background: grid and master sizes, which tiles are resident as the
// position moves (shared keys, the blank slot, jumps, a long walk checked against the
// picture), and what reaches the screen.
#include <GLES/gl.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <map>
#include <random>
#include <vector>

#include "../files/TestFiles.h"
#include "core/PathRegistry.h"
#include "graphics/GLUtils.h"
#include "graphics/PRect.h"
#include "graphics/ScreenManager.h"
#include "graphics/ScrollableQuad.h"

namespace {

using nox::PRect;
using nox::Real;
using nox::ScrollableQuad;
using nox::Vector2;
using testfiles::Bytes;

// A picture of 40 by 20 tiles of 32 by 32 pixels in 5_5_5_1. Row 0 is sky: one
// picture for all its tiles. Every other tile has a picture of its own, a solid
// colour, except the tile at (7, 5), whose data is broken.
constexpr int kWorldColumns = 40;
constexpr int kWorldRows = 20;

int PictureOf(int x, int y) {
  return y == 0 ? 0 : 1 + x + y * kWorldColumns;
}

uint16_t ColourOf(int picture) {
  const int r = picture & 31, g = (picture >> 5) & 31, b = 31 - (picture & 15);
  return static_cast<uint16_t>((r << 11) | (g << 6) | (b << 1) | 1);
}

// 8-bit red, green and blue of a 5_5_5_1 pixel, as the GL widens them.
uint32_t Widened(uint16_t p) {
  auto w = [](int v) { return static_cast<uint32_t>((v * 255 + 15) / 31); };
  return (w(p >> 11) << 16) | (w((p >> 6) & 31) << 8) | w((p >> 1) & 31);
}

void Put(Bytes& out, uint32_t v, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<unsigned char>((v >> (8 * i)) & 0xFF));
}

struct Picture {
  Bytes index;
  Bytes data;
  std::map<int, uint32_t> offsets;  // picture -> key
};

Picture MakePicture(uint16_t pixelFormat = 2) {
  Picture p;
  Put(p.index, kWorldColumns, 2);
  Put(p.index, kWorldRows, 2);
  Put(p.index, 32, 4);
  Put(p.index, pixelFormat, 2);
  Put(p.index, 0, 2);
  for (int y = 0; y < kWorldRows; ++y) {
    for (int x = 0; x < kWorldColumns; ++x) {
      const int picture = PictureOf(x, y);
      if (!p.offsets.count(picture)) {
        std::vector<uint16_t> pixels(32 * 32, ColourOf(picture));
        uLongf packedSize = compressBound(2048);
        Bytes packed(packedSize);
        compress(packed.data(), &packedSize, reinterpret_cast<const Bytes::value_type*>(pixels.data()), 2048);
        packed.resize(packedSize);
        if (x == 7 && y == 5) std::fill(packed.begin() + 2, packed.end(), 0x5A);
        p.offsets[picture] = static_cast<uint32_t>(p.data.size());
        p.data.insert(p.data.end(), packed.begin(), packed.end());
        Put(p.index, p.offsets[picture], 4);
        Put(p.index, static_cast<uint32_t>(packed.size()), 4);
      } else {
        // A tile with the picture of another shares its data, and so its key.
        const Bytes::size_type first = 12 + 8 * static_cast<size_t>(x - 1 + y * kWorldColumns);
        p.index.insert(p.index.end(), p.index.begin() + first, p.index.begin() + first + 8);
      }
    }
  }
  return p;
}

class ScrollableQuadTest : public ::testing::Test {
 protected:
  ScrollableQuadTest() : m_Log(m_Dir, Config()) {
    nox::PathRegistry::Create();
    nox::ScreenManager::Create();
    m_Picture = MakePicture();
    testfiles::WriteBytes(m_Dir / "title/Levels/Hills.til", m_Picture.index);
    testfiles::WriteBytes(m_Dir / "title/Levels/Hills-tiled.tex", m_Picture.data);
  }
  ~ScrollableQuadTest() override {
    nox::ScreenManager::Destroy();
    nox::PathRegistry::Destroy();
  }
  Hollin::Ostra::Host::HostConfig Config() const {
    Hollin::Ostra::Host::HostConfig config;
    config.titlePath = m_Dir / "title";
    config.downloadsPath = m_Dir / "downloads";
    return config;
  }

  void MoveTo(ScrollableQuad& quad, double x, double y) {
    quad.SetPosition(Vector2(Real(x), Real(y)));
    quad.Update();
  }

  // Every cell shows its world tile's slot (the blank one outside the picture), each
  // slot counts exactly the cells that show it, and the free slots are those unused.
  void ExpectConsistent(const ScrollableQuad& quad) {
    std::map<const ScrollableQuad::Slot*, int> shown;
    const PRect& region = quad.GetRegion();
    for (int r = 0; r < quad.GetRows(); ++r) {
      for (int c = 0; c < quad.GetColumns(); ++c) {
        const int x = region.left + c, y = region.top + r;
        const ScrollableQuad::Slot* slot = quad.GetScreenSlot(c, r);
        ++shown[slot];
        if (x < 0 || y < 0 || x >= kWorldColumns || y >= kWorldRows) {
          ASSERT_EQ(slot, quad.GetBlankSlot()) << x << "," << y;
        } else {
          ASSERT_NE(slot, quad.GetBlankSlot()) << x << "," << y;
          ASSERT_EQ(slot->key, m_Picture.offsets[PictureOf(x, y)]) << x << "," << y;
        }
      }
    }
    int unused = 0;
    for (uint16_t i = 0; i < quad.GetSlotCount(); ++i) {
      const ScrollableQuad::Slot& slot = quad.GetSlot(i);
      const int extra = &slot == quad.GetBlankSlot() ? 1 : 0;
      ASSERT_EQ(slot.references, shown[&slot] + extra) << "slot " << i;
      unused += slot.references == 0;
    }
    ASSERT_EQ(quad.GetFreeSlotCount(), unused);
  }

  uint32_t Pixel(int x, int y) {
    unsigned char rgba[4];
    const Real fx(x), fy(y);
    nox::CaptureScreen(*nox::ScreenManager::Get(), nox::Rectangle(fx, fy, fx + Real(1), fy + Real(1)), rgba);
    return (rgba[0] << 16) | (rgba[1] << 8) | rgba[2];
  }

  void DrawFrame(ScrollableQuad& quad) {
    nox::ApplyOrthographicProjection(nox::ScreenManager::Get(), Real(0), Real(-1000));
    glDisable(GL_DEPTH_TEST);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    quad.Draw();
  }

  testfiles::TempDir m_Dir;
  testfiles::AutomationLog m_Log;
  Picture m_Picture;
};

TEST_F(ScrollableQuadTest, TheGridCoversTheScreenWithASpareTileAroundAndTheMasterHoldsIt) {
  ScrollableQuad quad(32, 0);
  EXPECT_EQ(quad.GetColumns(), 17);
  EXPECT_EQ(quad.GetRows(), 11);
  EXPECT_EQ(quad.GetTileCount(), 187);
  EXPECT_EQ(quad.GetMasterWidth(), 512);
  EXPECT_EQ(quad.GetMasterHeight(), 512);
  EXPECT_EQ(quad.GetSlotCount(), 256);
  EXPECT_EQ(quad.GetFreeSlotCount(), 255) << "one slot is the blank";
  EXPECT_EQ(quad.GetBlankSlot()->references, 188);
  EXPECT_EQ(quad.GetRegion(), (PRect{-17, -11, 0, 0}));

  // 16 by 8 tiles of 64: the width doubles on a tie and the side with fewer slots after.
  ScrollableQuad big(64, 0);
  EXPECT_EQ(big.GetColumns(), 10);
  EXPECT_EQ(big.GetRows(), 7);
  EXPECT_EQ(big.GetMasterWidth(), 1024);
  EXPECT_EQ(big.GetMasterHeight(), 512);

  nox::ScreenManager::Get()->SetOrientation(nox::Screen::kSideways2);
  ScrollableQuad turned(32, 0);
  EXPECT_EQ(turned.GetColumns(), 11);
  EXPECT_EQ(turned.GetRows(), 17);
  nox::ScreenManager::Get()->SetOrientation(nox::Screen::kUpright);
}

TEST_F(ScrollableQuadTest, MovingWithinATileOnlyShiftsTheFraction) {
  ScrollableQuad quad(32, 0);
  ASSERT_TRUE(quad.Initialize("Hills"));
  MoveTo(quad, 40, 70);
  EXPECT_EQ(quad.GetRegion(), (PRect{0, 1, 17, 12}));
  EXPECT_EQ(quad.GetFraction(), Vector2(Real(-8), Real(-6)));
  const uint32_t loads = quad.GetTileLoads();
  MoveTo(quad, 63.5, 64);
  EXPECT_EQ(quad.GetRegion(), (PRect{0, 1, 17, 12}));
  EXPECT_EQ(quad.GetFraction(), Vector2(Real(-31), Real(0)));
  EXPECT_EQ(quad.GetTileLoads(), loads);
  ExpectConsistent(quad);
  // Below zero the division truncates and the region steps down one more.
  MoveTo(quad, -32, -1);
  EXPECT_EQ(quad.GetRegion(), (PRect{-3, -2, 14, 9}));
  EXPECT_EQ(quad.GetFraction(), Vector2(Real(-32), Real(-31)));
  ExpectConsistent(quad);
}

TEST_F(ScrollableQuadTest, TilesWithOneKeyShareASlotAndTheBlankStandsOutsideThePicture) {
  ScrollableQuad quad(32, 0);
  ASSERT_TRUE(quad.Initialize("Hills"));
  // Columns -1 to 15 and rows -1 to 9: the sky row shows 16 tiles of one picture.
  MoveTo(quad, 0, 0);
  const ScrollableQuad::Slot* sky = quad.GetScreenSlot(1, 1);
  EXPECT_EQ(sky->references, 16);
  EXPECT_EQ(quad.GetScreenSlot(16, 1), sky);
  EXPECT_EQ(quad.GetScreenSlot(0, 1), quad.GetBlankSlot());
  EXPECT_EQ(quad.GetScreenSlot(5, 0), quad.GetBlankSlot());
  EXPECT_EQ(quad.GetBlankSlot()->references, 1 + 17 + 10);
  EXPECT_EQ(quad.GetTileLoads(), 1u + 16 * 9);
  ExpectConsistent(quad);
  // One tile further right: a sky tile leaves on the left and another comes; still one slot.
  MoveTo(quad, 32, 0);
  EXPECT_EQ(quad.GetScreenSlot(0, 1), sky);
  EXPECT_EQ(sky->references, 17);
  // Far enough down that the sky row leaves: its slot is free again.
  MoveTo(quad, 32, 64);
  EXPECT_EQ(sky->references, 0);
  ExpectConsistent(quad);
}

TEST_F(ScrollableQuadTest, AJumpPastTheScreenUnloadsTheWholeRegionAndLoadsTheNewOne) {
  ScrollableQuad quad(32, 0);
  ASSERT_TRUE(quad.Initialize("Hills"));
  MoveTo(quad, 100, 100);
  const uint32_t before = quad.GetTileLoads();
  MoveTo(quad, 800, 400);
  EXPECT_EQ(quad.GetRegion(), (PRect{24, 11, 41, 22}));
  // Columns 24 to 39 and rows 11 to 19 of the picture, each a picture of its own.
  EXPECT_EQ(quad.GetTileLoads() - before, 16u * 9);
  EXPECT_EQ(quad.GetFreeSlotCount(), 255 - 16 * 9);
  ExpectConsistent(quad);
}

TEST_F(ScrollableQuadTest, AnyWalkKeepsEveryCellOnItsTileAndEverySlotCounted) {
  ScrollableQuad quad(32, 0);
  ASSERT_TRUE(quad.Initialize("Hills"));
  std::mt19937 random(7);
  std::uniform_int_distribution<int> step(-90, 90);
  double x = 200, y = 150;
  for (int i = 0; i < 300; ++i) {
    x += step(random);
    y += step(random) / 2;
    if (i % 50 == 49) x = -x;  // now and then a jump across the picture's edge
    MoveTo(quad, x, y);
    ExpectConsistent(quad);
    if (HasFatalFailure()) return;
  }
}

TEST_F(ScrollableQuadTest, TheScreenShowsThePictureAtThePositionAndRedWhereNoTileIs) {
  ScrollableQuad quad(32, 0);
  ASSERT_TRUE(quad.Initialize("Hills"));
  const int px = 37, py = 45;
  MoveTo(quad, px, py);
  DrawFrame(quad);
  for (int sy = 20; sy < 272; sy += 48) {
    for (int sx = 20; sx < 480; sx += 56) {
      const int wx = sx + px, wy = sy + py;
      if (wx % 32 < 3 || wx % 32 > 28 || wy % 32 < 3 || wy % 32 > 28) continue;  // filtered edges
      const int tx = wx / 32, ty = wy / 32;
      const uint32_t expected = tx == 7 && ty == 5 ? 0xFF0000u : Widened(ColourOf(PictureOf(tx, ty)));
      const uint32_t got = Pixel(sx, sy);
      for (int shift : {0, 8, 16})
        EXPECT_NEAR(static_cast<int>((got >> shift) & 0xFF), static_cast<int>((expected >> shift) & 0xFF), 1)
            << "screen " << sx << "," << sy << " tile " << tx << "," << ty;
    }
  }
  // Left of and above the picture: the blank slot's red.
  MoveTo(quad, -100, -100);
  DrawFrame(quad);
  EXPECT_EQ(Pixel(30, 30), 0xFF0000u);
  quad.SetEnabled(false);
  DrawFrame(quad);
  EXPECT_EQ(Pixel(30, 30), 0u);
}

TEST_F(ScrollableQuadTest, AMissingOrUndrawablePictureLeavesEverythingRed) {
  ScrollableQuad missing(32, 0);
  EXPECT_FALSE(missing.Initialize("Nowhere"));
  MoveTo(missing, 50, 50);
  for (int r = 0; r < missing.GetRows(); ++r) {
    for (int c = 0; c < missing.GetColumns(); ++c)
      EXPECT_EQ(missing.GetScreenSlot(c, r), missing.GetBlankSlot());
  }
  EXPECT_EQ(missing.GetBlankSlot()->references, 188);
  DrawFrame(missing);
  EXPECT_EQ(Pixel(240, 136), 0xFF0000u);

  Picture rgb = MakePicture(3);
  testfiles::WriteBytes(m_Dir / "title/Levels/Flat.til", rgb.index);
  testfiles::WriteBytes(m_Dir / "title/Levels/Flat-tiled.tex", rgb.data);
  ScrollableQuad flat(32, 0);
  EXPECT_FALSE(flat.Initialize("Flat"));
  EXPECT_EQ(m_Log.Count("ScrollableQuad: Flat refused: pixel format 3"), 1);
  MoveTo(flat, 50, 50);
  EXPECT_EQ(flat.GetTileLoads(), 0u);
  flat.DestroyBuffers();
  EXPECT_TRUE(flat.Initialize("Hills")) << "a quad takes a new picture after DestroyBuffers";
}

TEST(PRectTest, AMoveSplitsIntoTheCommonPartAndStripsThatLeaveAndCome) {
  PRect common, leaving[2], coming[2];
  ASSERT_TRUE(PRect::Intersect(PRect{0, 0, 10, 5}, PRect{2, -1, 12, 4}, common, leaving, coming));
  EXPECT_EQ(common, (PRect{2, 0, 10, 4}));
  EXPECT_EQ(leaving[0], (PRect{0, 0, 2, 5}));
  EXPECT_EQ(leaving[1], (PRect{2, 4, 10, 5}));
  EXPECT_EQ(coming[0], (PRect{10, -1, 12, 4}));
  EXPECT_EQ(coming[1], (PRect{2, -1, 10, 0}));
  ASSERT_TRUE(PRect::Intersect(PRect{0, 0, 10, 5}, PRect{0, 0, 10, 5}, common, leaving, coming));
  EXPECT_TRUE(leaving[0].IsEmpty() && leaving[1].IsEmpty() && coming[0].IsEmpty() && coming[1].IsEmpty());
  EXPECT_FALSE(PRect::Intersect(PRect{0, 0, 10, 5}, PRect{10, 0, 20, 5}, common, leaving, coming));
}

}  // namespace
