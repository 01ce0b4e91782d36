#include "xmldoc/text/attribute_scanner.h"

#include <algorithm>

#include "xmldoc/rules/text_rules.h"

namespace tarvo {
namespace {

constexpr auto kNone = std::string_view::npos;

/// Length of the value with its quotes: up to the last blank before some later "=", the first one
/// that leaves an even count of the quote with which the value begins; without one, the whole text.
std::size_t ValueLength(std::string_view text) {
  const char quote = !text.empty() && IsQuote(text.front()) ? text.front() : '\0';
  std::size_t lastBlank = kNone;
  bool odd = false;
  bool oddAtBlank = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ' ') {
      lastBlank = i;
      oddAtBlank = odd;
    } else if (text[i] == '=') {
      if (lastBlank != kNone && !oddAtBlank) return lastBlank;
    } else if (quote != '\0' && text[i] == quote) {
      odd = !odd;
    }
  }
  return text.size();
}

std::string_view WithoutEndCharacters(std::string_view value) {
  if (value.empty() || !IsQuote(value.front())) return value;
  return value.size() < 2 ? std::string_view() : value.substr(1, value.size() - 2);
}

}  // namespace

void TakeAttribute(std::string_view& rest, std::string_view& name, std::string_view& value) {
  const std::size_t equals = rest.find('=');
  name = rest.substr(0, equals);
  if (equals == kNone) {
    value = {};
    rest = {};
    return;
  }
  rest.remove_prefix(equals + 1);
  const std::size_t length = ValueLength(rest);
  value = WithoutEndCharacters(rest.substr(0, length));
  rest.remove_prefix(std::min(length + 1, rest.size()));
}

}  // namespace tarvo
