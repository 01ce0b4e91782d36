#include "support/json_writer.h"

#include <cmath>
#include <cstdio>

namespace tarvo {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kHexDigits = "0123456789abcdef";

/// First bytes of a length's characters, and the second bytes that are allowed after them.
struct Utf8Form {
  unsigned char first, last;
  std::size_t length;
  unsigned char secondFirst, secondLast;
};

constexpr Utf8Form kForms[] = {
    {0x00, 0x7F, 1, 0, 0},       {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F}};

bool Between(char c, unsigned char first, unsigned char last) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= first && byte <= last;
}

bool Follows(std::string_view text, const Utf8Form& form) {
  if (text.size() < form.length) return false;
  if (form.length > 1 && !Between(text[1], form.secondFirst, form.secondLast)) return false;
  for (std::size_t i = 2; i < form.length; ++i) {
    if (!Between(text[i], 0x80, 0xBF)) return false;
  }
  return true;
}

}  // namespace

std::size_t Utf8CharacterLength(std::string_view text) {
  if (text.empty()) return 0;
  for (const Utf8Form& form : kForms) {
    if (Between(text[0], form.first, form.last)) return Follows(text, form) ? form.length : 0;
  }
  return 0;
}

JsonWriter& JsonWriter::Name(std::string_view name) {
  Separate();
  AddQuoted(name);
  text_ += ':';
  return *this;
}

JsonWriter& JsonWriter::String(std::string_view text) {
  Separate();
  AddQuoted(text);
  needsComma_ = true;
  return *this;
}

JsonWriter& JsonWriter::Decimal(double number) {
  if (!std::isfinite(number)) return Null();
  char digits[40];
  std::snprintf(digits, sizeof digits, "%.15g", number);
  return Value(digits);
}

JsonWriter& JsonWriter::Open(char sign) {
  Separate();
  text_ += sign;
  return *this;
}

JsonWriter& JsonWriter::Shut(char sign) {
  text_ += sign;
  needsComma_ = true;
  return *this;
}

JsonWriter& JsonWriter::Value(std::string_view text) {
  Separate();
  text_ += text;
  needsComma_ = true;
  return *this;
}

void JsonWriter::Separate() {
  if (needsComma_) text_ += ',';
  needsComma_ = false;
}

void JsonWriter::AddQuoted(std::string_view text) {
  text_ += '"';
  while (!text.empty()) {
    const std::size_t length = Utf8CharacterLength(text);
    const char c = text.front();
    if (length == 0) {
      text_ += kReplacement;
    } else if (c == '"' || c == '\\') {
      text_ += {'\\', c};
    } else if (Between(c, 0, 0x1F)) {
      const auto byte = static_cast<unsigned char>(c);
      text_ += {'\\', 'u', '0', '0', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
    } else {
      text_ += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  text_ += '"';
}

}  // namespace tarvo
