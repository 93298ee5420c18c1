// The screen transition without a model: it says so once, Play ends at once, a fade
// of 0 ms is over by the next update, a delay holds a fade for that many frames, and
// a finished fade-out keeps the screen counted as covered.
#include <gtest/gtest.h>

#include "MenuTestSupport.h"
#include "menu/ScreenTransition.h"

namespace {

using nox::Real;
using noxfw::ScreenTransition;

class ScreenTransitionTest : public menutest::WidgetTest {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    ScreenTransition::Create("Models/ScreenTransition.mmd");
    m_pT = ScreenTransition::sm_pInstance;
  }
  void TearDown() override {
    ScreenTransition::Destroy();
    WidgetTest::TearDown();
  }
  // Time passes on the host's clock, then the transition updates.
  void Step(uint32_t ms) {
    Hollin::Ostra::CKernelMPI().TaskSleep(ms);
    nox::GameHost::s_pGameHost->Update();
    m_pT->Update(ms);
  }

  ScreenTransition* m_pT = nullptr;
};

TEST_F(ScreenTransitionTest, WithoutAModelItFadesOnlyAndPlayEndsAtOnce) {
  EXPECT_FALSE(m_pT->HasModel());
  EXPECT_FALSE(m_pT->Initialize("Other.mmd"));
  EXPECT_EQ(LogCount("ScreenTransition: no model"), 1);  // said once, not on every try

  m_pT->Play("Swirl", Real(1));
  EXPECT_TRUE(m_pT->IsTransitionComplete());
  EXPECT_FALSE(m_pT->IsFadedOrTransitioning());
  m_pT->Capture();
  Step(17);
  EXPECT_TRUE(m_pT->IsTransitionComplete());
}

TEST_F(ScreenTransitionTest, ZeroMsFadesAreOverByTheNextUpdateAndACoveredScreenHoldsInput) {
  m_pT->FadeOut(0);
  Step(17);
  EXPECT_TRUE(m_pT->IsTransitionComplete());
  EXPECT_EQ(m_pT->GetFader().GetLevel(), Real(1));
  EXPECT_TRUE(m_pT->IsFadedOrTransitioning());  // finished, but the screen is covered
  m_pT->FadeIn(0);
  Step(17);
  EXPECT_TRUE(m_pT->IsTransitionComplete());
  EXPECT_FALSE(m_pT->IsFadedOrTransitioning());
}

TEST_F(ScreenTransitionTest, ADelayHoldsTheFadeForThatManyFrames) {
  m_pT->SetDelay(3);
  m_pT->FadeOut(400);
  for (int i = 0; i < 3; ++i) {
    Step(100);
    EXPECT_EQ(m_pT->GetFader().GetLevel(), Real()) << i;
    EXPECT_TRUE(m_pT->IsFadedOrTransitioning());
  }
  // The fade follows the clock from its start, so it has caught up once it moves
  // (a little past 400 ms, as the speed per ms is rounded down).
  Step(200);
  EXPECT_TRUE(m_pT->IsTransitionComplete());
  EXPECT_EQ(m_pT->GetFader().GetLevel(), Real(1));
  // A new fade counts the delay again.
  m_pT->FadeIn(200);
  Step(100);
  EXPECT_EQ(m_pT->GetFader().GetLevel(), Real(1));
}

}  // namespace
