#include <gtest/gtest.h>

#include "debug/AssertionHold.h"

TEST(AssertionHold, EndsAtOnceOnPause) {
  nox::AssertionHold hold;
  EXPECT_TRUE(hold.Pass(true, false));
}

TEST(AssertionHold, EndsOnlyAfterMoreThan2000CountedMsOfOneUnbrokenTouch) {
  nox::AssertionHold hold;
  int passes = 0;
  // 117 passes of 17 ms make 1989, the 118th makes 2006.
  while (!hold.Pass(false, true)) ++passes;
  EXPECT_EQ(passes + 1, 118);

  nox::AssertionHold lifted;
  for (int i = 0; i < 100; ++i) ASSERT_FALSE(lifted.Pass(false, true));
  EXPECT_FALSE(lifted.Pass(false, false));
  EXPECT_EQ(lifted.GetCount(), 0u);
  for (int i = 0; i < 117; ++i) ASSERT_FALSE(lifted.Pass(false, true));
  EXPECT_TRUE(lifted.Pass(false, true));
}
