#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/clock.h"

namespace tarvo {

/// The level of a status line. Any other number is shown like `kExtra`.
enum LogLevel : std::int32_t { kInfo, kNotice, kAlert, kExtra };

/// What a piece of a line is, and so how it is shown: the line's time, or a text of a level, in the
/// order of the levels.
enum class LogInk { Stamp, Info, Notice, Alert, Extra };

struct LogPiece {
  LogInk ink;
  std::string text;
};

/// A line without its end. Its first piece is its time, "yyyy-mm-dd hh:mm:ss: ".
struct LogLine {
  LogLevel level;
  std::vector<LogPiece> pieces;

  std::string Text() const;
};

/// The one place where the launcher reports what happens, as lines for its listeners. It keeps no
/// line. The clock must outlive it.
class StatusLog {
 public:
  explicit StatusLog(LocalClock& clock) : clock_(clock) {}

  /// Adds one line: the present time, then the text.
  void LogStatus(const std::string& text, LogLevel level);
  /// Adds one line of these pieces, the first of them its time.
  void AppendStatus(LogLevel level, std::vector<LogPiece> pieces);

  /// Each gets every line, in their order here, before the call that logs it returns. A listener
  /// must not log, nor change this list; what it refers to must outlive the log's use.
  std::vector<std::function<void(const LogLine&)>> listeners;

 private:
  LocalClock& clock_;
};

}  // namespace tarvo
