#pragma once

#include <string>

#include "core/status_log.h"
#include "platform/files.h"
#include "toolkit/controls.h"

namespace tarvo {

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
