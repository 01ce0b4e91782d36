#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/files.h"
#include "toolkit/controls.h"

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

/// Keeps the lines of the status log, as the operator chose, in the day's file in the launcher's
/// folder ("yyyymmdd.log", of the moment of writing). A line reaches the file when its level is at
/// least the index of the chosen entry, whatever the entries say.
class LogFile {
 public:
  LogFile(const CheckBox& writes, const DropDownList& levels, FileAppender& files,
          LocalClock& clock, std::string folder)
      : writes_(writes),
        levels_(levels),
        files_(files),
        clock_(clock),
        folder_(std::move(folder)) {}

  /// A file that cannot be written is skipped silently.
  void Take(const LogLine& line);

  /// The full path of the day's file, whether it exists or not.
  std::string FileOfToday() const;

 private:
  const CheckBox& writes_;
  const DropDownList& levels_;
  FileAppender& files_;
  LocalClock& clock_;
  const std::string folder_;
};

}  // namespace tarvo
