#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// The operating system's application event log.
class EventLog {
 public:
  virtual ~EventLog() = default;
  /// Writes one entry of type error, source "Tarvo Launcher". Never fails: an entry that cannot be
  /// written is lost.
  virtual void WriteError(const std::string& text) = 0;
  /// The same for a text with letters that not every ANSI code page has.
  virtual void WriteUnicodeError(std::u16string_view text) = 0;
};

}  // namespace tarvo
