#pragma once

#include <cstdint>

namespace tarvo {

/// The system's memory figures in bytes, as it gives them: where its record has 32-bit fields, a
/// count of 2 GB and more comes out negative. Each call asks the system again.
class MemoryStatus {
 public:
  virtual ~MemoryStatus() = default;
  virtual std::int64_t AvailablePhysical() = 0;
  virtual std::int64_t TotalPhysical() = 0;
  virtual std::int64_t AvailablePagingFile() = 0;
  virtual std::int64_t TotalPagingFile() = 0;
};

}  // namespace tarvo
