// Painting into a texture through the frame buffer (the dirty rectangle, the copy
// pieces, a round trip on Mesa) and the sprite batch (room, flushing, drawing).
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "GLTestSupport.h"
#include "graphics/GLTexture.h"
#include "graphics/GLUtils.h"
#include "graphics/RenderBuffer2D.h"
#include "graphics/RenderTarget.h"

namespace {

using gltest::kBlack;
using gltest::kGreen;
using gltest::kRed;
using gltest::Rgb;
using nox::CopyRegion;
using nox::Real;
using nox::Rectangle;
using nox::RenderTarget;

Rectangle Rect(int l, int t, int r, int b) {
  return Rectangle(Real(l), Real(t), Real(r), Real(b));
}

void ExpectPiece(const CopyRegion& p, int x, int y, int w, int h) {
  EXPECT_EQ(p.x, x);
  EXPECT_EQ(p.y, y);
  EXPECT_EQ(p.width, w);
  EXPECT_EQ(p.height, h);
}

// A 512 by 512 RGB texture filled with one 5_6_5 colour.
void FillTexture(nox::GLTexture& t, uint16_t colour565) {
  std::vector<uint16_t> texels(512 * 512, colour565);
  t.Update(512, 512, nox::PixelFormat::kRGB565, texels.data());
}

void ShowTexture(nox::GLTexture& t) {
  nox::DrawTexture(t, nox::Vector2(Real(0), Real(0)), nox::Vector2(Real(512), Real(512)),
                   nox::Vector2(Real(0), Real(0)), nox::Vector2(Real(1), Real(1)));
}

nox::Vertex2D V(int x, int y, int u, int v, uint8_t r, uint8_t g, uint8_t b) {
  nox::Vertex2D out;
  out.x = Real(x);
  out.y = Real(y);
  out.z = Real(0);
  out.u = Real(u);
  out.v = Real(v);
  out.r = r;
  out.g = g;
  out.b = b;
  out.a = 255;
  return out;
}

class RenderOnGL : public gltest::GLTest {
 protected:
  void SetUp() override {
    gltest::GLTest::SetUp();
    nox::ApplyOrthographicProjection(m_pScreen, Real(0), Real(-1000));
    glLoadIdentity();
  }
};

}  // namespace

TEST(RenderTargetDirt, AnEmptyRectangleIsReplacedOthersGrowAndAllIsClampedToTheScreen) {
  RenderTarget target;
  target.Bind(nullptr, false);
  EXPECT_EQ(target.GetDirtyRect(), Rectangle());
  target.Invalidate(Rect(10, 20, 30, 40));
  EXPECT_EQ(target.GetDirtyRect(), Rect(10, 20, 30, 40));
  target.Invalidate(Rect(5, 30, 20, 60));
  EXPECT_EQ(target.GetDirtyRect(), Rect(5, 20, 30, 60));
  target.Invalidate(Rect(-8, -4, 600, 300));
  EXPECT_EQ(target.GetDirtyRect(), Rect(0, 0, 480, 272));

  // Empty in one direction counts as empty.
  RenderTarget other;
  other.Invalidate(Rect(0, 0, 100, 0));
  other.Invalidate(Rect(50, 60, 70, 80));
  EXPECT_EQ(other.GetDirtyRect(), Rect(50, 60, 70, 80));
  other.UnBind();
  EXPECT_EQ(other.GetTarget(), nullptr);
}

TEST(RenderTargetPieces, SidesArePowersOfTwoAndPiecesAreMovedBackNotShortened) {
  CopyRegion p[4];
  // 300 by 40 at x = 400: W = 512 in two pieces of 256 by 64, both moved back to 224.
  ASSERT_EQ(RenderTarget::GetCopyPieces(Rect(400, 10, 700, 50), p), 2);
  ExpectPiece(p[0], 224, 10, 256, 64);
  ExpectPiece(p[1], 224, 10, 256, 64);

  ASSERT_EQ(RenderTarget::GetCopyPieces(Rect(20, 30, 60, 50), p), 1);
  ExpectPiece(p[0], 20, 30, 64, 32);
  ASSERT_EQ(RenderTarget::GetCopyPieces(Rect(200, 250, 264, 270), p), 1);
  ExpectPiece(p[0], 200, 240, 64, 32);

  ASSERT_EQ(RenderTarget::GetCopyPieces(Rect(0, 0, 100, 270), p), 2);
  ExpectPiece(p[0], 0, 0, 128, 256);
  ExpectPiece(p[1], 0, 272 - 256, 128, 256);

  // Larger than 256 both ways: the fixed pieces, whatever the rectangle.
  ASSERT_EQ(RenderTarget::GetCopyPieces(Rect(3, 3, 400, 270), p), 4);
  ExpectPiece(p[0], 0, 0, 256, 128);
  ExpectPiece(p[1], 0, 16, 256, 256);
  ExpectPiece(p[2], 224, 0, 256, 128);
  ExpectPiece(p[3], 224, 16, 256, 256);  // 225 + 256 passes 480 and is moved back
}

