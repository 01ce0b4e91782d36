#include "support/number_text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

bool IsHexPrefix(std::string_view text) {
  return text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h');
}

/// The bits of a 32-bit signed number; nothing for no digits, or for more than 32 bits.
struct HexDigits {
  std::size_t count = 0;
  std::optional<std::int32_t> value;
};

HexDigits ReadHex(std::string_view text) {
  std::uint32_t bits = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), bits, 16);
  HexDigits digits;
  digits.count = static_cast<std::size_t>(result.ptr - text.data());
  if (result.ec == std::errc()) digits.value = static_cast<std::int32_t>(bits);
  return digits;
}

/// The value of the hexadecimal digits that the text starts with; 0 for none. More than 32 bits are
/// a number as large as they say, as decimal digits would be.
double HexValue(std::string_view text) {
  const HexDigits hex = ReadHex(text);
  if (hex.value || hex.count == 0) return hex.value.value_or(0);
  double value = 0;
  const auto result =
      std::from_chars(text.data(), text.data() + hex.count, value, std::chars_format::hex);
  return result.ec == std::errc() ? value : std::numeric_limits<double>::max();
}

std::size_t SkipDigits(std::string_view text, std::size_t position) {
  while (position < text.size() && IsDigit(text[position])) ++position;
  return position;
}

/// Length of the decimal number that the text starts with, sign and exponent included; 0 for none.
std::size_t DecimalLength(std::string_view text) {
  const std::size_t sign = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
  std::size_t end = SkipDigits(text, sign);
  std::size_t digits = end - sign;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fraction = SkipDigits(text, end + 1);
    digits += fraction - end - 1;
    end = fraction;
  }
  if (digits == 0) return 0;
  if (end < text.size() && std::string_view("eEdD").find(text[end]) != std::string_view::npos) {
    std::size_t exponent = end + 1;
    if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
    const std::size_t exponentEnd = SkipDigits(text, exponent);
    if (exponentEnd > exponent) end = exponentEnd;
  }
  return end;
}

/// Whether a decimal number that is not 0 is below 1, going by its digits and its exponent.
bool LiesBelowOne(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, mark);
  const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
  const auto first = static_cast<std::int64_t>(digits.find_first_of("123456789"));
  std::string_view text = number.substr(std::min(mark + 1, number.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t exponent = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), exponent);
  if (result.ec == std::errc::result_out_of_range) return text.front() == '-';
  const std::int64_t place = first < point ? point - first : point - first + 1;
  return exponent <= -place;
}

/// The value of a decimal number that `DecimalLength` has measured.
double DecimalValue(std::string_view number) {
  std::string text(number.front() == '+' ? number.substr(1) : number);
  for (char& c : text) {
    if (c == 'd' || c == 'D') c = 'e';
  }
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  const double limit = LiesBelowOne(text) ? 0 : std::numeric_limits<double>::max();
  return text.front() == '-' ? -limit : limit;
}

std::string WithoutSpace(std::string_view text) {
  std::string kept;
  for (char c : text) {
    if (c != ' ' && c != '\t' && c != '\n') kept += c;
  }
  return kept;
}

}  // namespace

double NumericValue(std::string_view text) {
  const std::string compact = WithoutSpace(text);
  const std::string_view number = compact;
  if (IsHexPrefix(number)) return HexValue(number.substr(2));
  const std::size_t length = DecimalLength(number);
  return length == 0 ? 0 : DecimalValue(number.substr(0, length));
}

bool IsNumeric(std::string_view text) {
  const std::string_view number = Trimmed(text, " \t");
  if (IsHexPrefix(number)) {
    const HexDigits hex = ReadHex(number.substr(2));
    return hex.value && hex.count == number.size() - 2;
  }
  const std::size_t length = DecimalLength(number);
  return length != 0 && length == number.size();
}

std::int32_t ToInteger(std::string_view text) {
  const std::string_view number = Trimmed(text, " \t");
  if (IsHexPrefix(number)) {
    const HexDigits hex = ReadHex(number.substr(2));
    if (hex.count == 0 || hex.count != number.size() - 2) throw RuntimeError(Fault::TypeMismatch);
    if (!hex.value) throw RuntimeError(Fault::Overflow);
    return *hex.value;
  }
  const std::size_t length = DecimalLength(number);
  if (length == 0 || length != number.size()) throw RuntimeError(Fault::TypeMismatch);
  return RoundToInteger(DecimalValue(number));
}

double RoundedToEven(double value) {
  const double floor = std::floor(value);
  const double rest = value - floor;
  const bool floorIsOdd = std::fmod(floor, 2.0) != 0;
  return rest > 0.5 || (rest == 0.5 && floorIsOdd) ? floor + 1 : floor;
}

std::int32_t RoundToInteger(double value) {
  const double rounded = RoundedToEven(value);
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    throw RuntimeError(Fault::Overflow);
  }
  return static_cast<std::int32_t>(rounded);
}

std::string ShortestDecimal(double value) {
  char digits[40];
  const auto result =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 15);
  std::string text(digits, result.ptr);
  for (char& c : text) {
    if (c == 'e') c = 'E';
  }
  return text == "-0" ? "0" : text;
}

std::string PlainDecimal(double value) {
  const std::string text = ShortestDecimal(value);
  if (text.find('E') == std::string::npos) return text;
  char digits[1100];  // The longest double has 309 digits before the point or 1074 after it.
  const auto result =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed);
  return std::string(digits, result.ptr);
}

}  // namespace tarvo
