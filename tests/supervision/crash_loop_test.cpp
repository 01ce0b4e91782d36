#include "supervision/crash_loop.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

constexpr std::uint32_t kMinute = 60 * 1000;

/// How many of so many deaths, the first at `first`, one each `every` milliseconds, are told.
int Told(CrashLoop& loop, std::uint32_t first, int deaths, std::uint32_t every) {
  int told = 0;
  for (int i = 0; i < deaths; ++i) told += loop.Died(first + static_cast<std::uint32_t>(i) * every);
  return told;
}

TEST(CrashLoops, AreToldAtTheFifthDeath) {
  CrashLoop loop;
  EXPECT_EQ(Told(loop, 0, 4, 5000), 0);
  EXPECT_TRUE(loop.Died(20000));
  EXPECT_FALSE(loop.Died(25000));
}

TEST(CrashLoops, HaveFiveDeathsWithinFiveMinutesAndNotLonger) {
  CrashLoop within;
  EXPECT_EQ(Told(within, 0, 5, 75 * 1000), 1);
  CrashLoop longer;
  EXPECT_EQ(Told(longer, 0, 4, 75 * 1000), 0);
  EXPECT_FALSE(longer.Died(5 * kMinute + 1));
}

TEST(CrashLoops, AreToldAgainEachHourWhileTheyGoOn) {
  CrashLoop loop;
  EXPECT_EQ(Told(loop, 0, 5, 5000), 1);        // At 20 seconds.
  EXPECT_EQ(Told(loop, 25000, 719, 5000), 0);  // Up to 5 seconds before the hour.
  EXPECT_TRUE(loop.Died(60 * kMinute + 20000));
  EXPECT_EQ(Told(loop, 60 * kMinute + 25000, 720, 5000), 1);
}

TEST(CrashLoops, ThatWereOverAreToldAnewAtOnce) {
  CrashLoop loop;
  EXPECT_EQ(Told(loop, 0, 5, 5000), 1);
  EXPECT_EQ(Told(loop, 10 * kMinute, 4, 5000), 0);
  EXPECT_TRUE(loop.Died(10 * kMinute + 20000));
}

TEST(CrashLoops, GoOnWhereTheTickCountBeginsAnew) {
  CrashLoop loop;
  EXPECT_EQ(Told(loop, 0xFFFFFFFFu - 10000, 5, 5000), 1);
  EXPECT_EQ(Told(loop, 14999, 700, 5000), 0);
}

}  // namespace
}  // namespace tarvo
