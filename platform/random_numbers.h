#pragma once

#include <cstdint>

namespace tarvo {

/// Numbers by chance. They decide nothing that has to be kept secret.
class RandomNumbers {
 public:
  virtual ~RandomNumbers() = default;
  /// A number from 0 to `bound` - 1, each as likely as the others; `bound` is at least 1.
  virtual std::uint32_t Below(std::uint32_t bound) = 0;
};

}  // namespace tarvo
