#include "xmldoc/rules/text_rules.h"

#include <algorithm>

#include "support/runtime_error.h"

namespace tarvo {
namespace {

char LowerKeywordLetter(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool HasBlank(std::string_view name) { return name.find(' ') != std::string_view::npos; }

}  // namespace

std::string_view WithoutOuterBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

bool IsKeyword(std::string_view text, std::string_view keyword) {
  return text.size() == keyword.size() &&
         std::equal(text.begin(), text.end(), keyword.begin(),
                    [](char c, char letter) { return LowerKeywordLetter(c) == letter; });
}

std::string_view CheckedName(std::string_view name) {
  name = WithoutOuterBlanks(name);
  if (HasBlank(name)) throw RuntimeError(1, "Name", "Spaces found in the name");
  return name;
}

std::string_view CheckedDocumentName(std::string_view name) {
  name = WithoutOuterBlanks(name);
  if (HasBlank(name)) throw RuntimeError(10007, "xDocument.Name", "Spaces found in name");
  return name;
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
