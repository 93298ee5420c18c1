// Frames of scrolling, fading and effects allocate nothing once set up, tile crossings
// included.
#include <gtest/gtest.h>

#include "../text/AllocationCount.h"

#include "../files/TestFiles.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "graphics/Effect.h"
#include "graphics/EffectsEngine.h"
#include "graphics/Fader.h"
#include "graphics/ScreenManager.h"
#include "graphics/ScrollableQuad.h"

namespace {

using allocationcount::s_Allocations;
using allocationcount::s_Counting;
using nox::Real;

class Spark : public nox::Effect {
 public:
  void Update(unsigned long) override {}
  bool IsDone() const override { return false; }
  void Draw(nox::EffectsEngine&, unsigned long) override {}
};

TEST(SteadyFrameTest, ScrollingFadingAndEffectsAllocateNothingPerFrame) {
  if (!NOX_COUNTS_ALLOCATIONS) GTEST_SKIP() << "allocations are not counted under the address sanitizer";
  testfiles::TempDir dir;
  Hollin::Ostra::Host::HostConfig config;
  config.titlePath = dir / "title";
  config.clock = Hollin::Ostra::Host::ClockMode::kVirtual;
  testfiles::AutomationLog log(dir, config);
  nox::GameHost::Create();
  nox::PathRegistry::Create();
  nox::ScreenManager::Create();
  {
    // A picture of 64 by 64 tiles whose every tile has no data: all transparent.
    testfiles::Bytes index = {64, 0, 64, 0, 32, 0, 0, 0, 2, 0, 0, 0};
    index.resize(12 + 8 * 64 * 64, 0);
    testfiles::WriteBytes(dir / "title/Levels/Empty.til", index);
    testfiles::WriteBytes(dir / "title/Levels/Empty-tiled.tex", {0});
    nox::ScrollableQuad quad(32, 0);
    quad.Initialize("Empty");
    nox::Fader fader;
    nox::EffectsEngine effects;
    Spark spark;
    effects.AddEffectManaged(&spark);

    fader.SetLevel(Real::FromRaw(0x8000));
    auto drawFrame = [&](int frame) {
      quad.SetPosition(nox::Vector2(Real(frame * 7), Real(frame * 3)));
      quad.Update();
      quad.Draw();
      nox::GameHost::s_pGameHost->Sleep(17);
      fader.Update(17);
      fader.Draw();
      effects.Update(17);
      effects.Draw();
    };
    // The GL driver builds its pipelines for each new state in the first frames.
    for (int frame = 0; frame < 10; ++frame) drawFrame(frame);
    s_Counting = true;
    fader.FadeOut(500);
    for (int frame = 10; frame < 70; ++frame) drawFrame(frame);
    s_Counting = false;
    EXPECT_EQ(s_Allocations, 0);
    effects.RemoveEffectManaged(&spark);
  }
  nox::ScreenManager::Destroy();
  nox::PathRegistry::Destroy();
  nox::GameHost::Destroy();
}

}  // namespace
