#pragma once

#include <cstdint>
#include <random>

#include "platform/random_source.h"

namespace tarvo {

/// The Mersenne Twister of 64 bits. Its fractions are the multiples of 2^-53.
class MersenneRandom final : public RandomSource {
 public:
  /// Seeds from the wall clock and the steady clock, both in their finest units, and from a count
  /// of the calls, so that two calls within one unit begin different sequences.
  void Reseed() override;
  /// Begins the sequence of this number, for who wants it repeated.
  void Reseed(std::uint64_t seed) { engine_.seed(seed); }
  double Fraction() override;

 private:
  std::mt19937_64 engine_;
  std::uint32_t calls_ = 0;
};

}  // namespace tarvo
