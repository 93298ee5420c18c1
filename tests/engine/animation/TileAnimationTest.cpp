// Sprites playing sprites made by animwriter: frame stepping at 12 frames a second,
// ends and loops, events, the current sequence, nil points and rectangles, anchors,
// layers, hit tests, the turn between world and animation space, fetched frames that
// share data or one deferred holder, and pictures drawn through the GL.
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "../tiles/TileTestSupport.h"
#include "graphics/CartAnimFrame.h"
#include "graphics/GLTexture.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimFrame.h"
#include "graphics/TileAnimation.h"
#include "ostra/DisplayMPI.h"

namespace {

using assetlib::Image;
using nox::HashString;
using nox::Real;
using nox::TileAnimation;
using tiletest::Box;

const nox::NameHash kCount = HashString("Count");
const nox::NameHash kStill = HashString("Still");

// "Count": ten frames, a 4 by 4 box moving right 8 pixels a frame, an event "Tick"
// on frames 2 and 5, a point "Tip" missing on odd frames, a rectangle "Flat" with
// left equal to right. "Still": one L-shaped frame, a point "Origin" at (5, -3).
class TileAnimationTest : public tiletest::TitleFixture {
 protected:
  void SetUp() override {
    assetlib::AnimDesc desc = tiletest::Description(8, assetlib::AnimStorage::kSheet, true);
    std::vector<std::string> frames;
    for (int f = 0; f < 10; ++f) {
      frames.push_back("c" + std::to_string(f));
      m_Pictures.push_back({frames.back(), Box(96, 8, f * 8, 0, f * 8 + 4, 4, {255, 255, 255, 255})});
    }
    desc.sequences.push_back(tiletest::Sequence("Count", frames));
    auto& count = desc.sequences.back();
    std::vector<uint32_t> ticks(10, 0);
    ticks[2] = 20;
    ticks[5] = 50;
    count.callbacks.push_back({"Tick", ticks});
    std::vector<assetlib::AnimPoint> tip;
    for (int f = 0; f < 10; ++f) tip.push_back({f % 2 == 1, f, 1});
    count.points.push_back({"Tip", tip});
    count.rects.push_back({"Flat", std::vector<assetlib::AnimRect>(10, {false, 3, 0, 3, 9})});

    // An L: a 16 by 8 bar over an 8 by 8 foot at the left; the cell box is 16 by 16.
    Image l = Box(16, 16, 0, 0, 16, 8, {255, 0, 0, 255});
    for (uint32_t y = 8; y < 16; ++y) {
      for (uint32_t x = 0; x < 8; ++x) memcpy(l.At(x, y), l.At(x, 0), 4);
    }
    m_Pictures.push_back({"l", l});
    desc.sequences.push_back(tiletest::Sequence("Still", {"l"}));
    desc.sequences.back().points.push_back({"Origin", {{false, 5, -3}}});
    WriteSprite("Hero", desc, m_Pictures);
    m_pData = new nox::TileAnimData("Hero", false, true);
    ASSERT_TRUE(m_pData->IsLoaded());
    m_pSprite = m_pData->CreateCellAnimation();
  }
  void TearDown() override {
    delete m_pSprite;
    delete m_pData;
  }

  // Updates in steps of `ms` until the frame changes or `limit` steps pass.
  int StepsToNextFrame(unsigned long ms, int limit = 100) {
    const uint32_t start = m_pSprite->GetCurrentFrame();
    for (int i = 1; i <= limit; ++i) {
      m_pSprite->Update(ms);
      if (m_pSprite->GetCurrentFrame() != start) return i;
    }
    return -1;
  }

  std::vector<std::pair<std::string, Image>> m_Pictures;
  nox::TileAnimData* m_pData = nullptr;
  TileAnimation* m_pSprite = nullptr;
};

TEST_F(TileAnimationTest, AtTwelveFramesASecondAFrameLasts1000Over12MsAndASlowUpdateStepsOnce) {
  m_pSprite->Play(kCount, 0);
  EXPECT_EQ(TileAnimation::GetDefaultFramesPerSecond(), Real(12));
  EXPECT_EQ(m_pSprite->GetFrameDuration().Raw(), 5461333);  // 83.333 ms
  m_pSprite->Update(83);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 0u);
  m_pSprite->Update(1);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 1u);
  // A whole second in one update still shows the next picture only.
  m_pSprite->Update(1000);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 2u);
  // Ten updates of 17 ms: 170 ms, two frames, with the remainder carried.
  for (int i = 0; i < 10; ++i) m_pSprite->Update(17);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 4u);
  // Half speed doubles the time a frame takes.
  m_pSprite->SetPlaybackSpeed(Real::FromRaw(0x8000));
  m_pSprite->Play(kCount, 0);
  EXPECT_EQ(StepsToNextFrame(1, 200), 167);
}

