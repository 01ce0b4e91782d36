#include "ui/rich_text_view.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tarvo {
namespace {

constexpr char kHexDigits[] = "0123456789abcdef";

std::string ColourEntry(Colour colour) {
  return "\\red" + std::to_string(colour & 0xFF) + "\\green" + std::to_string(colour >> 8 & 0xFF) +
         "\\blue" + std::to_string(colour >> 16 & 0xFF) + ";";
}

std::string HeaderFor(const std::vector<Colour>& palette) {
  std::string colours;
  for (Colour colour : palette) colours += ColourEntry(colour);
  return "{\\rtf1\\ansi\\deff0\r\n"
         "{\\fonttbl{\\f0\\fnil Segoe UI;}}\r\n"
         "{\\colortbl ;\r\n" +
         colours +
         "}\r\n"
         "\\viewkind4\\uc1\r\n"
         "\\pard\\f0\\fs18\r\n";
}

void AppendEscaped(std::string& source, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (text.substr(i, 2) == "\r\n") {
      source += "\\par\r\n";
      ++i;
    } else if (byte == '\\' || byte == '{' || byte == '}') {
      source += '\\';
      source += text[i];
    } else if (byte < 0x20 || byte > 0x7E) {
      source += {'\\', '\'', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
    } else {
      source += text[i];
    }
  }
}

std::size_t EndOfHeader(std::string_view source) {
  std::size_t end = 0;
  for (int line = 0; line < RichTextView::kHeaderLines; ++line) {
    const std::size_t lineEnd = source.find("\r\n", end);
    if (lineEnd == std::string_view::npos) return source.size();
    end = lineEnd + 2;
  }
  return end;
}

bool IsLetter(char c) { return c >= 'a' && c <= 'z'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Reads one control word or escape that begins at `position` and returns the position behind it.
std::size_t DecodeEscape(std::string_view source, std::size_t position, std::string& text) {
  const std::size_t start = position + 1;
  if (start >= source.size()) return source.size();
  if (source[start] == '\'') {
    int byte = 0;
    std::from_chars(source.data() + start + 1, source.data() + std::min(start + 3, source.size()),
                    byte, 16);
    text += static_cast<char>(byte);
    return std::min(start + 3, source.size());
  }
  if (!IsLetter(source[start])) {
    text += source[start];
    return start + 1;
  }
  std::size_t end = start;
  while (end < source.size() && IsLetter(source[end])) ++end;
  if (source.substr(start, end - start) == "par") text += "\r\n";
  while (end < source.size() && IsDigit(source[end])) ++end;
  return end < source.size() && source[end] == ' ' ? end + 1 : end;
}

}  // namespace

const std::string RichTextView::kClosing = "}\r\n";

RichTextView::RichTextView(std::vector<Colour> palette)
    : palette_(std::move(palette)), source_(HeaderFor(palette_)) {}

void RichTextView::Append(const ColouredText& piece) {
  const auto entry = std::find(palette_.begin(), palette_.end(), piece.colour);
  const auto index = entry == palette_.end() ? 0 : entry - palette_.begin() + 1;
  if (piece.text != "\r\n") source_ += "\\cf" + std::to_string(index) + ' ';
  AppendEscaped(source_, piece.text);
  if (richMirror_) richMirror_->Appended(piece);
}

void RichTextView::SetSource(std::string source) {
  if (source.ends_with(kClosing)) source.resize(source.size() - kClosing.size());
  source_ = std::move(source);
  if (richMirror_) richMirror_->Replaced(Source());
}

std::string RichTextView::Text() const {
  std::string text;
  const std::string_view source = source_;
  std::size_t position = EndOfHeader(source);
  while (position < source.size()) {
    const char c = source[position];
    if (c == '\\') {
      position = DecodeEscape(source, position, text);
    } else {
      if (c != '\r' && c != '\n') text += c;
      ++position;
    }
  }
  return text;
}

}  // namespace tarvo
