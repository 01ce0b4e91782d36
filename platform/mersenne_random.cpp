#include "platform/mersenne_random.h"

#include <chrono>

namespace tarvo {
namespace {

std::uint32_t Low(std::uint64_t bits) { return static_cast<std::uint32_t>(bits); }
std::uint32_t High(std::uint64_t bits) { return static_cast<std::uint32_t>(bits >> 32); }

template <class Clock>
std::uint64_t TicksOf() {
  return static_cast<std::uint64_t>(Clock::now().time_since_epoch().count());
}

}  // namespace

void MersenneRandom::Reseed() {
  const std::uint64_t wall = TicksOf<std::chrono::system_clock>();
  const std::uint64_t steady = TicksOf<std::chrono::steady_clock>();
  std::seed_seq seeds{Low(wall), High(wall), Low(steady), High(steady), ++calls_};
  engine_.seed(seeds);
}

double MersenneRandom::Fraction() {
  constexpr int kBits = 53;
  return static_cast<double>(engine_() >> (64 - kBits)) * 0x1p-53;
}

}  // namespace tarvo