TEST_F(TileAnimationTest, ASpriteBelowOneFrameASecondNeverSteps) {
  m_pSprite->SetFramesPerSecond(Real());
  EXPECT_EQ(m_pSprite->GetFrameDuration().Raw(), INT32_MAX);
  m_pSprite->Play(kCount, 0);
  for (int i = 0; i < 40; ++i) m_pSprite->Update(1000);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 0u);
}

TEST_F(TileAnimationTest, TheEndComesOneStepAfterTheLastFrameAndLoopsWrapBothWays) {
  m_pSprite->Play(kCount, 0);
  const unsigned long frame = 84;
  for (int i = 0; i < 9; ++i) m_pSprite->Update(frame);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 9u);
  EXPECT_FALSE(m_pSprite->IsAnimEnded());
  m_pSprite->Update(frame);
  EXPECT_TRUE(m_pSprite->IsAnimEnded());
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 9u);

  m_pSprite->SetLoop(true);
  m_pSprite->Play(kCount, 9);
  EXPECT_FALSE(m_pSprite->IsAnimEnded());
  m_pSprite->Update(frame);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 0u);

  // Start -1 plays backwards from the last frame, and a loop goes round to it again.
  m_pSprite->Play(kCount, -1);
  EXPECT_FALSE(m_pSprite->IsPlaybackForward());
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 9u);
  m_pSprite->Update(frame);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 8u);
  m_pSprite->Play(kCount, -10);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 0u);
  m_pSprite->Update(frame);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 9u);
  m_pSprite->SetLoop(false);
  m_pSprite->Play(kCount, -10);
  m_pSprite->Update(frame);
  EXPECT_TRUE(m_pSprite->IsAnimEnded());
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 0u);
  m_pSprite->Play(kCount, 13);  // past the end wraps
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 3u);
}

TEST_F(TileAnimationTest, EventsFireOnTheirFramesAndAHeldSpriteReportsNone) {
  const nox::NameHash tick = HashString("Tick");
  m_pSprite->Play(kCount, 0);
  std::vector<uint32_t> seen;
  for (int f = 0; f < 10; ++f) {
    seen.push_back(m_pSprite->GetCallback(tick));
    m_pSprite->Update(84);
  }
  EXPECT_EQ(seen, (std::vector<uint32_t>{0, 0, 20, 0, 0, 50, 0, 0, 0, 0}));

  m_pSprite->Play(kCount, 5);
  EXPECT_EQ(m_pSprite->GetCallback(tick), 50u);
  EXPECT_EQ(m_pSprite->GetCallback(HashString("Tock")), 0u);
  m_pSprite->ClearPendingCallback(tick);
  EXPECT_EQ(m_pSprite->GetCallback(tick), 0u);

  // Held: nothing is reported, and holding on the frame leaves the table alone.
  m_pSprite->Play(kCount, 2);
  m_pSprite->Hold(false, false);
  EXPECT_EQ(m_pSprite->GetPlaybackSpeed(), Real());
  EXPECT_EQ(m_pSprite->GetCallback(tick), 0u);
  m_pSprite->Update(1000);
  EXPECT_EQ(m_pSprite->GetCurrentFrame(), 2u);
  m_pSprite->Play(false, false);  // speed back, the event of frame 2 again
  EXPECT_EQ(m_pSprite->GetCallback(tick), 20u);
}

TEST_F(TileAnimationTest, AnUnknownSequencePlaysTheFirstAfterTheMessage) {
  m_pSprite->Play(kStill, 0);
  EXPECT_EQ(m_pSprite->GetCurrentSequenceIndex(), 1);
  m_pSprite->Play(HashString("Dance"), 0);
  EXPECT_EQ(m_pSprite->GetCurrentSequenceIndex(), 0);
  EXPECT_EQ(LogCount("Couldn't find sequence index by name: " + std::to_string(HashString("Dance"))), 1);
  EXPECT_FALSE(m_pSprite->HasSequence(HashString("Dance")));
  EXPECT_TRUE(m_pSprite->HasSequence(nox::kCurrentSequenceHash));
}

