// Steps on a tile animation: playing and waiting for the end, holding, showing,
// and the alpha fade on its own tweener.
#include <gtest/gtest.h>

#include <vector>

#include "core/HashString.h"
#include "graphics/TileAnimation.h"
#include "sequencer/SeqBuild.h"

namespace {

using nox::Real;
using noxfw::Sequencer;

// A sprite without data whose end the test decides.
class ScriptedSprite : public nox::TileAnimation {
 public:
  ScriptedSprite() : nox::TileAnimation(nullptr) {}
  bool IsAnimEnded() const override { return m_bDone; }
  bool m_bDone = false;
};

const nox::NameHash kWalk = nox::HashString("Walk");
const nox::NameHash kIdle = nox::HashString("Idle");

TEST(AnimSeqItemsTest, PlayStepStartsTheSequenceAndWaitsForItsEnd) {
  ScriptedSprite sprite;
  Sequencer sequencer;
  noxfw::SeqAnim(sequencer, sprite, kWalk);
  noxfw::SeqAnim(sequencer, sprite, kIdle, false);
  EXPECT_NE(sprite.GetSequenceHash(), kWalk);  // nothing touched while queued
  sequencer.Update(16);
  EXPECT_EQ(sprite.GetSequenceHash(), kWalk);
  sequencer.Update(16);
  sequencer.Update(16);
  EXPECT_EQ(sprite.GetSequenceHash(), kWalk);
  sprite.m_bDone = true;
  sequencer.Update(16);
  // The don't-wait step ends on its first frame although the sprite has not ended.
  sprite.m_bDone = false;
  sequencer.Update(16);
  EXPECT_EQ(sprite.GetSequenceHash(), kIdle);
  EXPECT_TRUE(sequencer.IsEmpty());
}

TEST(AnimSeqItemsTest, HoldShowAndWaitSteps) {
  ScriptedSprite sprite;
  Sequencer sequencer;
  noxfw::SeqHold(sequencer, sprite, kIdle, 2);
  noxfw::SeqVisible(sequencer, sprite, false);
  noxfw::SeqWaitAnim(sequencer, sprite);
  noxfw::SeqVisible(sequencer, sprite, true);
  sequencer.Update(16);
  EXPECT_EQ(sprite.GetSequenceHash(), kIdle);
  EXPECT_EQ(sprite.GetPlaybackSpeed(), Real());  // held
  sequencer.Update(16);
  EXPECT_FALSE(sprite.GetVisible());
  for (int i = 0; i < 5; ++i) sequencer.Update(16);
  EXPECT_FALSE(sprite.GetVisible());  // still waiting for the end
  sprite.m_bDone = true;
  sequencer.Update(16);
  sequencer.Update(16);
  EXPECT_TRUE(sprite.GetVisible());
  EXPECT_TRUE(sequencer.IsEmpty());
}

TEST(AnimSeqItemsTest, AlphaFadeStepsTheSpriteAndStopsShortOfTheEnd) {
  ScriptedSprite sprite;
  sprite.SetAlpha(Real(1));
  Sequencer sequencer;
  noxfw::SeqFadeAnim(sequencer, sprite, Real(0), Real(1), 400);
  noxfw::SeqFadeAnim(sequencer, sprite, Real(1), Real(0), 400);
  EXPECT_EQ(sprite.GetAlpha(), Real(1));  // untouched while queued

  // Frame 1 steps 0 ms (the tweener's first frame), then quarters of 400 ms; at
  // 400 ms the fade ends and the alpha keeps the last stepped value.
  std::vector<int> alphas;
  while (sequencer.HasSeqID(0) == 2) {
    sequencer.Update(100);
    alphas.push_back(sprite.GetAlpha().Raw());
  }
  EXPECT_EQ(alphas, (std::vector<int>{0, 0x4000, 0x8000, 0xC000, 0xC000}));

  alphas.clear();
  while (!sequencer.IsEmpty()) {
    sequencer.Update(100);
    alphas.push_back(sprite.GetAlpha().Raw());
  }
  EXPECT_EQ(alphas, (std::vector<int>{0x10000, 0xC000, 0x8000, 0x4000, 0x4000}));
}

}  // namespace
