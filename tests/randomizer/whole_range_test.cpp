#include "randomizer/engine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "platform/mersenne_random.h"
#include "tests/simulation/sim_random.h"

namespace tarvo {
namespace {

TEST(RangeOf, RoundsHalvesToEvenAndSwapsAReversedRange) {
  const struct {
    const char* min;
    const char* max;
    std::int64_t low;
    std::int64_t high;
  } cases[] = {
      {"100", "300", 100, 300},
      {"300", "100", 100, 300},
      {"100", "100", 100, 100},
      {"-5", "5", -5, 5},
      {"5", "-5", -5, 5},
      {"2.5", "3.5", 2, 4},
      {"3.5", "2.5", 2, 4},
      {"0.5", "1.5", 0, 2},
      {"-2.5", "-1.5", -2, -2},
      {"1.2", "1.4", 1, 1},
      {"", "7", 0, 7},
      {"7", "", 0, 7},
      {"few", "many", 0, 0},
      {"12 men", "3 boys", 3, 12},
      {"-0.4", "0.4", 0, 0},
      {"-2147483648", "2147483647", -2147483648, 2147483647},
      {"2147483647", "2147483648", 2147483647, 2147483648},
      {"-999999999", "999999999", -999999999, 999999999},
      {"&H7FFFFFFF", "&HFFFFFFFF", -1, 2147483647},
      {"-1e300", "1e300", -9007199254740992, 9007199254740992},
      {"1e999", "1e999", 9007199254740992, 9007199254740992},
  };
  for (const auto& c : cases) {
    const WholeRange range = RangeOf(c.min, c.max);
    EXPECT_EQ(range.low, c.low) << c.min << " to " << c.max;
    EXPECT_EQ(range.high, c.high) << c.min << " to " << c.max;
  }
}

std::int64_t Draw(double fraction, const WholeRange& range) {
  CallRecorder recorder;
  SimRandom random(recorder);
  random.Script({fraction});
  return DrawWhole(random, range);
}

TEST(DrawWhole, TakesTheWholePartOfTheFractionOfTheRange) {
  const double last = 1 - 0x1p-53;
  EXPECT_EQ(Draw(0, {100, 300}), 100);
  EXPECT_EQ(Draw(0.4333, {100, 300}), 187);
  EXPECT_EQ(Draw(0.5, {100, 300}), 200);
  EXPECT_EQ(Draw(last, {100, 300}), 300);
  EXPECT_EQ(Draw(0, {-3, -1}), -3);
  EXPECT_EQ(Draw(0.34, {-3, -1}), -2);
  EXPECT_EQ(Draw(last, {-3, -1}), -1);
  EXPECT_EQ(Draw(0.5, {0, 1}), 1);
  EXPECT_EQ(Draw(0.49999, {0, 1}), 0);
  const std::int64_t far = std::int64_t{1} << 53;
  EXPECT_EQ(Draw(0, {-far, far}), -far);
  EXPECT_LE(Draw(last, {-far, far}), far);
  EXPECT_EQ(Draw(last, {-2147483648, 2147483647}), 2147483647);
}

/// The chi-square statistic of 100,000 draws, counted in `cells` equal parts of the range, whose
/// size is a multiple of them.
double ChiSquare(const WholeRange& range, std::size_t cells, std::uint64_t seed) {
  constexpr int kDraws = 100000;
  MersenneRandom random;
  random.Reseed(seed);
  std::vector<int> counts(cells);
  const std::int64_t width = (range.high - range.low + 1) / static_cast<std::int64_t>(cells);
  for (int i = 0; i < kDraws; ++i) {
    const std::int64_t drawn = DrawWhole(random, range);
    EXPECT_TRUE(drawn >= range.low && drawn <= range.high) << drawn;
    ++counts[static_cast<std::size_t>((drawn - range.low) / width)];
  }
  const double expected = static_cast<double>(kDraws) / static_cast<double>(cells);
  double sum = 0;
  for (int count : counts) sum += (count - expected) * (count - expected) / expected;
  return sum;
}

TEST(DrawWhole, GivesEveryWholeNumberWithEqualProbability) {
  const struct {
    WholeRange range;
    std::size_t cells;
  } cases[] = {
      {{0, 1}, 2},
      {{1, 6}, 6},
      {{100, 300}, 201},
      {{-50, 49}, 100},
      {{-300, -101}, 200},
      {{-2147483648, 2147483647}, 256},
      {{100000000, 999999999}, 900},
      {{-999999999, 1000000000}, 1000},
  };
  for (const auto& c : cases) {
    // The statistic has mean k and variance 2k for k degrees of freedom; beyond 5 standard
    // deviations lies less than one fair generator in a million, and one that leaves a number out
    // or draws one twice as often lies far beyond, on both sides.
    const double freedom = static_cast<double>(c.cells - 1);
    for (std::uint64_t seed : {1u, 2u, 3u}) {
      const double statistic = ChiSquare(c.range, c.cells, seed);
      EXPECT_LT(statistic, freedom + 5 * std::sqrt(2 * freedom) + 10)
          << c.range.low << " to " << c.range.high;
      if (freedom > 50) {
        EXPECT_GT(statistic, freedom - 5 * std::sqrt(2 * freedom)) << c.range.low;
      }
    }
  }
}

TEST(MersenneRandom, BeginsAnotherSequenceAtEachReseeding) {
  MersenneRandom random;
  std::vector<double> firsts;
  for (int i = 0; i < 100; ++i) {
    random.Reseed();
    const double first = random.Fraction();
    EXPECT_GE(first, 0);
    EXPECT_LT(first, 1);
    for (double other : firsts) EXPECT_NE(first, other);
    firsts.push_back(first);
  }
}

TEST(MersenneRandom, RepeatsASequenceByItsNumber) {
  MersenneRandom one;
  MersenneRandom other;
  one.Reseed(7);
  other.Reseed(7);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(one.Fraction(), other.Fraction());
}

}  // namespace
}  // namespace tarvo
