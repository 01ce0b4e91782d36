#include "core/status_log.h"

#include "form/status_colours.h"
#include "support/date_time.h"

namespace tarvo {
namespace {

constexpr char kLineEnd[] = "\r\n";
constexpr int kLinesPerRound = 3;

Colour ColourOf(LogLevel level) {
  switch (level) {
    case kInfo:
      return kInfoColour;
    case kNotice:
      return kNoticeColour;
    case kAlert:
      return kAlertColour;
    default:
      return kExtraColour;
  }
}

/// Position behind the line that holds `position`; npos when no line end follows.
std::size_t NextLine(const std::string& source, std::size_t position) {
  const std::size_t end = source.find(kLineEnd, position);
  return end == std::string::npos ? end : end + 2;
}

std::size_t EndOfHeader(const std::string& source) {
  std::size_t end = 0;
  for (int line = 0; line < RichTextView::kHeaderLines && end != std::string::npos; ++line) {
    end = NextLine(source, end);
  }
  return end;
}

/// Where the newest line begins; behind it stands nothing but the closing line.
std::size_t NewestLine(const std::string& source) {
  const std::size_t closing = source.rfind(kLineEnd, source.size() - 3);
  if (closing == std::string::npos || closing == 0) return 0;
  const std::size_t before = source.rfind(kLineEnd, closing - 1);
  return before == std::string::npos ? 0 : before + 2;
}

}  // namespace

std::string TrimmedLogSource(std::string source) {
  const std::size_t header = EndOfHeader(source);
  if (header == std::string::npos) return source;
  const std::size_t newest = NewestLine(source);
  std::size_t cut = header;
  while (source.size() - (cut - header) > kLongestLogSource && cut < newest) {
    for (int line = 0; line < kLinesPerRound && cut < newest; ++line) cut = NextLine(source, cut);
  }
  source.erase(header, cut - header);
  return source;
}

void StatusLog::LogStatus(const std::string& text, LogLevel level) {
  AppendStatus(level, {{kStampColour, GeneralDate(clock_.Now()) + ": "}, {ColourOf(level), text}});
}

void StatusLog::AppendStatus(LogLevel level, const std::vector<ColouredText>& segments) {
  if (RTLog_.SourceLength() > kLongestLogSource) {
    const std::size_t before = RTLog_.SourceLength();
    std::string trimmed = TrimmedLogSource(RTLog_.Source());
    if (trimmed.size() != before) RTLog_.SetSource(std::move(trimmed));
  }
  std::string line;
  for (const ColouredText& segment : segments) {
    RTLog_.Append(segment);
    line += segment.text;
  }
  RTLog_.Append({kStampColour, kLineEnd});
  WriteFileLine(level, line);
}

std::string StatusLog::FileOfToday() const {
  return appFolder_ + "\\" + DateStamp(clock_.Now()).substr(0, 8) + ".log";
}

void StatusLog::WriteFileLine(LogLevel level, const std::string& line) {
  if (!WLog_.Checked() || level < LogH_.ListIndex()) return;
  // The line is on the screen already; a full disk or a locked file must not stop the supervision.
  static_cast<void>(files_.AppendText(FileOfToday(), line + kLineEnd));
}

}  // namespace tarvo
