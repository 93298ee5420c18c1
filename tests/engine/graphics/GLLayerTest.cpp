// The GL layer on Mesa's GL ES 1.1: the texture bind cache against the real binding,
// texture life, the format tables, exact texel placement by DrawTexture under the
// screen's projection (upright and upside down), the window projections' matrices,
// CopyTexture's sizes and pieces, and CaptureScreen's row order.
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

#include "GLTestSupport.h"
#include "graphics/GLTexture.h"
#include "graphics/GLUtils.h"
#include "graphics/Window.h"

namespace {

using gltest::kBlack;
using gltest::kBlue;
using gltest::kGreen;
using gltest::kRed;
using gltest::Rgb;
using nox::GLTexture;
using nox::Real;
using nox::Vector2;

GLuint BoundInGL() {
  GLint id = 0;
  glGetIntegerv(GL_TEXTURE_BINDING_2D, &id);
  return static_cast<GLuint>(id);
}

// Texels (0,0) red, (1,0) green, (0,1) blue, (1,1) white, in RGBA bytes.
void UploadQuadrants(GLTexture& texture) {
  const uint8_t texels[16] = {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255};
  texture.Update(2, 2, nox::PixelFormat::kByte4, texels);
}

class ProjectionWindow : public nox::Window {
 public:
  void Draw() override {}
};

void ProjectionMatrix(GLfixed out[16]) {
  glGetFixedv(GL_PROJECTION_MATRIX, out);
}

class GLLayer : public gltest::GLTest {};

}  // namespace

TEST_F(GLLayer, BindSkipsGLOnlyForTheTextureBoundLastThroughTheCache) {
  GLTexture a, b;
  a.Allocate();
  b.Allocate();
  a.Bind();
  EXPECT_EQ(BoundInGL(), a.GetTextureId());
  // Bind behind the cache's back: a second Bind of `a` must be skipped, which the
  // stale GL binding proves.
  glBindTexture(GL_TEXTURE_2D, b.GetTextureId());
  a.Bind();
  EXPECT_EQ(BoundInGL(), b.GetTextureId());
  // After UnBind the same texture is bound for real again.
  GLTexture::UnBind();
  EXPECT_EQ(BoundInGL(), 0u);
  a.Bind();
  EXPECT_EQ(BoundInGL(), a.GetTextureId());
  GLTexture::UnBind();
}

TEST_F(GLLayer, ATextureGoesFromNoIdToAnImageAndBackAndCanBeReused) {
  GLTexture t(nox::TextureFormat::kRGB);
  EXPECT_EQ(t.GetGLFormat(), static_cast<uint32_t>(GL_RGB));
  t.Free();  // nothing to free
  EXPECT_EQ(t.GetTextureId(), 0u);

  t.Allocate();
  const uint32_t id = t.GetTextureId();
  EXPECT_NE(id, 0u);
  t.Allocate();
  EXPECT_EQ(t.GetTextureId(), id);
  EXPECT_EQ(t.GetWidth(), 0);
  EXPECT_EQ(GLTexture::GetBoundTexture(), 0u);

  t.Update(64, 32, nox::PixelFormat::kRGB565, nullptr);
  EXPECT_EQ(t.GetTextureId(), id);
  EXPECT_EQ(t.GetWidth(), 64);
  EXPECT_EQ(t.GetHeight(), 32);
  EXPECT_EQ(BoundInGL(), 0u);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));

  t.Free();
  EXPECT_EQ(t.GetTextureId(), 0u);
  EXPECT_EQ(t.GetWidth(), 0);
  EXPECT_EQ(t.GetHeight(), 0);
  t.Update(8, 8, nox::PixelFormat::kRGB565, nullptr);
  EXPECT_NE(t.GetTextureId(), 0u);
}

