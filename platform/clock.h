#pragma once

#include <chrono>
#include <cstdint>

#include "support/date_time.h"

namespace tarvo {

/// The wall clock. It jumps: the operator sets it, and summer time comes and goes.
class LocalClock {
 public:
  virtual ~LocalClock() = default;
  virtual LocalTime Now() = 0;
};

/// Milliseconds since the system started: never set, never jumps, wraps after 49.7 days.
class TickClock {
 public:
  virtual ~TickClock() = default;
  virtual std::uint32_t Milliseconds() = 0;
  /// Lets that much time pass without handling any event.
  virtual void Pause(std::uint32_t milliseconds) = 0;
};

/// The wall clock in universal time, for what other machines read.
class UtcClock {
 public:
  virtual ~UtcClock() = default;
  virtual std::chrono::sys_seconds Now() = 0;
};

/// The clock of the machine.
class SystemUtcClock : public UtcClock {
 public:
  std::chrono::sys_seconds Now() override {
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  }
};

}  // namespace tarvo
