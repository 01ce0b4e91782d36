#pragma once

#include <cstdint>
#include <string>

#include "platform/memory_status.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The system's memory figures in bytes, as the port gives them.
struct MemoryFigures {
  std::int64_t availablePhysical = 0;
  std::int64_t totalPhysical = 0;
  std::int64_t availablePagingFile = 0;
  std::int64_t totalPagingFile = 0;
};

/// "62% (1,234.56 MB)": the free share of physical memory and paging file together, at least two
/// digits, and the free amount in megabytes. A negative figure is a 32-bit count that has wrapped.
std::string MemoryText(const MemoryFigures& figures);

/// Bytes of physical memory and paging file together.
std::int64_t FreeMemory(MemoryStatus& memory);
std::int64_t TotalMemory(MemoryStatus& memory);

/// The tick of `Mem`, every 5 seconds.
void ShowFreeMemory(MemoryStatus& memory, Label& label);

}  // namespace tarvo
