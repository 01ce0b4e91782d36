#pragma once

#include "platform/memory_status.h"

namespace tarvo {

/// The figures of GlobalMemoryStatus. Its fields are as wide as a pointer: a 32-bit program sees a
/// count of 2 GB and more as a negative number.
class WindowsMemoryStatus : public MemoryStatus {
 public:
  std::int64_t AvailablePhysical() override;
  std::int64_t TotalPhysical() override;
  std::int64_t AvailablePagingFile() override;
  std::int64_t TotalPagingFile() override;
};

}  // namespace tarvo
