#pragma once

#include <chrono>
#include <cstdint>

#include "platform/clock.h"

namespace tarvo {

/// Both clocks of the machine. Time stands still until someone moves it: the test, a blocking call,
/// or a pause of the launcher. It begins on 2026-11-21 at 10:00:00, an hour after the system's
/// start.
class SimClock final : public LocalClock, public TickClock {
 public:
  /// After so many milliseconds the tick count begins anew.
  static constexpr std::uint64_t kWrap = std::uint64_t{1} << 32;

  LocalTime Now() override { return std::chrono::floor<std::chrono::seconds>(local_); }
  std::uint32_t Milliseconds() override { return static_cast<std::uint32_t>(ticks_); }
  void Pause(std::uint32_t milliseconds) override { Advance(milliseconds); }

  /// Moves both clocks.
  void Advance(std::uint64_t milliseconds) {
    ticks_ += milliseconds;
    local_ += std::chrono::milliseconds(milliseconds);
  }

  /// The operator sets the wall clock; the tick count takes no notice.
  void SetLocal(LocalTime time) { local_ = time; }
  /// Before a launcher is started: the system's age.
  void SetTicks(std::uint64_t milliseconds) { ticks_ = milliseconds; }
  /// The tick count without its wraps.
  std::uint64_t Age() const { return ticks_; }

 private:
  using LocalMilliseconds = std::chrono::local_time<std::chrono::milliseconds>;
  static constexpr LocalMilliseconds kBeginning =
      std::chrono::local_days(std::chrono::year(2026) / 11 / 21) + std::chrono::hours(10);

  LocalMilliseconds local_ = kBeginning;
  std::uint64_t ticks_ = 3600000;
};

}  // namespace tarvo
