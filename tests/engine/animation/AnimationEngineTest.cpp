// The animation engine: depth order, picking, drawing in one batch with flushes on
// whole triangles, and sprites outside the view giving their texture back; and the
// plain box animation.
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include "../tiles/TileTestSupport.h"
#include "graphics/AnimationEngine.h"
#include "graphics/GLTexture.h"
#include "graphics/RectAnimation.h"
#include "graphics/RenderBuffer2D.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimFrame.h"
#include "graphics/TileAnimation.h"
#include "ostra/DisplayMPI.h"

namespace {

using nox::HashString;
using nox::Real;
using nox::RectAnimation;
using nox::TileAnimation;
using tiletest::Box;

class AnimationEngineTest : public tiletest::TitleFixture {
 protected:
  void SetUp() override {
    m_pGL = new Hollin::Ostra::OstraOpenGLConfig(2, 14);
    nox::GLTexture::ResetBoundTexture();
    glViewport(0, 0, 480, 272);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrthox(0, 480 << 16, 272 << 16, 0, 0, -(1000 << 16));
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glClearColorx(0, 0, 0, 0x10000);
  }
  void TearDown() override {
    for (TileAnimation* s : m_Sprites) delete s;
    for (nox::TileAnimData* d : m_Data) delete d;
    delete m_pGL;
  }

  // A sprite of one w by h box in `c` at the sprite's origin, stored as asked.
  TileAnimation* BoxSprite(const std::string& name, int w, int h, tiletest::Colour c,
                           assetlib::AnimStorage storage = assetlib::AnimStorage::kSheet) {
    assetlib::AnimDesc desc = tiletest::Description(8, storage, true);
    desc.maxSheet = 1024;
    desc.sequences.push_back(tiletest::Sequence("Box", {"box"}));
    WriteSprite(name, desc,
                {{"box", Box(static_cast<uint32_t>(w), static_cast<uint32_t>(h), 0, 0, w, h, c)}});
    m_Data.push_back(new nox::TileAnimData(name.c_str(), false, false));
    m_Sprites.push_back(m_Data.back()->CreateCellAnimation());
    m_Sprites.back()->Play(HashString("Box"), 0);
    return m_Sprites.back();
  }

  uint32_t Pixel(int x, int y) {
    uint8_t p[4];
    glReadPixels(x, 271 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, p);
    return static_cast<uint32_t>(p[0]) << 16 | p[1] << 8 | p[2];
  }
  void Clear() { glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT); }

  Hollin::Ostra::OstraOpenGLConfig* m_pGL = nullptr;
  std::vector<nox::TileAnimData*> m_Data;
  std::vector<TileAnimation*> m_Sprites;
};

TEST_F(AnimationEngineTest, UpdateSortsTheDeepestFirstKeepingTheListOrderOfEqualDepths) {
  nox::AnimationEngine engine;
  RectAnimation a(Real(1), Real(1)), b(Real(1), Real(1)), c(Real(1), Real(1)), d(Real(1), Real(1));
  a.SetPosition(nox::Vector3(Real(), Real(), Real(5)));
  b.SetPosition(nox::Vector3(Real(), Real(), Real(50)));
  c.SetPosition(nox::Vector3(Real(), Real(), Real(5)));
  d.SetPosition(nox::Vector3(Real(), Real(), Real::FromRaw(0x48000)));  // 4.5
  for (nox::Animation* x : {static_cast<nox::Animation*>(&a), static_cast<nox::Animation*>(&b),
                            static_cast<nox::Animation*>(&c), static_cast<nox::Animation*>(&d)})
    engine.AddAnimation(x);
  // Adding puts each one before the first whose raw depth exceeds its whole depth:
  // here always in front, so c comes before a, and the stable sort keeps them so.
  engine.Update(16);
  const std::vector<nox::Animation*> order(engine.GetAnimations().begin(), engine.GetAnimations().end());
  EXPECT_EQ(order, (std::vector<nox::Animation*>{&b, &c, &a, &d}));

  EXPECT_TRUE(engine.HasAnimation(&c));
  engine.RemoveAnimation(&c);
  engine.RemoveAnimation(&c);  // a second time does nothing
  EXPECT_FALSE(engine.HasAnimation(&c));
  EXPECT_EQ(engine.GetAnimations().size(), 3u);
}

TEST_F(AnimationEngineTest, FindAnimationAnswersTheFirstHitInDepthOrderByBoundsOrByTiles) {
  TileAnimation* near = BoxSprite("Near", 16, 16, {255, 0, 0, 255});
  TileAnimation* far = BoxSprite("Far", 16, 16, {0, 255, 0, 255});
  near->SetPosition(Real(100), Real(100), Real(1));
  far->SetPosition(Real(108), Real(100), Real(9));
  nox::AnimationEngine engine;
  engine.AddAnimation(near);
  engine.AddAnimation(far);
  EXPECT_EQ(engine.FindAnimation(nox::Vector2(Real(110), Real(105)), true), far);
  EXPECT_EQ(engine.FindAnimation(nox::Vector2(Real(102), Real(105)), false), near);
  EXPECT_EQ(engine.FindAnimation(nox::Vector2(Real(130), Real(105)), true), nullptr);
}

