#include "platform/windows/clock_windows.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace tarvo {
namespace {

/// The local time by the run time's library instead of the system's call.
LocalTime LibraryTime() {
  const std::time_t now = std::time(nullptr);
  const std::tm* parts = std::localtime(&now);
  using namespace std::chrono;
  return local_days{year{parts->tm_year + 1900} / (parts->tm_mon + 1) / parts->tm_mday} +
         hours{parts->tm_hour} + minutes{parts->tm_min} + seconds{parts->tm_sec};
}

TEST(WindowsLocalClockTest, TellsTheTimeOfTheMachine) {
  WindowsLocalClock clock;
  const LocalTime before = LibraryTime();
  const LocalTime now = clock.Now();
  const LocalTime after = LibraryTime();
  // The two sources may change the second at slightly different moments.
  EXPECT_LE(before - std::chrono::seconds{1}, now);
  EXPECT_GE(after + std::chrono::seconds{1}, now);
}

TEST(WindowsTickClockTest, APauseTakesItsTime) {
  WindowsTickClock clock;
  const std::uint32_t before = clock.Milliseconds();
  clock.Pause(100);
  const std::uint32_t passed = clock.Milliseconds() - before;
  EXPECT_GE(passed, 84U);  // One step of the clock less, which on Windows is 16 ms.
  EXPECT_LT(passed, 5000U);
}

}  // namespace
}  // namespace tarvo
