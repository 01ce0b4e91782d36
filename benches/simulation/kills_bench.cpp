// Launchers that are killed at every single port call of busy lives, in simulation.
//
//   kills_bench [KILLS]    at least so many, 1000 unless given; whole lives
//
// One line for each life, then "N kills, N lost"; the exit code is 1 when something was lost.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/simulation/kills.h"

int main(int argc, char** argv) {
  const std::size_t wanted = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 1000;
  std::size_t kills = 0;
  std::size_t lost = 0;
  for (unsigned seed = 1; kills < wanted; ++seed) {
    const tarvo::KillCount count = tarvo::KillAtEveryCall(seed);
    std::printf("life %u: %zu port calls, %zu kills, %zu lost\n", seed, count.calls, count.kills,
                count.lost.size());
    for (const std::string& text : count.lost) std::printf("  %s\n", text.c_str());
    std::fflush(stdout);
    kills += count.kills;
    lost += count.lost.size();
  }
  std::printf("%zu kills, %zu lost\n", kills, lost);
  return lost == 0 ? 0 : 1;
}