TEST_F(AnimationEngineTest, TheBatchIsDrawnAfter339VerticesSoNoTriangleIsSplit) {
  // 56 tiles are 336 vertices and stay gathered; 57 are 342, drawn at 339 with 3 left.
  TileAnimation* small = BoxSprite("Small", 8 * 56, 8, {255, 255, 255, 255});
  TileAnimation* large = BoxSprite("Large", 8 * 57, 8, {255, 255, 255, 255});
  nox::RenderBuffer2D buffer;
  small->DrawBuffered(buffer);
  EXPECT_EQ(buffer.GetVertexCount(), 336);
  buffer.Flush();
  large->DrawBuffered(buffer);
  EXPECT_EQ(buffer.GetVertexCount(), 3);
  buffer.Flush();

  // The corners are whole pixels wherever the sprite stands.
  small->SetPosition(Real::FromRaw(0x108000), Real::FromRaw(-0x14000));  // 16.5, -1.25
  small->DrawBuffered(buffer);
  const nox::Vertex2D* v = buffer.GetVertices();
  EXPECT_EQ(v[0].x, Real(16));
  EXPECT_EQ(v[0].y, Real(-2));
  EXPECT_EQ(v[1].x, Real(24));
  EXPECT_EQ(v[2].y, Real(6));
  EXPECT_EQ(v[0].a, 255);
  buffer.Flush();
}

TEST_F(AnimationEngineTest, TheEngineDrawsBackToFrontAndSpritesOffTheViewGiveTheirTextureBack) {
  TileAnimation* near = BoxSprite("Near", 16, 16, {255, 0, 0, 255});
  TileAnimation* far = BoxSprite("Far", 24, 24, {0, 0, 255, 255}, assetlib::AnimStorage::kFrames);
  near->SetPosition(Real(100), Real(100), Real(1));
  far->SetPosition(Real(96), Real(96), Real(9));
  nox::AnimationEngine engine;
  engine.AddAnimation(near);
  engine.AddAnimation(far);
  engine.Update(0);
  Clear();
  engine.Draw();
  EXPECT_EQ(Pixel(104, 104), 0xFF0000u);  // the nearer covers
  EXPECT_EQ(Pixel(97, 97), 0x0000FFu);
  EXPECT_EQ(Pixel(130, 130), 0u);
  EXPECT_NE(far->GetFrameHolder()->GetTexture()->GetTextureId(), 0u);

  // Out of view: not drawn, its fetched frame's texture freed; back in view, fetched again.
  engine.SetViewRect(nox::Rectangle(Real(0), Real(0), Real(95), Real(95)));
  Clear();
  engine.Draw();
  EXPECT_EQ(far->GetFrameHolder()->GetTexture()->GetTextureId(), 0u);
  EXPECT_EQ(Pixel(97, 97), 0u);
  engine.SetViewRect(nox::Rectangle(Real(0), Real(0), Real(480), Real(272)));
  Clear();
  engine.Draw();
  EXPECT_EQ(Pixel(97, 97), 0x0000FFu);

  far->SetVisible(false);
  Clear();
  engine.Draw();
  EXPECT_EQ(Pixel(97, 97), 0u);
}

TEST_F(AnimationEngineTest, ABoxContainsItsEdgesAndDrawsFilledOrOutlined) {
  RectAnimation box(Real(20), Real(10));
  box.SetPosition(nox::Vector3(Real(200), Real(100), Real(5)));
  EXPECT_TRUE(box.ContainsPoint(nox::Vector2(Real(190), Real(95))));
  EXPECT_TRUE(box.ContainsPoint(nox::Vector2(Real(210), Real(105))));
  EXPECT_FALSE(box.ContainsPoint(nox::Vector2(Real(211), Real(100))));
  box.SetColor(nox::Vector3(Real(), Real(1), Real()));
  Clear();
  glDisable(GL_DEPTH_TEST);
  box.Draw();
  EXPECT_EQ(Pixel(200, 100), 0x00FF00u);
  EXPECT_EQ(Pixel(215, 100), 0u);
  box.SetOutline(true);
  box.SetLineWidth(Real(1));
  Clear();
  box.Draw();
  EXPECT_EQ(Pixel(200, 100), 0u);  // hollow
  glDisableClientState(GL_VERTEX_ARRAY);
}

}  // namespace
