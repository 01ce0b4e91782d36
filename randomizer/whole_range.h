#pragma once

#include <cstdint>
#include <string_view>

#include "platform/random_source.h"

namespace tarvo {

/// The whole numbers from `low` to `high`, both included; `low` is not above `high`.
struct WholeRange {
  std::int64_t low = 0;
  std::int64_t high = 0;

  bool operator==(const WholeRange&) const = default;
};

/// The range that two bounds as texts mean: the number that each starts with, 0 for none, rounded
/// to the nearest whole number, halves to even. Bounds in the wrong order are swapped. A bound
/// beyond 2^53, where fractions of 53 bits no longer reach each number, counts as 2^53.
WholeRange RangeOf(std::string_view minText, std::string_view maxText);

/// One number of the range, each with equal probability, from one fraction.
std::int64_t DrawWhole(RandomSource& random, const WholeRange& range);

}  // namespace tarvo
