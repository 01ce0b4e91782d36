// Random storms of faults on the simulated machine, against what the operators' guide promises.
//
//   storms_bench [YEARS [SEED [asleep]]]    1 year and seed 1 unless given; the launcher watches
//                                           throughout, or the machine sleeps between the storms
//
// Ends with "N storms, N faults, N deaths, N broken promises"; the exit code is 1 when one is.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <numeric>

#include "tests/simulation/storm.h"

namespace tarvo {
namespace {

constexpr unsigned kDaysOfAYear = 365;

void Print(const StormReport& report, double seconds) {
  std::size_t faults = 0;
  for (const auto& [fault, count] : report.faults) {
    std::printf("  %-28s %8zu\n", NameOf(fault), count);
    faults += count;
  }
  const auto& times = report.successors;
  const auto at = [&](std::size_t of100) {
    return times.empty() ? 0 : times[(times.size() - 1) * of100 / 100];
  };
  std::printf("death to successor: min %u ms, median %u ms, 95 of 100 %u ms\n", at(0), at(50),
              at(95));
  std::printf("longest event that only probed: %llu ms, of all: %llu ms\n",
              static_cast<unsigned long long>(report.longestProbe),
              static_cast<unsigned long long>(report.longestEvent));
  for (const std::string& broken : report.broken) std::printf("  %s\n", broken.c_str());
  std::printf("%.0f simulated days in %.0f s\n", report.days, seconds);
  std::printf("%zu storms, %zu faults, %zu deaths, %zu broken promises\n", report.storms, faults,
              report.deaths, report.broken.size());
}

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  const auto years = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 1;
  const auto seed = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1;
  const auto begin = std::chrono::steady_clock::now();
  const tarvo::StormReport report = tarvo::StormsOf(
      static_cast<unsigned>(seed), static_cast<unsigned>(years) * tarvo::kDaysOfAYear, argc <= 3);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  tarvo::Print(report, took.count());
  return report.broken.empty() ? 0 : 1;
}