TEST_F(GLLayer, ANewTextureGivenTheIdOfAFreedBoundOneIsReallyBound) {
  GLTexture a;
  a.Allocate();
  const uint32_t freedId = a.GetTextureId();
  a.Bind();
  a.Free();
  EXPECT_EQ(GLTexture::GetBoundTexture(), 0u);
  GLTexture b;
  b.Allocate();  // GL may well hand out the freed id again
  b.Bind();
  EXPECT_EQ(BoundInGL(), b.GetTextureId());
  if (b.GetTextureId() != freedId) GTEST_LOG_(INFO) << "GL did not reuse the id; the case is still covered";
  GLTexture::UnBind();
}

TEST(GLFormats, UploadTypesAndFormatsFollowTheirTablesWithTheirFallbacks) {
  using namespace nox;
  EXPECT_EQ(PixelFormat::GetGLType(0), static_cast<uint32_t>(GL_UNSIGNED_SHORT_4_4_4_4));
  EXPECT_EQ(PixelFormat::GetGLType(1), static_cast<uint32_t>(GL_UNSIGNED_SHORT_4_4_4_4));
  EXPECT_EQ(PixelFormat::GetGLType(2), static_cast<uint32_t>(GL_UNSIGNED_SHORT_5_5_5_1));
  EXPECT_EQ(PixelFormat::GetGLType(3), static_cast<uint32_t>(GL_UNSIGNED_SHORT_5_6_5));
  for (uint32_t f = 4; f <= 8; ++f)
    EXPECT_EQ(PixelFormat::GetGLType(f), static_cast<uint32_t>(GL_UNSIGNED_BYTE));
  EXPECT_EQ(PixelFormat::GetGLType(9), static_cast<uint32_t>(GL_UNSIGNED_SHORT_4_4_4_4));
  // A four-byte pixel in files, whatever the upload type says.
  EXPECT_EQ(PixelFormat::GetBytesPerPixel(0), 4u);
  EXPECT_EQ(PixelFormat::GetBytesPerPixel(3), 2u);
  EXPECT_EQ(PixelFormat::GetBytesPerPixel(8), 1u);
  EXPECT_EQ(PixelFormat::GetBytesPerPixel(9), 0u);

  const uint32_t formats[] = {GL_ALPHA, GL_RGB, GL_RGBA, GL_LUMINANCE, GL_LUMINANCE_ALPHA, GL_RGBA, GL_RGBA};
  for (uint32_t f = 0; f < 7; ++f) EXPECT_EQ(TextureFormat::GetGLFormat(f), formats[f]) << f;
}

TEST_F(GLLayer, DrawTexturePutsEachTexelExactlyWhereTheScreenProjectionSays) {
  GLTexture t;
  UploadQuadrants(t);
  ClearTo(kBlack);
  nox::ApplyOrthographicProjection(m_pScreen, Real(0), Real(-1000));
  glLoadIdentity();
  glEnable(GL_DEPTH_TEST);
  nox::DrawTexture(t, Vector2(Real(100), Real(50)), Vector2(Real(140), Real(90)), Vector2(Real(0), Real(0)),
                   Vector2(Real(1), Real(1)));
  EXPECT_EQ(PixelAt(100, 50), kRed);
  EXPECT_EQ(PixelAt(119, 69), kRed);
  EXPECT_EQ(PixelAt(120, 69), kGreen);
  EXPECT_EQ(PixelAt(100, 70), kBlue);
  EXPECT_EQ(PixelAt(139, 89), (Rgb{255, 255, 255}));
  EXPECT_EQ(PixelAt(99, 50), kBlack);
  EXPECT_EQ(PixelAt(140, 89), kBlack);
  EXPECT_EQ(PixelAt(100, 90), kBlack);

  // What it leaves behind.
  EXPECT_TRUE(glIsEnabled(GL_BLEND));
  EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
  EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
  EXPECT_EQ(BoundInGL(), 0u);
}

