#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/mail/mail_address.h"

namespace tarvo {

/// Lines of headers and of encoded bodies end before this column (RFC 2047, RFC 2045).
constexpr std::size_t kMostMailColumns = 76;

bool IsPrintableAscii(char c);

/// One header with its line end. A text of printable ASCII is folded at its blanks; any other, one
/// with "=?" or with outer blanks, and one with a word that is too long for a line, is written as
/// encoded words (RFC 2047), each of which holds whole characters of the charset. Control
/// characters are blanks, so no text adds a line to the headers. No line is longer than
/// kMostMailColumns. `name` has at most 20 letters, `charset` at most 40.
std::string TextHeader(std::string_view name, std::string_view text, const std::string& charset);

/// One header with its line end: mailboxes, each on a line of its own, names on a line before their
/// address, in quotes or as encoded words. Only an address may be longer than kMostMailColumns.
/// Empty when there are no addresses.
std::string AddressHeader(std::string_view name, const std::vector<MailAddress>& addresses,
                          const std::string& charset);

}  // namespace tarvo
