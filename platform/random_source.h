#pragma once

namespace tarvo {

/// Where chance comes from.
class RandomSource {
 public:
  virtual ~RandomSource() = default;
  /// Begins a new sequence, which the clock decides.
  virtual void Reseed() = 0;
  /// The next fraction, at least 0 and below 1, all with equal probability.
  virtual double Fraction() = 0;
};

}  // namespace tarvo
