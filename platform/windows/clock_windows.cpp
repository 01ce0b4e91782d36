#include "platform/windows/clock_windows.h"

#include <windows.h>

namespace tarvo {

LocalTime WindowsLocalClock::Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const std::chrono::local_days day{std::chrono::year{now.wYear} / std::chrono::month{now.wMonth} /
                                    std::chrono::day{now.wDay}};
  return day + std::chrono::hours{now.wHour} + std::chrono::minutes{now.wMinute} +
         std::chrono::seconds{now.wSecond};
}

std::uint32_t WindowsTickClock::Milliseconds() { return GetTickCount(); }

void WindowsTickClock::Pause(std::uint32_t milliseconds) { Sleep(milliseconds); }

}  // namespace tarvo
