#include "toolkit/rich_text_view.h"

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

/// Each line of the source begins with the colour, so that none needs the line before it.
void AppendEscaped(std::string& source, std::string_view text, const std::string& colour) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (text.substr(i, 2) == "\r\n") {
      source += "\\par\r\n";
      ++i;
      if (i + 1 < text.size()) source += colour;
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

bool IsSmallLetter(char c) { return c >= 'a' && c <= 'z'; }

/// A control word of the source: its name and the number after it.
struct ControlWord {
  std::string_view name;
  std::size_t number = 0;
  std::size_t end = 0;  ///< The position after the word and the blank that ends it.
};

ControlWord ReadWord(std::string_view source, std::size_t begin) {
  ControlWord word;
  std::size_t end = begin;
  while (end < source.size() && IsSmallLetter(source[end])) ++end;
  word.name = source.substr(begin, end - begin);
  const char* const stop = source.data() + source.size();
  const auto number = std::from_chars(source.data() + end, stop, word.number);
  end = static_cast<std::size_t>(number.ptr - source.data());
  word.end = end < source.size() && source[end] == ' ' ? end + 1 : end;
  return word;
}

/// The byte of an escape of the form 'hh.
char EscapedByte(std::string_view escape) {
  int byte = 0;
  std::from_chars(escape.data() + 1, escape.data() + escape.size(), byte, 16);
  return static_cast<char>(byte);
}

}  // namespace

const std::string RichTextView::kClosing = "}\r\n";

RichTextView::RichTextView(std::vector<Colour> palette)
    : palette_(std::move(palette)), source_(HeaderFor(palette_)) {}

void RichTextView::Append(const ColouredText& piece) {
  const auto entry = std::find(palette_.begin(), palette_.end(), piece.colour);
  const auto index = entry == palette_.end() ? 0 : entry - palette_.begin() + 1;
  const std::string colour = "\\cf" + std::to_string(index) + ' ';
  if (piece.text != "\r\n") source_ += colour;
  AppendEscaped(source_, piece.text, colour);
  if (richMirror_) richMirror_->Appended(piece);
}

void RichTextView::SetSource(std::string source) {
  if (source.ends_with(kClosing)) source.resize(source.size() - kClosing.size());
  source_ = std::move(source);
  if (richMirror_) richMirror_->Replaced();
}

template <class OnColour, class OnText>
void RichTextView::Read(OnColour onColour, OnText onText) const {
  const std::string_view source = source_;
  std::size_t position = BeginOfLine(source, kHeaderLines);
  while (position < source.size()) {
    const std::size_t plain = position;
    position = std::min(source.find_first_of("\\\r\n", plain), source.size());
    onText(source.substr(plain, position - plain));
    if (position == source.size()) return;
    if (source[position++] != '\\' || position == source.size()) continue;
    if (source[position] == '\'') {
      const std::string_view escape = source.substr(position, 3);
      const char byte = EscapedByte(escape);
      onText({&byte, 1});
      position += escape.size();
    } else if (!IsSmallLetter(source[position])) {
      onText(source.substr(position++, 1));
    } else {
      const ControlWord word = ReadWord(source, position);
      position = word.end;
      if (word.name == "par") onText("\r\n");
      if (word.name == "cf") onColour(word.number);
    }
  }
}

std::vector<ColouredText> RichTextView::Pieces() const {
  std::vector<ColouredText> pieces(1);
  Read(
      [&](std::size_t entry) {
        pieces.push_back({ColourOf(entry), {}});
      },
      [&](std::string_view text) { pieces.back().text += text; });
  return pieces;
}

Colour RichTextView::ColourOf(std::size_t entry) const {
  return entry == 0 || entry > palette_.size() ? 0 : palette_[entry - 1];
}

std::string RichTextView::Text() const {
  std::string whole;
  Read([](std::size_t) {}, [&](std::string_view text) { whole += text; });
  return whole;
}

}  // namespace tarvo
