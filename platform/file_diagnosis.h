#pragma once

#include <optional>
#include <string>

#include "platform/files.h"

namespace tarvo {

/// Finds out why a file cannot be read.
class FileDiagnosis {
 public:
  virtual ~FileDiagnosis() = default;
  /// The system's reason why the file cannot be opened for reading. Nothing when it can be opened,
  /// and when it is simply not there.
  virtual std::optional<FileFault> WhyUnreadable(const std::string& path) = 0;
};

}  // namespace tarvo
