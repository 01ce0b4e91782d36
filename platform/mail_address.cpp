#include "platform/mail_address.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr std::size_t kMostAddress = 254;

std::string_view Stripped(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

bool IsAddress(std::string_view text) {
  const auto at = text.find('@');
  if (at == std::string_view::npos || at == 0 || at + 1 == text.size()) return false;
  if (text.find('@', at + 1) != std::string_view::npos || text.size() > kMostAddress) return false;
  return std::all_of(text.begin(), text.end(), [](char c) {
    return c > ' ' && c < '\x7F' && std::string_view("<>(),;:\"\\[]").find(c) == std::string::npos;
  });
}

std::string Unquoted(std::string_view name) {
  const bool quoted = name.size() >= 2 && name.front() == '"' && name.back() == '"';
  return std::string(quoted ? name.substr(1, name.size() - 2) : name);
}

std::optional<MailAddress> ReadOne(std::string_view text) {
  MailAddress one;
  const auto open = text.rfind('<');
  if (open != std::string_view::npos && text.back() == '>') {
    one.name = InOneLine(Unquoted(Stripped(text.substr(0, open))));
    text = Stripped(text.substr(open + 1, text.size() - open - 2));
  }
  if (!IsAddress(text)) return std::nullopt;
  one.address = std::string(text);
  return one;
}

/// Takes the text up to the next separator off a list.
std::string_view TakePlace(std::string_view& list) {
  bool inQuotes = false;
  bool inBrackets = false;
  std::size_t at = 0;
  for (; at < list.size(); ++at) {
    const char c = list[at];
    if (c == '"') inQuotes = !inQuotes;
    if (inQuotes) continue;
    if (c == '<' || c == '>') inBrackets = c == '<';
    if (!inBrackets && (c == ',' || c == ';')) break;
  }
  const std::string_view place = list.substr(0, at);
  list.remove_prefix(std::min(at + 1, list.size()));
  return Stripped(place);
}

}  // namespace

std::optional<std::vector<MailAddress>> ReadMailAddresses(std::string_view list,
                                                          std::string& refused) {
  std::vector<MailAddress> addresses;
  while (!list.empty()) {
    const std::string_view place = TakePlace(list);
    if (place.empty()) continue;
    std::optional<MailAddress> one = ReadOne(place);
    if (!one) {
      refused = InOneLine(place);
      return std::nullopt;
    }
    addresses.push_back(std::move(*one));
  }
  return addresses;
}

std::string InOneLine(std::string_view text) {
  std::string line(text);
  for (char& c : line) {
    if (static_cast<unsigned char>(c) < 0x20 || c == '\x7F') c = ' ';
  }
  return line;
}

}  // namespace tarvo