TEST_F(GLLayer, UpsideDownTheScreenProjectionTurnsTheWholePicture) {
  GLTexture t;
  UploadQuadrants(t);
  m_pScreen->SetOrientation(nox::Screen::kUpsideDown);
  ClearTo(kBlack);
  nox::ApplyOrthographicProjection(m_pScreen, Real(0), Real(-1000));
  glLoadIdentity();
  nox::DrawTexture(t, Vector2(Real(0), Real(0)), Vector2(Real(20), Real(20)), Vector2(Real(0), Real(0)),
                   Vector2(Real(1), Real(1)));
  // The virtual top left is the device's bottom right.
  EXPECT_EQ(PixelAt(479, 271), kRed);
  EXPECT_EQ(PixelAt(460, 271), kGreen);
  EXPECT_EQ(PixelAt(479, 252), kBlue);
  EXPECT_EQ(PixelAt(0, 0), kBlack);
}

TEST_F(GLLayer, WindowProjectionsBuildTheirBoxesFromTheWindowSize) {
  ProjectionWindow window;
  window.SetSize(Vector2(Real(200), Real(100)));
  window.SetScreen(m_pScreen);
  GLfixed m[16];
  const int kTolerance = 4;  // raw units; the driver works in float

  nox::ApplyOrthographicProjection(&window, Real(0), Real(-1000));
  ProjectionMatrix(m);
  EXPECT_NEAR(m[0], 0x10000 / 100, kTolerance);  // 2 / 200
  EXPECT_NEAR(m[5], -0x10000 / 50, kTolerance);  // 2 / (0 - 100): y down
  EXPECT_NEAR(m[12], -0x10000, kTolerance);      // left edge at -1
  EXPECT_NEAR(m[13], 0x10000, kTolerance);       // top edge at +1

  window.SetCentredProjection(true);
  nox::ApplyOrthographicProjection(&window, Real(0), Real(-1000));
  ProjectionMatrix(m);
  EXPECT_NEAR(m[0], 0x10000 / 100, kTolerance);
  EXPECT_NEAR(m[12], 0, kTolerance);
  EXPECT_NEAR(m[13], 0, kTolerance);

  // Turned by 90 degrees with the size swapped: x takes the old y scale and the other
  // way round.
  window.SetCentredProjection(false);
  m_pScreen->SetOrientation(nox::Screen::kSideways2);
  nox::ApplyOrthographicProjection(&window, Real(0), Real(-1000));
  ProjectionMatrix(m);
  EXPECT_NEAR(m[0], 0, kTolerance);
  EXPECT_NEAR(m[1], 0x10000 / 50, kTolerance);   // 2 / 100
  EXPECT_NEAR(m[4], 0x10000 / 100, kTolerance);  // -(2 / (0 - 200))
  EXPECT_NEAR(m[12], -0x10000, kTolerance);
  EXPECT_NEAR(m[13], -0x10000, kTolerance);

  GLint mode = 0;
  glGetIntegerv(GL_MATRIX_MODE, &mode);
  EXPECT_EQ(mode, GL_MODELVIEW);
}

TEST_F(GLLayer, PerspectiveTakesTheVerticalFieldAndTheWindowsAspect) {
  ProjectionWindow window;
  window.SetSize(Vector2(Real(200), Real(100)));
  GLfixed m[16];
  nox::ApplyPerspectiveProjection(&window, Real(90), Real(1), Real(100));
  ProjectionMatrix(m);
  // ymax = tan(45) = 1, xmax = 2: 2n / (r - l) = 0.5 and 2n / (t - b) = 1.
  EXPECT_NEAR(m[0], 0x8000, 64);
  EXPECT_NEAR(m[5], 0x10000, 64);
  EXPECT_NEAR(m[11], -0x10000, 4);
}

