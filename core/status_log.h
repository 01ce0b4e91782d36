#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/files.h"
#include "toolkit/controls.h"
#include "toolkit/rich_text_view.h"

namespace tarvo {

/// The level of a status line. Any other number is shown like `kExtra`.
using LogLevel = std::int32_t;
inline constexpr LogLevel kInfo = 0;
inline constexpr LogLevel kNotice = 1;
inline constexpr LogLevel kAlert = 2;
inline constexpr LogLevel kExtra = 3;

/// The one place where every event of the launcher is told: a line with its time in the view on the
/// screen, where every level is shown, and, as the operator chose, in the day's file in the
/// launcher's folder ("yyyymmdd.log", of the moment of writing). A line reaches the file when its
/// level is at least the index of the entry chosen in `LogH`, whatever the entries say. The time is
/// "yyyy-mm-dd hh:mm:ss".
class StatusLog {
 public:
  StatusLog(RichTextView& RTLog, const CheckBox& WLog, const DropDownList& LogH,
            FileAppender& files, LocalClock& clock, std::string appFolder)
      : RTLog_(RTLog),
        WLog_(WLog),
        LogH_(LogH),
        files_(files),
        clock_(clock),
        appFolder_(std::move(appFolder)) {}

  /// Adds one line: the present time, then the text in the colour of its level.
  void LogStatus(const std::string& text, LogLevel level);

  /// The day's file, full path, whether it is there or not.
  std::string FileOfToday() const;

  /// Adds one line of coloured pieces. A file that cannot be written is passed over without a word.
  void AppendStatus(LogLevel level, const std::vector<ColouredText>& segments);

 private:
  void WriteFileLine(LogLevel level, const std::string& line);

  RichTextView& RTLog_;
  const CheckBox& WLog_;
  const DropDownList& LogH_;
  FileAppender& files_;
  LocalClock& clock_;
  const std::string appFolder_;
};

/// Longest source that the view may have before a line is added to it.
inline constexpr std::size_t kLongestLogSource = 25000;

/// Takes the oldest lines out of a view's source, three a round, until it is no longer than
/// `kLongestLogSource`. The header and the newest line stay, whatever their length.
std::string TrimmedLogSource(std::string source);

}  // namespace tarvo