TEST_F(TileAnimationTest, CurrentSequenceAnswersForTheSequenceNowPlaying) {
  m_pSprite->Play(kCount, 4);
  m_pSprite->SetPosition(Real(100), Real(50));
  const nox::Rectangle now = m_pSprite->GetRect(nox::kCellBoxHash, -1, nox::kCurrentSequenceHash);
  EXPECT_EQ(now, m_pSprite->GetRect(nox::kCellBoxHash, 4, kCount));
  EXPECT_EQ(now, nox::Rectangle(Real(132), Real(50), Real(136), Real(54)));
  EXPECT_TRUE(m_pSprite->HasPointSeries(HashString("Tip")));
  EXPECT_FALSE(m_pSprite->HasPointSeries(HashString("Tip"), kStill));
  EXPECT_TRUE(m_pSprite->HasPointSeries(HashString("Origin"), kStill));
  EXPECT_EQ(m_pSprite->GetPointSeries(HashString("Origin")), nullptr);
}

TEST_F(TileAnimationTest, NilPointsAndRectanglesAreAbsentButFlatRectanglesStillAnswer) {
  m_pSprite->Play(kCount, 0);
  const nox::NameHash tip = HashString("Tip");
  EXPECT_TRUE(m_pSprite->HasPoint(tip, 2));
  EXPECT_FALSE(m_pSprite->HasPoint(tip, 3));
  EXPECT_FALSE(m_pSprite->HasPoint(tip, 10));  // past the end
  EXPECT_EQ(m_pSprite->GetPoint(tip, 3), nox::Vector3());
  EXPECT_EQ(m_pSprite->GetAnimationPoint(m_pSprite->GetPointSeries(tip), 4),
            nox::Vector3(Real(4), Real(1), Real()));
  m_pSprite->SetPosition(Real(10), Real(20), Real(0));
  EXPECT_EQ(m_pSprite->GetPoint(tip, 4), nox::Vector3(Real(14), Real(21), Real()));
  const nox::NameHash flat = HashString("Flat");
  EXPECT_TRUE(m_pSprite->HasRectSeries(flat));
  EXPECT_FALSE(m_pSprite->HasRect(flat));
  EXPECT_EQ(m_pSprite->GetRect(flat), nox::Rectangle(Real(13), Real(20), Real(13), Real(29)));
  EXPECT_EQ(m_pSprite->GetLocalRect(flat), nox::Rectangle(Real(3), Real(0), Real(3), Real(9)));
  EXPECT_FALSE(m_pSprite->HasRect(HashString("Missing")));
  EXPECT_EQ(m_pSprite->GetRect(HashString("Missing")), nox::Rectangle());
}

TEST_F(TileAnimationTest, AnAnchorHoldsTheSpriteByItsPointAndAnUnknownOneLetsGo) {
  m_pSprite->Play(kStill, 0);
  m_pSprite->SetPosition(Real(100), Real(100), Real(7));
  m_pSprite->SetAnchor(HashString("Origin"));
  EXPECT_TRUE(m_pSprite->IsAnchorEnabled());
  EXPECT_EQ(m_pSprite->GetWorldPosition(), nox::Vector3(Real(95), Real(103), Real(7)));
  // The anchor point itself lands on the position.
  EXPECT_EQ(m_pSprite->GetPoint(HashString("Origin")).x, Real(100));
  m_pSprite->SetHFlip(true);
  EXPECT_EQ(m_pSprite->GetWorldPosition().x, Real(105));
  m_pSprite->SetAnchorEnabled(false);
  EXPECT_EQ(m_pSprite->GetWorldPosition().x, Real(100));
  m_pSprite->SetAnchor(HashString("Nothing"));
  EXPECT_FALSE(m_pSprite->IsAnchorEnabled());
  m_pSprite->SetAnchorEnabled(true);  // no hash: stays off
  EXPECT_FALSE(m_pSprite->IsAnchorEnabled());
}

TEST_F(TileAnimationTest, LayersAreFoundByNameAndMissingOnesAnswerTheLargestReal) {
  const nox::NameHash main = HashString("Main"), hat = HashString("Hat");
  EXPECT_TRUE(m_pSprite->AnimationHasLayer(main));
  EXPECT_TRUE(m_pSprite->GetLayerEnabled(main));
  m_pSprite->SetLayerEnabled(main, false);
  EXPECT_FALSE(m_pSprite->GetLayerEnabled(main));
  m_pSprite->SetLayerAlpha(main, Real::FromRaw(0x8000));
  EXPECT_EQ(m_pSprite->GetLayerAlpha(main).Raw(), 0x8000);
  m_pSprite->SetLayerDepth(hat, Real(3));
  EXPECT_FALSE(m_pSprite->AnimationHasLayer(hat));
  EXPECT_FALSE(m_pSprite->GetLayerEnabled(hat));
  EXPECT_EQ(m_pSprite->GetLayerAlpha(hat).Raw(), INT32_MAX);
  EXPECT_EQ(m_pSprite->GetLayerDepth(hat).Raw(), INT32_MAX);
}

