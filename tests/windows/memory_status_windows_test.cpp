#include "platform/windows/memory_status_windows.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tarvo {
namespace {

MEMORYSTATUSEX LargeStatus() {
  MEMORYSTATUSEX status{};
  status.dwLength = sizeof(status);
  GlobalMemoryStatusEx(&status);
  return status;
}

// Free amounts change from call to call; totals do not.
TEST(WindowsMemoryStatusTest, GivesTheFiguresOfTheSystem) {
  if (sizeof(void*) == 4) GTEST_SKIP() << "a 32-bit record stops at 2 GB";
  WindowsMemoryStatus memory;
  const MEMORYSTATUSEX system = LargeStatus();
  const auto total = static_cast<std::int64_t>(system.ullTotalPhys);
  EXPECT_EQ(memory.TotalPhysical(), total);
  EXPECT_EQ(memory.TotalPagingFile(), static_cast<std::int64_t>(system.ullTotalPageFile));
  EXPECT_NEAR(static_cast<double>(memory.AvailablePhysical()),
              static_cast<double>(system.ullAvailPhys), static_cast<double>(total) / 4);
  EXPECT_NEAR(static_cast<double>(memory.AvailablePagingFile()),
              static_cast<double>(system.ullAvailPageFile), static_cast<double>(total) / 4);
}

}  // namespace
}  // namespace tarvo
