#pragma once

#include <chrono>

namespace tarvo {

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