TEST_F(TileAnimationTest, HitTestsUseTheCellBoxEdgesIncludedOrTheTilesThemselves) {
  m_pSprite->Play(kStill, 0);
  m_pSprite->SetPosition(Real(200), Real(100));
  const nox::Vector2 corner(Real(216), Real(116)), foot(Real(203), Real(113)), gap(Real(213), Real(113));
  EXPECT_TRUE(m_pSprite->HitTestBounds(corner));
  EXPECT_FALSE(m_pSprite->HitTestBounds(nox::Vector2(Real(217), Real(100))));
  EXPECT_TRUE(m_pSprite->HitTestBounds(gap, HashString("Collision")));
  EXPECT_TRUE(m_pSprite->HitTest(foot));
  EXPECT_FALSE(m_pSprite->HitTest(gap));  // inside the box, outside every tile
  EXPECT_TRUE(m_pSprite->IsOnScreen(nox::Rectangle(Real(216), Real(116), Real(300), Real(300))));
  EXPECT_FALSE(m_pSprite->IsOnScreen(nox::Rectangle(Real(217), Real(0), Real(300), Real(300))));

  TileAnimation* other = m_pData->CreateCellAnimation();
  other->Play(kStill, 0);
  other->SetPosition(Real(210), Real(110));
  nox::Rectangle overlap;
  EXPECT_TRUE(m_pSprite->IntersectsTileAnim(*other));
  EXPECT_TRUE(m_pSprite->GetOverlap(*other, overlap));
  EXPECT_EQ(overlap, nox::Rectangle(Real(210), Real(110), Real(216), Real(116)));
  other->SetPosition(Real(300), Real(110));
  EXPECT_FALSE(m_pSprite->GetOverlap(*other, overlap));
  EXPECT_EQ(overlap, nox::Rectangle());
  delete other;
}

TEST_F(TileAnimationTest, WorldAndAnimationSpaceTurnIntoEachOtherUnderFlipsScalesAndAnchor) {
  m_pSprite->Play(kStill, 0);
  m_pSprite->SetPosition(Real(40), Real(-30), Real(5));
  m_pSprite->SetAnchor(HashString("Origin"));
  const nox::Vector3 v(Real(7), Real(-9), Real());
  for (bool h : {false, true}) {
    for (bool vf : {false, true}) {
      m_pSprite->SetHFlip(h);
      m_pSprite->SetVFlip(vf);
      m_pSprite->SetHScale(Real(2));
      m_pSprite->SetVScale(Real::FromRaw(0x8000));
      const nox::Vector3 world = m_pSprite->VectorAnimationSpaceToWorld(v);
      EXPECT_EQ(m_pSprite->VectorWorldSpaceToAnimation(world), v) << h << vf;
    }
  }
  // Mirrored, the point lands on the other side of the anchor.
  m_pSprite->SetHFlip(true);
  m_pSprite->SetVFlip(false);
  m_pSprite->SetScale(Real(1));
  EXPECT_EQ(m_pSprite->VectorAnimationSpaceToWorld(nox::Vector3(Real(6), Real(), Real())).x, Real(40 - 1));
  // A quarter turn about z takes x to -y; the anchor point (5, -3) stays the pivot
  // even with the anchor off, which only stops it moving the sprite.
  m_pSprite->SetHFlip(false);
  m_pSprite->SetAnchorEnabled(false);
  m_pSprite->SetZRotation(Real(90));
  const nox::Vector3 turned = m_pSprite->VectorAnimationSpaceToWorld(nox::Vector3(Real(10), Real(), Real()));
  EXPECT_EQ(turned.x, Real(40 + 3 + 5));
  EXPECT_EQ(turned.y, Real(-30 - 5 - 3));
  EXPECT_EQ(m_pSprite->VectorWorldSpaceToAnimation(turned), nox::Vector3(Real(10), Real(), Real()));
}

