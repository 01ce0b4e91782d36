#include "randomizer/whole_range.h"

#include <algorithm>
#include <cmath>

#include "support/number_text.h"

namespace tarvo {
namespace {

std::int64_t Rounded(double bound) {
  constexpr double kFarthest = 0x1p53;
  return static_cast<std::int64_t>(std::clamp(RoundedToEven(bound), -kFarthest, kFarthest));
}

}  // namespace

WholeRange RangeOf(std::string_view minText, std::string_view maxText) {
  const double max = NumericValue(maxText);
  const double min = NumericValue(minText);
  return {Rounded(std::min(min, max)), Rounded(std::max(min, max))};
}

std::int64_t DrawWhole(RandomSource& random, const WholeRange& range) {
  const double count = static_cast<double>(range.high - range.low + 1);
  const auto step = static_cast<std::int64_t>(std::floor(random.Fraction() * count));
  return std::min(range.low + step, range.high);
}

}  // namespace tarvo
