#pragma once

#include <cstdint>

namespace tarvo {

/// Where chance comes from. It decides nothing that has to be kept secret.
class RandomSource {
 public:
  virtual ~RandomSource() = default;
  /// Begins a new sequence, which the clock decides.
  virtual void Reseed() = 0;
  /// The next fraction, at least 0 and below 1, all with equal probability.
  virtual double Fraction() = 0;
  /// A number from 0 to `bound` - 1, each as likely as the others; `bound` is at least 1.
  virtual std::uint32_t Below(std::uint32_t bound) {
    return static_cast<std::uint32_t>(Fraction() * bound);
  }
};

}  // namespace tarvo