TEST_F(TileAnimationTest, AColourBlendRunsOnTheTimeBeforeEachUpdateAndEndsOnTheTarget) {
  const nox::Vector3 black, white(Real(1), Real(1), Real(1));
  m_pSprite->ModulateColor(black, white, 100);
  m_pSprite->Update(50);
  EXPECT_EQ(m_pSprite->GetModulationColor(), black);  // t was 0 when this update began
  m_pSprite->Update(50);
  EXPECT_EQ(m_pSprite->GetModulationColor().x.Raw(), 0x8000);
  m_pSprite->Update(1);
  EXPECT_EQ(m_pSprite->GetModulationColor(), white);
  // Blends longer than a Real can count in milliseconds still run.
  m_pSprite->ModulateColor(white, black, 70000);
  for (int i = 0; i < 36; ++i) m_pSprite->Update(1000);
  EXPECT_EQ(m_pSprite->GetModulationColor().x.Raw(), 0x8000);  // 35 s of 70
}

TEST_F(TileAnimationTest, ASpriteOnDataThatDidNotLoadAnswersNothingAndDrawsNothing) {
  nox::TileAnimData missing("Nobody", false, true);
  TileAnimation sprite(&missing);
  sprite.Play(kCount, 3);
  sprite.Update(1000);
  sprite.Draw();
  EXPECT_EQ(sprite.GetTotalFrames(), 0);
  EXPECT_FALSE(sprite.HitTest(nox::Vector2()));
  EXPECT_EQ(sprite.GetRect(nox::kCellBoxHash), nox::Rectangle());
  EXPECT_EQ(sprite.GetCellBoundingRect(), nox::Rectangle(Real(), Real(), Real(1), Real(1)));
}

// Sprites drawn into the platform's headless GL surface.
class SpriteDrawTest : public tiletest::TitleFixture {
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
    glDisable(GL_DEPTH_TEST);
  }
  void TearDown() override { delete m_pGL; }

  void Clear() {
    glClearColorx(0, 0, 0, 0x10000);
    glClear(GL_COLOR_BUFFER_BIT);
  }
  // The pixel at (x, y), y down, as 0xRRGGBB.
  uint32_t Pixel(int x, int y) {
    uint8_t p[4];
    glReadPixels(x, 271 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, p);
    return static_cast<uint32_t>(p[0]) << 16 | p[1] << 8 | p[2];
  }
  // A 24 by 24 picture with a box from (4, 4) to (20, 20), in each storage kind.
  void WriteBoxSprite(const std::string& name, assetlib::AnimStorage storage, bool packed,
                      tiletest::Colour c) {
    assetlib::AnimDesc desc = tiletest::Description(8, storage, packed);
    desc.sequences.push_back(tiletest::Sequence("Box", {"box", "box", "other"}));
    WriteSprite(name, desc, {{"box", Box(24, 24, 4, 4, 20, 20, c)}, {"other", Box(24, 24, 0, 0, 4, 4, c)}});
  }

  Hollin::Ostra::OstraOpenGLConfig* m_pGL = nullptr;
};

TEST_F(SpriteDrawTest, SheetAndFetchedFramesDrawTheirPicturesAtThePosition) {
  struct Kind {
    const char* name;
    assetlib::AnimStorage storage;
    bool packed;
    bool streamed;
  };
  const Kind kinds[] = {{"Sheet", assetlib::AnimStorage::kSheet, true, false},
                        {"SheetPlain", assetlib::AnimStorage::kSheet, false, false},
                        {"Cart", assetlib::AnimStorage::kFrames, true, false},
                        {"CartPlain", assetlib::AnimStorage::kFrames, false, false},
                        {"Streamed", assetlib::AnimStorage::kFrames, true, true},
                        {"StreamedPlain", assetlib::AnimStorage::kFrames, false, true}};
  for (const Kind& kind : kinds) {
    WriteBoxSprite(kind.name, kind.storage, kind.packed, {255, 0, 0, 255});
    nox::TileAnimData data(kind.name, kind.streamed, false);
    ASSERT_TRUE(data.IsLoaded()) << kind.name;
    TileAnimation* sprite = data.CreateCellAnimation();
    sprite->Play(HashString("Box"), 0);
    sprite->SetPosition(Real(100), Real(50), Real(10));
    Clear();
    sprite->Draw();
    EXPECT_EQ(Pixel(104, 54), 0xFF0000u) << kind.name;
    EXPECT_EQ(Pixel(119, 69), 0xFF0000u) << kind.name;
    EXPECT_EQ(Pixel(103, 54), 0u) << kind.name;
    EXPECT_EQ(Pixel(120, 69), 0u) << kind.name;
    // Mirrored about its position, half transparent over black.
    sprite->SetHFlip(true);
    sprite->SetAlpha(Real::FromRaw(0x8000));
    Clear();
    sprite->Draw();
    EXPECT_NEAR(static_cast<int>(Pixel(90, 60) >> 16), 128, 1) << kind.name;
    EXPECT_EQ(Pixel(90, 60) & 0xFFFF, 0u) << kind.name;
    EXPECT_EQ(Pixel(110, 60), 0u) << kind.name;
    delete sprite;
  }
}

