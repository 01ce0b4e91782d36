#include "tiny/tiny.h"

#include <gtest/gtest.h>

TEST(Tiny, SaysAWordAtMostThreeTimes) {
  EXPECT_EQ(tiny::Say(0), "!?");
  EXPECT_EQ(tiny::Say(1), "hey!?");
  EXPECT_EQ(tiny::Say(9), "heyheyhey!?");
}

TEST(Tiny, KnowsTheLarger) {
  EXPECT_EQ(tiny::Larger(1, 2), 2);
  EXPECT_EQ(tiny::Larger(4, 3), 4);
}
