#include "ui/rich_text_view.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "ui/readable.h"

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

constexpr int kColourLine = 3;  ///< The header's line that lists the colours.

/// Where a line of the source begins.
std::size_t BeginOfLine(std::string_view source, int number) {
  std::size_t begin = 0;
  for (int line = 0; line < number; ++line) {
    const std::size_t end = source.find("\r\n", begin);
    if (end == std::string_view::npos) return source.size();
    begin = end + 2;
  }
  return begin;
}

/// Takes one part of a colour off the text: the number behind its name.
std::uint32_t TakePart(std::string_view& text, std::string_view name) {
  std::uint32_t part = 0;
  if (!text.starts_with(name)) return part;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data() + name.size(), end, part);
  text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
  return part;
}

/// Takes one entry, with the sign that ends it, off a list of colours.
Colour TakeColour(std::string_view& text) {
  const std::uint32_t red = TakePart(text, "\\red");
  const std::uint32_t green = TakePart(text, "\\green");
  const std::uint32_t blue = TakePart(text, "\\blue");
  text.remove_prefix(std::min<std::size_t>(1, text.size()));
  return Rgb(red, green, blue);
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
  std::size_t position = BeginOfLine(source, kHeaderLines);
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

std::string WithReadableColours(std::string source, Colour ground) {
  const std::size_t begin = BeginOfLine(source, kColourLine);
  const std::size_t end = std::min(source.find('}', begin), source.size());
  std::string_view rest = std::string_view(source).substr(begin, end - begin);
  std::string table;
  while (!rest.empty()) table += ColourEntry(Readable(TakeColour(rest), ground));
  return source.replace(begin, end - begin, table);
}

}  // namespace tarvo
