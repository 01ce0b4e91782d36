#pragma once

#include "platform/event_log.h"

namespace tarvo {

/// Entries by ReportEvent, source "Tarvo Launcher". The source has no file of message texts, so
/// the system's viewer shows the entry's text below a line of its own.
class WindowsEventLog : public EventLog {
 public:
  void WriteError(const std::string& text) override;
  void WriteUnicodeError(std::u16string_view text) override;

  /// As WriteError; true when the system took the entry. A text longer than the system
  /// takes is cut.
  bool Report(const std::string& text);
  bool ReportUnicode(std::u16string_view text);
};

}  // namespace tarvo
