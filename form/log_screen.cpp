#include "form/log_screen.h"

#include <utility>

#include "form/status_colours.h"

namespace tarvo {
namespace {

constexpr char kLineEnd[] = "\r\n";
constexpr int kLinesPerRound = 3;

/// Position after the line that holds `position`; npos when no line end follows.
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

/// Where the newest line begins; only the closing line follows it.
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

void ShowLine(RichTextView& view, const LogLine& line) {
  if (view.SourceLength() > kLongestLogSource) {
    const std::size_t before = view.SourceLength();
    std::string trimmed = TrimmedLogSource(view.Source());
    if (trimmed.size() != before) view.SetSource(std::move(trimmed));
  }
  for (const LogPiece& piece : line.pieces) view.Append({ColourOf(piece.ink), piece.text});
  view.Append({kStampColour, kLineEnd});
}

}  // namespace tarvo
