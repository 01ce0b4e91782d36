#include "core/log_file.h"

#include "support/date_time.h"

namespace tarvo {

void LogFile::Take(const LogLine& line) {
  if (!writes_.Checked() || line.level < levels_.ListIndex()) return;
  // The line is on the screen already; a full disk or a locked file must not stop the supervision.
  static_cast<void>(files_.AppendText(FileOfToday(), line.Text() + "\r\n"));
}

std::string LogFile::FileOfToday() const {
  return folder_ + "\\" + DateStamp(clock_.Now()).substr(0, 8) + ".log";
}

}  // namespace tarvo
