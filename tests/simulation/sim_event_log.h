#pragma once

#include <string>
#include <vector>

#include "platform/event_log.h"
#include "tests/simulation/call_recorder.h"

namespace tarvo {

/// The system's event log, which everybody may write.
class SimEventLog final : public EventLog {
 public:
  explicit SimEventLog(CallRecorder& recorder) : recorder_(recorder) {}

  void WriteError(const std::string& text) override {
    recorder_.Note("eventLog.writeError(" + text + ")");
    entries_.push_back(text);
  }
  /// Shown in the western code page.
  void WriteUnicodeError(std::u16string_view text) override {
    WriteError(std::string(text.begin(), text.end()));
  }

  const std::vector<std::string>& Entries() const { return entries_; }

 private:
  CallRecorder& recorder_;
  std::vector<std::string> entries_;
};

}  // namespace tarvo
