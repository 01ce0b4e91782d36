#include "core/status_log.h"

#include <utility>

#include "support/date_time.h"

namespace tarvo {
namespace {

LogInk InkOf(LogLevel level) {
  const bool known = level >= kInfo && level <= kExtra;
  return known ? static_cast<LogInk>(level + 1) : LogInk::Extra;
}

}  // namespace

std::string LogLine::Text() const {
  std::string text;
  for (const LogPiece& piece : pieces) text += piece.text;
  return text;
}

void StatusLog::LogStatus(const std::string& text, LogLevel level) {
  AppendStatus(level, {{LogInk::Stamp, GeneralDate(clock_.Now()) + ": "}, {InkOf(level), text}});
}

void StatusLog::AppendStatus(LogLevel level, std::vector<LogPiece> pieces) {
  const LogLine line{level, std::move(pieces)};
  for (const auto& listener : listeners) listener(line);
}

void LogFile::Take(const LogLine& line) {
  if (!writes_.Checked() || line.level < levels_.ListIndex()) return;
  // The line is on the screen already; a full disk or a locked file must not stop the supervision.
  static_cast<void>(files_.AppendText(FileOfToday(), line.Text() + "\r\n"));
}

std::string LogFile::FileOfToday() const {
  return folder_ + "\\" + DateStamp(clock_.Now()).substr(0, 8) + ".log";
}

}  // namespace tarvo
