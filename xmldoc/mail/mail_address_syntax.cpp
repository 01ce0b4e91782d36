#include "xmldoc/mail/mail_address_syntax.h"

#include <algorithm>
#include <optional>

#include "support/text.h"
#include "xmldoc/rules/text_rules.h"

namespace tarvo {
namespace {

constexpr std::size_t kMostAddress = 254;
constexpr std::size_t kMostLabel = 63;
constexpr std::string_view kIpV6Tag = "ipv6:";

char Raised(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
bool IsHexDigit(char c) { return IsDigit(c) || (Raised(c) >= 'A' && Raised(c) <= 'F'); }

bool IsAtomText(char c) {
  constexpr std::string_view kSigns = "!#$%&'*+-/=?^_`{|}~";
  return IsLetter(c) || IsDigit(c) || kSigns.find(c) != std::string_view::npos;
}

/// Whether the text is parts with single separators between them, each accepted by `isPart`.
template <typename IsPart>
bool IsListOf(std::string_view text, char separator, IsPart isPart) {
  for (;;) {
    const auto end = std::min(text.find(separator), text.size());
    if (!isPart(text.substr(0, end))) return false;
    if (end == text.size()) return true;
    text.remove_prefix(end + 1);
  }
}

bool IsAtom(std::string_view part) {
  return !part.empty() && std::all_of(part.begin(), part.end(), IsAtomText);
}

bool IsLabel(std::string_view part) {
  if (part.empty() || part.size() > kMostLabel || part.front() == '-' || part.back() == '-') {
    return false;
  }
  return std::all_of(part.begin(), part.end(),
                     [](char c) { return IsLetter(c) || IsDigit(c) || c == '-' || c == '_'; });
}

bool IsIpV4Part(std::string_view part) {
  if (part.empty() || part.size() > 3 || !std::all_of(part.begin(), part.end(), IsDigit)) {
    return false;
  }
  int value = 0;
  for (const char c : part) value = value * 10 + (c - '0');
  return value <= 255;
}

bool IsIpV4(std::string_view text) {
  return std::count(text.begin(), text.end(), '.') == 3 && IsListOf(text, '.', IsIpV4Part);
}

/// The number of 16-bit groups with ":" between them, of which the last two may be written as an
/// IPv4 address; nothing when the text is none.
std::optional<int> IpV6Groups(std::string_view text) {
  if (text.empty()) return 0;
  int groups = 0;
  const bool valid = IsListOf(text, ':', [&](std::string_view part) {
    const bool isLast = part.end() == text.end();
    const bool isIpV4 = isLast && IsIpV4(part);
    groups += isIpV4 ? 2 : 1;
    return isIpV4 ||
           (!part.empty() && part.size() <= 4 && std::all_of(part.begin(), part.end(), IsHexDigit));
  });
  return valid ? std::optional(groups) : std::nullopt;
}

bool IsIpV6(std::string_view text) {
  constexpr int kAll = 8;
  const auto gap = text.find("::");
  if (gap == std::string_view::npos) return IpV6Groups(text) == kAll;
  const auto before = IpV6Groups(text.substr(0, gap));
  const auto behind = IpV6Groups(text.substr(gap + 2));
  const bool endsInDigits = text.substr(0, gap).find('.') == std::string_view::npos;
  return before && behind && endsInDigits && *before + *behind < kAll;
}

bool IsAddressLiteral(std::string_view text) {
  if (text.size() < 2 || text.front() != '[' || text.back() != ']') return false;
  text = text.substr(1, text.size() - 2);
  const bool tagged = IsKeyword(text.substr(0, kIpV6Tag.size()), kIpV6Tag);
  return tagged ? IsIpV6(text.substr(kIpV6Tag.size())) : IsIpV4(text);
}

/// The position after the closing quote of a quoted string at the start of the text; 0 for none.
std::size_t QuotedEnd(std::string_view text) {
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '"') return i + 1;
    if (text[i] == '\\') ++i;
    if (i == text.size() || text[i] < ' ' || text[i] > '~') return 0;
  }
  return 0;
}

std::size_t LocalPartEnd(std::string_view text) {
  if (text.starts_with('"')) return QuotedEnd(text);
  const auto end = std::min(text.find('@'), text.size());
  return IsListOf(text.substr(0, end), '.', IsAtom) ? end : 0;
}

}  // namespace

bool IsMailAddress(std::string_view text) {
  if (text.size() > kMostAddress) return false;
  const std::size_t at = LocalPartEnd(text);
  if (at == 0 || at == text.size() || text[at] != '@') return false;
  const std::string_view domain = text.substr(at + 1);
  return IsListOf(domain, '.', IsLabel) || IsAddressLiteral(domain);
}

}  // namespace tarvo