TEST_F(SpriteDrawTest, FetchedFramesWithOneOffsetAreReadOnceAndGiveTheirTextureBackOffScreen) {
  // Frames over 4 KB each, so that every fetch reaches the file.
  assetlib::AnimDesc desc = tiletest::Description(8, assetlib::AnimStorage::kFrames, false);
  desc.sequences.push_back(tiletest::Sequence("A", {"a"}));
  desc.sequences.push_back(tiletest::Sequence("B", {"b", "b"}));
  WriteSprite("Big", desc, {{"a", tiletest::Noise(64, 64, 1)}, {"b", tiletest::Noise(64, 64, 2)}});
  nox::TileAnimData data("Big", false, false);
  ASSERT_TRUE(data.IsLoaded());
  ASSERT_EQ(data.GetFrameEntry(1, 0)->offset, data.GetFrameEntry(1, 1)->offset);
  nox::TileAnimFrame* holder = data.GetNewFrameHolder();
  ASSERT_TRUE(holder->LoadFrame(1, 0));
  EXPECT_NE(holder->GetTexture()->GetTextureId(), 0u);
  EXPECT_EQ(holder->GetTexture()->GetWidth(), 64);

  // Spoil both blocks on disk: the frame with the offset in hand is not read again
  // and still loads; the other is read and refused.
  FILE* file = fopen(AnimPath("Big.tex").c_str(), "r+b");
  ASSERT_NE(file, nullptr);
  const std::vector<uint8_t> spoil(8, 0xFF);
  for (unsigned s = 0; s < 2; ++s) {
    fseek(file, static_cast<long>(data.GetFrameEntry(s, 0)->offset), SEEK_SET);
    fwrite(spoil.data(), 1, spoil.size(), file);
  }
  fclose(file);
  EXPECT_TRUE(holder->LoadFrame(1, 1));
  EXPECT_EQ(holder->GetFrameEntry(), data.GetFrameEntry(1, 1));
  EXPECT_FALSE(holder->LoadFrame(0, 0));
  EXPECT_EQ(holder->GetFrameEntry(), nullptr);
  EXPECT_FALSE(holder->LoadFrame(1, 0));

  // Off screen the texture goes back.
  holder->UnloadOffscreenResources();
  EXPECT_EQ(holder->GetTexture()->GetTextureId(), 0u);
  delete holder;
}

TEST_F(SpriteDrawTest, SpritesOfDeferredDataShareOneHolderThatOutlivesThemAndFetchesEachOnesFrame) {
  WriteBoxSprite("Shared", assetlib::AnimStorage::kFrames, true, {0, 255, 0, 255});
  nox::TileAnimData data("Shared", false, true);
  ASSERT_TRUE(data.IsLoaded());
  TileAnimation* big = data.CreateCellAnimation();
  TileAnimation* small = data.CreateCellAnimation();
  ASSERT_NE(data.GetSharedFrameHolder(), nullptr);
  EXPECT_EQ(big->GetFrameHolder(), data.GetSharedFrameHolder());
  EXPECT_EQ(small->GetFrameHolder(), data.GetSharedFrameHolder());

  // One holder, two frames in turn: each sprite draws its own picture.
  big->Play(HashString("Box"), 0);
  big->SetPosition(Real(100), Real(50), Real(10));
  small->Play(HashString("Box"), 2);
  small->SetPosition(Real(200), Real(50), Real(10));
  Clear();
  big->Draw();
  small->Draw();
  EXPECT_EQ(Pixel(110, 60), 0x00FF00u);
  EXPECT_EQ(Pixel(201, 51), 0x00FF00u);
  EXPECT_EQ(Pixel(210, 60), 0u);

  // The holder is the data's: a sprite that goes leaves it to the others.
  delete big;
  Clear();
  small->Draw();
  EXPECT_EQ(Pixel(201, 51), 0x00FF00u);
  delete small;
  EXPECT_NE(data.GetSharedFrameHolder(), nullptr);
}

}  // namespace