TEST_F(RenderOnGL, BindShowsTheTargetAndUnBindCopiesOnlyTheDirtyPiecesToTheSamePlace) {
  nox::GLTexture texture(nox::TextureFormat::kRGB);
  FillTexture(texture, 0x07E0);  // green
  RenderTarget target;
  target.Bind(&texture, false);
  EXPECT_EQ(target.GetTarget(), &texture);
  EXPECT_EQ(PixelAt(100, 100), kGreen);
  EXPECT_TRUE(glIsEnabled(GL_DITHER));
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
  EXPECT_FALSE(glIsEnabled(GL_BLEND));

  // Paint the whole frame buffer, but mark only 10 by 12 pixels: one piece of 16 by 16
  // at GL's (0, 0) goes into the texels at (0, 0).
  ClearTo(kRed);
  target.Invalidate(Rect(0, 0, 10, 12));
  target.UnBind();
  EXPECT_EQ(target.GetTarget(), nullptr);

  ClearTo(kBlack);
  ShowTexture(texture);
  EXPECT_EQ(PixelAt(0, 0), kRed);
  EXPECT_EQ(PixelAt(15, 15), kRed);
  EXPECT_EQ(PixelAt(16, 0), kGreen);
  EXPECT_EQ(PixelAt(0, 16), kGreen);

  // Nothing marked: nothing copied.
  target.Bind(&texture, false);
  ClearTo(kRed);
  target.UnBind();
  ClearTo(kBlack);
  ShowTexture(texture);
  EXPECT_EQ(PixelAt(100, 100), kGreen);
}

TEST(SpriteBatch, ReserveFlushesWhenTheStoreIsFullAndATextureChangeFlushes) {
  nox::RenderBuffer2D batch;
  EXPECT_EQ(nox::RenderBuffer2D::kMaxVertices, 341);
  EXPECT_EQ(sizeof(batch.GetVertices()[0]) * nox::RenderBuffer2D::kMaxVertices, 8184u);
  EXPECT_EQ(batch.Reserve(342), nullptr);

  // No GL context here: flushing an empty store must not touch GL, so these calls
  // are safe only because nothing was written.
  nox::GLTexture* none = nullptr;
  batch.SetTexture(none);
  EXPECT_EQ(batch.GetVertexCount(), 0);
  nox::Vertex2D* first = batch.Reserve(340);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first, batch.GetVertices());
  EXPECT_EQ(batch.GetFreeVertexCount(), 1);
  EXPECT_EQ(batch.Reserve(1), first + 340);
  EXPECT_EQ(batch.GetFreeVertexCount(), 0);
}

TEST_F(RenderOnGL, FlushDrawsEverythingGatheredInOneGoAndEmptiesTheStore) {
  nox::RenderBuffer2D batch;
  // Untextured red square at (10, 10)-(30, 30).
  nox::Vertex2D* v = batch.Reserve(6);
  v[0] = V(10, 10, 0, 0, 255, 0, 0);
  v[1] = V(10, 30, 0, 0, 255, 0, 0);
  v[2] = V(30, 30, 0, 0, 255, 0, 0);
  v[3] = v[0];
  v[4] = v[2];
  v[5] = V(30, 10, 0, 0, 255, 0, 0);

  // Changing to a texture flushes the square first.
  nox::GLTexture green(nox::TextureFormat::kRGB);
  const uint16_t texel = 0x07E0;
  green.Update(1, 1, nox::PixelFormat::kRGB565, &texel);
  ClearTo(kBlack);
  batch.SetTexture(&green);
  EXPECT_EQ(batch.GetVertexCount(), 0);
  EXPECT_EQ(PixelAt(20, 20), kRed);

  v = batch.Reserve(3);
  v[0] = V(100, 100, 0, 0, 255, 255, 255);
  v[1] = V(100, 140, 0, 1, 255, 255, 255);
  v[2] = V(140, 140, 1, 1, 255, 255, 255);
  EXPECT_EQ(PixelAt(110, 130), kBlack);  // gathered, not drawn yet
  batch.Flush();
  EXPECT_EQ(batch.GetVertexCount(), 0);
  EXPECT_EQ(PixelAt(110, 130), kGreen);
  EXPECT_EQ(PixelAt(130, 110), kBlack);  // the other half of the square was never sent
  EXPECT_FALSE(glIsEnabled(GL_COLOR_ARRAY));
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
}
