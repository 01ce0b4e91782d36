#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"

namespace tarvo {

class TimerQueue;

/// An interval timer: while it is enabled it ticks each time its interval has passed. Enabling it,
/// or setting another interval, starts the interval afresh; setting what is set already does
/// nothing. A timer must not outlive its queue.
class Timer {
 public:
  /// `name` is for people and tests. The interval is in milliseconds, 1 to 60000.
  Timer(TimerQueue& queue, std::string name, std::uint32_t interval, bool enabled = false);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  const std::string& Name() const { return name_; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  std::uint32_t Interval() const { return interval_; }
  void SetInterval(std::uint32_t milliseconds);

  std::function<void()> onTick;

 private:
  friend class TimerQueue;
  void Arm();

  TimerQueue& queue_;
  std::string name_;
  std::uint32_t interval_;
  bool enabled_ = false;
  std::uint64_t due_ = 0;       ///< On the queue's unwrapped time base.
  std::uint64_t sequence_ = 0;  ///< Order of arming, which decides among equal due times.
};

/// The timers of the window, run from its event loop. A timer whose moment was missed, because an
/// event took long or the machine slept, ticks once and then goes on from there: missed ticks are
/// not made up. Timers that are due at the same moment tick in the order in which they were armed.
class TimerQueue {
 public:
  explicit TimerQueue(TickClock& clock) : clock_(clock) {}

  /// Milliseconds until the next tick, 0 when one is due; nothing when no timer is enabled, or all
  /// are held.
  std::optional<std::uint32_t> UntilNext();

  /// Runs the one timer that has been due longest, through `dispatch`. False when none was due.
  bool RunNext(const std::function<void(const std::function<void()>&)>& dispatch);

  /// Stops the timers, one that is due included, or lets them go on. What fell due while they were
  /// held ticks once when they go on, as after any event that took long.
  void Hold(bool held);
  bool Held() const { return held_; }

  /// Whether a tick is running, what it has opened included.
  bool Ticking() const { return ticking_ > 0; }

  /// Called whenever the next due time may have changed.
  std::function<void()> onChange;

 private:
  friend class Timer;
  Timer* Earliest() const;
  std::uint64_t Now();

  TickClock& clock_;
  std::vector<Timer*> timers_;
  std::uint64_t sequence_ = 0;
  bool held_ = false;
  int ticking_ = 0;
  std::uint64_t now_ = 0;  ///< The tick count continued past its wraps.
};

}  // namespace tarvo
