#pragma once

#include <string>

namespace tarvo {

/// The operating system's application event log.
class EventLog {
 public:
  virtual ~EventLog() = default;
  /// Writes one entry of type error, source "Tarvo Launcher". Never fails: an entry that cannot be
  /// written is lost.
  virtual void WriteError(const std::string& text) = 0;
};

}  // namespace tarvo
