// The fader: its level at chosen times of the host's clock, the ends of a fade, what
// it draws, and its quad after the screen turns.
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include "../files/TestFiles.h"
#include "core/GameHost.h"
#include "graphics/Fader.h"
#include "graphics/GLUtils.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"

namespace {

using nox::Fader;
using nox::GameHost;
using nox::Real;

class FaderTest : public ::testing::Test {
 protected:
  FaderTest() : m_Log(m_Dir, VirtualClock()) { GameHost::Create(); }
  ~FaderTest() override { GameHost::Destroy(); }

  static Hollin::Ostra::Host::HostConfig VirtualClock() {
    Hollin::Ostra::Host::HostConfig config;
    config.clock = Hollin::Ostra::Host::ClockMode::kVirtual;
    return config;
  }
  // Moves the clock on and updates, as a frame would.
  void At(Fader& fader, uint32_t ms) {
    GameHost::s_pGameHost->Sleep(ms - m_Elapsed);
    m_Elapsed = ms;
    fader.Update(17);
  }

  testfiles::TempDir m_Dir;
  testfiles::AutomationLog m_Log;
  uint32_t m_Elapsed = 0;
};

TEST_F(FaderTest, AFadeOutFollowsTheClockAndEndsOnceTheLevelReachesOne) {
  Fader fader;
  fader.FadeOut(500);
  // 1.0 / 500 truncates to raw 131, so the fade reaches 1.0 only after 500 ms.
  ASSERT_EQ(fader.GetSpeed().Raw(), 131);
  EXPECT_FALSE(fader.IsFadeComplete());
  At(fader, 0);
  EXPECT_EQ(fader.GetLevel().Raw(), 0);
  At(fader, 250);
  EXPECT_EQ(fader.GetLevel().Raw(), 32750);
  At(fader, 500);
  EXPECT_EQ(fader.GetLevel().Raw(), 65500);
  EXPECT_FALSE(fader.IsFadeComplete());
  At(fader, 501);
  EXPECT_TRUE(fader.IsFadeComplete());
  EXPECT_EQ(fader.GetLevel(), Real(1));
  At(fader, 900);
  EXPECT_EQ(fader.GetLevel(), Real(1)) << "an ended fade stays where it ended";
}

TEST_F(FaderTest, AFadeInRoundsItsSpeedDownAndSoEndsEarly) {
  Fader fader;
  fader.SetLevel(Real(1));
  fader.FadeIn(500);
  ASSERT_EQ(fader.GetSpeed().Raw(), -132);
  At(fader, 250);
  EXPECT_EQ(fader.GetLevel().Raw(), 65536 - 33000);
  At(fader, 496);
  EXPECT_EQ(fader.GetLevel().Raw(), 64);
  EXPECT_FALSE(fader.IsFadeComplete());
  At(fader, 497);
  EXPECT_TRUE(fader.IsFadeComplete());
  EXPECT_EQ(fader.GetLevel(), Real(0));
}

TEST_F(FaderTest, AFadeStartsFromThePresentLevelAndItsLengthIsAWholeNumberReal) {
  Fader fader;
  fader.SetLevel(Real::FromRaw(0x8000));
  fader.FadeOut(100);
  // 0.5 / 100 truncates to raw 327; after 40 ms, 0.5 + 40 * 327 / 65536.
  ASSERT_EQ(fader.GetSpeed().Raw(), 327);
  At(fader, 40);
  EXPECT_EQ(fader.GetLevel().Raw(), 0x8000 + 40 * 327);
  // A length of 32768 ms or more wraps negative as a Real, as every whole number
  // does: the speed points away from the target and the first update ends the fade.
  fader.SetLevel(Real());
  fader.FadeOut(40000);
  EXPECT_LT(fader.GetSpeed(), Real());
  At(fader, 57);
  EXPECT_TRUE(fader.IsFadeComplete());
  EXPECT_EQ(fader.GetLevel(), Real(1));
}

TEST_F(FaderTest, ZeroMillisecondsSetTheLevelAtOnce) {
  Fader fader;
  fader.FadeOut(0);
  EXPECT_EQ(fader.GetLevel(), Real(1));
  EXPECT_TRUE(fader.IsFadeComplete());
  fader.FadeIn(0);
  EXPECT_EQ(fader.GetLevel(), Real(0));
  EXPECT_TRUE(fader.IsFadeComplete());
  // Fading in from clear has nothing to do.
  fader.FadeIn(500);
  EXPECT_TRUE(fader.IsFadeComplete());
  // SetLevel ends a running fade.
  fader.FadeOut(500);
  fader.SetLevel(Real::FromRaw(0x4000));
  EXPECT_TRUE(fader.IsFadeComplete());
  At(fader, 100);
  EXPECT_EQ(fader.GetLevel().Raw(), 0x4000);
}

class FaderOnScreenTest : public FaderTest {
 protected:
  void SetUp() override {
    nox::ScreenManager::Create();
    nox::ApplyOrthographicProjection(nox::ScreenManager::Get(), Real(0), Real(-1000));
    glLoadIdentity();
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  }
  void TearDown() override { nox::ScreenManager::Destroy(); }

  uint32_t Pixel(int x, int y) {
    unsigned char rgba[4];
    const Real fx(x), fy(y);
    nox::CaptureScreen(*nox::ScreenManager::Get(), nox::Rectangle(fx, fy, fx + Real(1), fy + Real(1)), rgba);
    return (rgba[0] << 16) | (rgba[1] << 8) | rgba[2];
  }
};

TEST_F(FaderOnScreenTest, ClearDrawsNothingAndCoveredHidesEveryCorner) {
  Fader fader;
  fader.SetColor(nox::Vector3(Real(1), Real(0), Real(0)));
  fader.Draw();
  EXPECT_EQ(Pixel(240, 136), 0u);
  fader.SetLevel(Real(1));
  fader.Draw();
  for (const auto& p :
       {std::make_pair(0, 0), std::make_pair(479, 0), std::make_pair(0, 271), std::make_pair(479, 271)})
    EXPECT_EQ(Pixel(p.first, p.second), 0xFF0000u) << p.first << "," << p.second;
  glClear(GL_COLOR_BUFFER_BIT);
  fader.SetLevel(Real::FromRaw(0x8000));
  fader.Draw();
  const uint32_t half = Pixel(240, 136) >> 16;
  EXPECT_GE(half, 0x7Fu);
  EXPECT_LE(half, 0x80u);
}

TEST_F(FaderOnScreenTest, TheQuadFollowsTheScreenWhenItTurns) {
  Fader fader;
  EXPECT_EQ(fader.GetVertices()[6], 480);
  EXPECT_EQ(fader.GetVertices()[7], 272);
  nox::ScreenManager::Get()->SetOrientation(nox::Screen::kSideways1);
  fader.Update(0);
  EXPECT_EQ(fader.GetVertices()[6], 272);
  EXPECT_EQ(fader.GetVertices()[7], 480);
  nox::ScreenManager::Get()->SetOrientation(nox::Screen::kUpright);
}

}  // namespace