TEST_F(GLLayer, CopyTextureSizesTheDestinationOnlyWhenItDiffers) {
  GLTexture source(nox::TextureFormat::kRGB);
  GLTexture same(nox::TextureFormat::kRGB);
  GLTexture other(nox::TextureFormat::kRGB);
  source.Update(64, 64, nox::PixelFormat::kRGB565, nullptr);
  same.Update(64, 64, nox::PixelFormat::kRGB565, nullptr);
  other.Update(16, 16, nox::PixelFormat::kRGB565, nullptr);
  const uint32_t sameId = same.GetTextureId();

  nox::ApplyOrthographicProjection(m_pScreen, Real(0), Real(-1000));
  nox::CopyTexture(source, same);
  EXPECT_EQ(same.GetTextureId(), sameId);
  EXPECT_EQ(same.GetWidth(), 64);
  nox::CopyTexture(source, other);
  EXPECT_EQ(other.GetWidth(), 64);
  EXPECT_EQ(other.GetHeight(), 64);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_EQ(BoundInGL(), 0u);
}

TEST(CopyTexturePieces, FollowTheSmallSurfaceTableAndMoveBackIntoTheScreen) {
  nox::CopyRegion p[4];
  ASSERT_EQ(nox::GetCopyTexturePieces(480, 272, 100, 60, p), 1);
  EXPECT_EQ(p[0].width, 128);
  EXPECT_EQ(p[0].height, 64);

  // The screen bounds the size first: 272 rounds up to 512, past 128 both ways.
  ASSERT_EQ(nox::GetCopyTexturePieces(480, 272, 512, 512, p), 4);
  const int expected[4][4] = {{0, 0, 256, 128}, {0, 112, 256, 128}, {256, 0, 64, 128}, {256, 112, 64, 128}};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(p[i].x, expected[i][0]) << i;
    EXPECT_EQ(p[i].y, expected[i][1]) << i;
    EXPECT_EQ(p[i].width, expected[i][2]) << i;
    EXPECT_EQ(p[i].height, expected[i][3]) << i;
  }

  ASSERT_EQ(nox::GetCopyTexturePieces(480, 200, 256, 256, p), 2);
  EXPECT_EQ(p[0].y, 0);
  EXPECT_EQ(p[1].y, 200 - 128);  // moved back, never shortened
  EXPECT_EQ(p[1].height, 128);

  ASSERT_EQ(nox::GetCopyTexturePieces(480, 272, 300, 100, p), 2);
  EXPECT_EQ(p[1].x, 256);
  EXPECT_EQ(p[1].width, 64);
}

TEST(CopyTexturePieces, SidesRoundUpToPowersOfTwoUnlessTooLarge) {
  EXPECT_EQ(nox::CopySidePowerOfTwo(0), 0u);
  EXPECT_EQ(nox::CopySidePowerOfTwo(1), 1u);
  EXPECT_EQ(nox::CopySidePowerOfTwo(3), 4u);
  EXPECT_EQ(nox::CopySidePowerOfTwo(256), 256u);
  EXPECT_EQ(nox::CopySidePowerOfTwo(257), 512u);
  EXPECT_EQ(nox::CopySidePowerOfTwo(0x7FFF), 0x8000u);
  EXPECT_EQ(nox::CopySidePowerOfTwo(0x8000), 0x8000u);
  EXPECT_EQ(nox::CopySidePowerOfTwo(0x8001), 0u);
}

TEST_F(GLLayer, CaptureScreenReadsTheRectangleWithRowsFromTheBottom) {
  ClearTo(kRed);
  // Paint the top left 16 by 16 virtual pixels blue.
  glEnable(GL_SCISSOR_TEST);
  glScissor(0, 272 - 16, 16, 16);
  ClearTo(kBlue);
  glDisable(GL_SCISSOR_TEST);

  uint8_t out[4 * 4 * 2];
  // Rows 15 and 16: the bottom row of the blue square and the red row below it.
  nox::CaptureScreen(*m_pScreen, nox::Rectangle(Real(2), Real(15), Real(6), Real(17)), out);
  // GL's first row is the lower one on screen.
  EXPECT_EQ((Rgb{out[0], out[1], out[2]}), kRed);
  EXPECT_EQ((Rgb{out[16], out[17], out[18]}), kBlue);
  EXPECT_EQ((Rgb{out[28], out[29], out[30]}), kBlue);
}
