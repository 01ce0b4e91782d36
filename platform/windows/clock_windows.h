#pragma once

#include "platform/clock.h"

namespace tarvo {

/// The wall clock in the time zone of the machine.
class WindowsLocalClock : public LocalClock {
 public:
  LocalTime Now() override;
};

class WindowsTickClock : public TickClock {
 public:
  std::uint32_t Milliseconds() override;
  void Pause(std::uint32_t milliseconds) override;
};

}  // namespace tarvo
