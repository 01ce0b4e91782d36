#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

namespace tarvo {

/// Tells when one component dies again and again: five deaths within five minutes, told at the
/// fifth, and while that goes on at the first death of each further hour. It is over with a death
/// that is not the fifth within five minutes; the next one is told at once.
///
/// Times are 32-bit tick counts in milliseconds, so they may wrap; deaths that lie a whole wrap
/// apart, 49 days, count as near.
class CrashLoop {
 public:
  static constexpr std::size_t kDeaths = 5;
  static constexpr std::uint32_t kWithin = 5 * 60 * 1000;
  static constexpr std::uint32_t kToldAgainAfter = 60 * 60 * 1000;

  /// The component died. True when this is to be told.
  bool Died(std::uint32_t now);

 private:
  std::deque<std::uint32_t> deaths_;  ///< The last five at most.
  std::optional<std::uint32_t> toldAt_;
};

}  // namespace tarvo
