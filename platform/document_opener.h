#pragma once

#include <string>

namespace tarvo {

/// Opens documents in the programs that the operator reads them with.
class DocumentOpener {
 public:
  virtual ~DocumentOpener() = default;
  /// Returns at once. False when there is no such file, or nothing to open it with.
  virtual bool Open(const std::string& path) = 0;
};

}  // namespace tarvo
