// A hundred launchers that are killed in the midst of busy lives; `./bench kills` kills thousands.

#include <gtest/gtest.h>

#include "tests/simulation/kills.h"

namespace tarvo {
namespace {

class Kills : public ::testing::TestWithParam<unsigned> {};

TEST_P(Kills, TheNextLauncherHasEveryServerUnderControlAndNothingIsTornOrLost) {
  constexpr std::size_t kKills = 34;
  const KillCount count = KillInLife(GetParam(), kKills);
  EXPECT_GE(count.kills, kKills);
  for (const std::string& lost : count.lost) ADD_FAILURE() << lost;
  for (const char* event :
       {"started", "crashed", "frozen", "back", "killed", "stopped", "upgraded", "randomized"}) {
    EXPECT_TRUE(count.happened.contains(event)) << event;
  }
  EXPECT_FALSE(count.happened.contains("upgrade-failed"));
}

INSTANTIATE_TEST_SUITE_P(Seeds, Kills, ::testing::Values(1, 3, 4));

}  // namespace
}  // namespace tarvo
