#include "xmldoc/text_rules.h"

#include <algorithm>

namespace tarvo {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool LessInLowerCase(char a, char b) {
  return static_cast<unsigned char>(Lower(a)) < static_cast<unsigned char>(Lower(b));
}

}  // namespace

std::string_view WithoutOuterBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::string LowerCased(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
  return lower;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                            [](char x, char y) { return Lower(x) == Lower(y); });
}

bool LessIgnoringCase(std::string_view a, std::string_view b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), LessInLowerCase);
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (;;) {
    const auto plain = text.find_first_of("<>");
    escaped += text.substr(0, plain);
    if (plain == std::string_view::npos) return escaped;
    escaped += text[plain] == '<' ? "&lt;" : "&gt;";
    text.remove_prefix(plain + 1);
  }
}

std::string Unescaped(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (;;) {
    const auto entity = text.find('&');
    plain += text.substr(0, entity);
    if (entity == std::string_view::npos) return plain;
    text.remove_prefix(entity);
    const bool less = text.starts_with("&lt;");
    const bool known = less || text.starts_with("&gt;");
    plain += !known ? '&' : less ? '<' : '>';
    text.remove_prefix(known ? 4 : 1);
  }
}

}  // namespace tarvo
