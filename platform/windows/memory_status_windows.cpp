#include "platform/windows/memory_status_windows.h"

#include <windows.h>

namespace tarvo {
namespace {

MEMORYSTATUS Ask() {
  MEMORYSTATUS status{};
  status.dwLength = sizeof(status);
  GlobalMemoryStatus(&status);
  return status;
}

std::int64_t AsSigned(SIZE_T bytes) { return static_cast<std::intptr_t>(bytes); }

}  // namespace

std::int64_t WindowsMemoryStatus::AvailablePhysical() { return AsSigned(Ask().dwAvailPhys); }
std::int64_t WindowsMemoryStatus::TotalPhysical() { return AsSigned(Ask().dwTotalPhys); }
std::int64_t WindowsMemoryStatus::AvailablePagingFile() { return AsSigned(Ask().dwAvailPageFile); }
std::int64_t WindowsMemoryStatus::TotalPagingFile() { return AsSigned(Ask().dwTotalPageFile); }

}  // namespace tarvo
