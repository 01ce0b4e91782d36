#include "xmldoc/mail/mail_header.h"

#include <algorithm>
#include <cstdint>

#include "xmldoc/mail/mail_charset.h"

namespace tarvo {
namespace {

constexpr const char* kLineEnd = "\r\n";

bool AllPrintable(std::string_view text) {
  return std::all_of(text.begin(), text.end(), IsPrintableAscii);
}

std::string Base64(std::string_view bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t given = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t bits = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      bits = bits << 8 | (k < given ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      text += k <= given ? kDigits[bits >> (18 - 6 * k) & 63] : '=';
    }
  }
  return text;
}

/// The bytes of as many whole characters as fit, at least one character.
std::size_t WholeCharacters(std::string_view text, std::size_t most, CharacterForm form) {
  std::size_t bytes = CharacterSize(text, form);
  while (bytes < text.size()) {
    const std::size_t next = CharacterSize(text.substr(bytes), form);
    if (bytes + next > most) break;
    bytes += next;
  }
  return bytes;
}

/// Encoded words, the first from that column on, each further one on a line of its own.
std::string EncodedWords(std::string_view text, std::size_t column, const std::string& charset) {
  const CharacterForm form = CharacterFormOf(charset);
  const std::string start = "=?" + charset + "?B?";
  std::string words;
  while (!text.empty()) {
    const std::size_t digits = kMostMailColumns - column - start.size() - 2;
    const std::size_t part = WholeCharacters(text, digits / 4 * 3, form);
    words += start + Base64(text.substr(0, part)) + "?=";
    text.remove_prefix(part);
    if (!text.empty()) words += "\r\n ";
    column = 1;
  }
  return words;
}

/// The text folded at blanks; empty when that does not bring every line within the columns.
std::string Folded(std::string_view text, std::size_t column) {
  std::string folded;
  while (!text.empty()) {
    const auto end = std::min(text.find(' ', 1), text.size());
    // A line of blanks alone would end the headers for some readers.
    const bool fold = column + end > kMostMailColumns && text[0] == ' ' && end > 1;
    if (fold) folded += kLineEnd;
    column = (fold ? 0 : column) + end;
    if (column > kMostMailColumns) return {};
    folded += text.substr(0, end);
    text.remove_prefix(end);
  }
  return folded;
}

std::string NameText(const std::string& given, std::size_t column, const std::string& charset) {
  const std::string name = InOneLine(given);
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  quoted += '"';
  const bool fits = AllPrintable(name) && column + quoted.size() <= kMostMailColumns;
  return fits ? quoted : EncodedWords(name, column, charset);
}

}  // namespace

bool IsPrintableAscii(char c) { return c >= ' ' && c <= '~'; }

std::string TextHeader(std::string_view name, std::string_view text, const std::string& charset) {
  const std::string start = std::string(name) + ": ";
  const std::string line = InOneLine(text);
  if (line.empty()) return start + kLineEnd;
  const bool plain = AllPrintable(line) && line.find("=?") == std::string::npos &&
                     line.front() != ' ' && line.back() != ' ';
  const std::string folded = plain ? Folded(line, start.size()) : std::string();
  return start + (folded.empty() ? EncodedWords(line, start.size(), charset) : folded) + kLineEnd;
}

std::string AddressHeader(std::string_view name, const std::vector<MailAddress>& addresses,
                          const std::string& charset) {
  if (addresses.empty()) return {};
  std::string text(name);
  text += ": ";
  std::size_t column = text.size();
  for (const MailAddress& one : addresses) {
    if (&one != &addresses.front()) text += ",\r\n ";
    text += one.name.empty() ? one.address
                             : NameText(one.name, column, charset) + "\r\n <" + one.address + ">";
    column = 1;
  }
  return text + kLineEnd;
}

}  // namespace tarvo
