#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace tarvo {

/// The text without the characters of `blanks` at both of its ends.
std::string_view Trimmed(std::string_view text, std::string_view blanks = " ");

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool HoldsDigitsOnly(std::string_view text) {
  return std::all_of(text.begin(), text.end(), IsDigit);
}
/// A to Z and a to z only.
constexpr bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// The number with zeros before it up to `width` characters, a minus sign included.
std::string ZeroPadded(long long number, std::size_t width = 2);

/// Digits with a comma before every group of three, counted from their end.
std::string WithThousands(std::string digits);

/// Calls visit(line) for each line in order, without its CR LF; nothing else ends a line. There is
/// always at least one; a text that ends with CR LF has an empty last one.
template <typename Visit>
void ForEachLine(std::string_view text, Visit visit) {
  for (;;) {
    const std::size_t end = text.find("\r\n");
    visit(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + 2);
  }
}

/// The text with the letters A to Z in lower case; bytes above 127 stay as they are.
std::string LowerCase(std::string_view text);

}  // namespace tarvo
