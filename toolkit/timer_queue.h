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
/// or setting another interval, restarts the interval; setting the present value does nothing. Any
/// event may do so, the timer's own tick included.
///
/// The queue must outlive the timer, and a timer must not be destroyed during its own tick.
class Timer {
 public:
  /// `name` only identifies it. The interval is in milliseconds, 1 to 60000; it is not checked.
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

/// The timers of the window. The queue has no thread and never waits: the event loop asks
/// `UntilNext` and calls `RunNext`, on the one thread of all timers and events.
///
/// A timer whose moment was missed, because an event took long or the machine slept, ticks once and
/// then goes on from there: missed ticks are not made up. Timers that are due at the same moment
/// tick in the order in which they were armed.
class TimerQueue {
 public:
  explicit TimerQueue(TickClock& clock) : clock_(clock) {}

  /// Milliseconds until the next tick, 0 when one is due; nothing when no timer is enabled, or all
  /// are held.
  std::optional<std::uint32_t> UntilNext();

  /// Runs the tick of the timer that has been due longest, through `dispatch`; its next interval
  /// begins before that. May be called within a tick, as from under a message box. False when none
  /// was due.
  bool RunNext(const std::function<void(const std::function<void()>&)>& dispatch);

  /// Holds all timers, one that is due included, or releases them. One that fell due meanwhile
  /// ticks once after the release, as after any event that took long.
  void Hold(bool held);
  bool Held() const { return held_; }

  /// Whether a tick is running, which includes the time of a message box that it has opened.
  bool Ticking() const { return ticking_ > 0; }

  /// The tick count, continued past its wraps, which are 49 days apart.
  std::uint64_t Milliseconds();

  /// Called whenever the next due time may have changed.
  std::function<void()> onChange;

 private:
  friend class Timer;
  Timer* Earliest() const;

  TickClock& clock_;
  std::vector<Timer*> timers_;
  std::uint64_t sequence_ = 0;
  bool held_ = false;
  int ticking_ = 0;
  std::uint64_t now_ = 0;  ///< The tick count continued past its wraps, which are 49 days apart.
};

}  // namespace tarvo
