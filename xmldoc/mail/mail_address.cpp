#include "xmldoc/mail/mail_address.h"

#include <algorithm>

#include "support/text.h"
#include "xmldoc/mail/mail_address_syntax.h"

namespace tarvo {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// The position of the first character outside of double quotes that is `wanted`, or the text's
/// end.
template <typename Wanted>
std::size_t FindOutsideQuotes(std::string_view text, CharacterForm form, Wanted wanted) {
  bool inQuotes = false;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t size = CharacterSize(text.substr(at), form);
    const char c = size == 1 ? text[at] : '\0';
    at += size;
    if (c == '"') {
      inQuotes = !inQuotes;
    } else if (!inQuotes && wanted(c)) {
      return at - 1;
    } else if (inQuotes && c == '\\' && at < text.size()) {
      at += CharacterSize(text.substr(at), form);
    }
  }
  return at;
}

/// The text of a name that is in quotes as a whole; any other name as it is.
std::string Unquoted(std::string_view name, CharacterForm form) {
  std::string plain;
  std::size_t at = name.starts_with('"') ? 1 : name.size();
  while (at < name.size() && name[at] != '"') {
    if (name[at] == '\\') ++at;
    const std::size_t size = CharacterSize(name.substr(at), form);
    plain += name.substr(at, size);
    at += size;
  }
  return at + 1 == name.size() ? plain : std::string(name);
}

std::optional<MailAddress> ReadOne(std::string_view text, CharacterForm form) {
  MailAddress one;
  const auto open = FindOutsideQuotes(text, form, [](char c) { return c == '<'; });
  if (open < text.size() && text.back() == '>') {
    one.name = InOneLine(Unquoted(Trimmed(text.substr(0, open), kBlanks), form));
    text = Trimmed(text.substr(open + 1, text.size() - open - 2), kBlanks);
  }
  if (!IsMailAddress(text)) return std::nullopt;
  one.address = std::string(text);
  return one;
}

/// Takes the text up to the next separator off a list.
std::string_view TakePlace(std::string_view& list, CharacterForm form) {
  bool inBrackets = false;
  const auto end = FindOutsideQuotes(list, form, [&](char c) {
    if (c == '<' || c == '>') inBrackets = c == '<';
    return !inBrackets && (c == ',' || c == ';');
  });
  const std::string_view place = list.substr(0, end);
  list.remove_prefix(std::min(end + 1, list.size()));
  return Trimmed(place, kBlanks);
}

}  // namespace

std::optional<std::vector<MailAddress>> ReadMailAddresses(std::string_view list, CharacterForm form,
                                                          std::string& refused) {
  std::vector<MailAddress> addresses;
  while (!list.empty()) {
    const std::string_view place = TakePlace(list, form);
    if (place.empty()) continue;
    std::optional<MailAddress> one = ReadOne(place, form);
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
