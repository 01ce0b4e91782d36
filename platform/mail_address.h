#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// One mailbox: an address that is fit for a command, and the name that is shown with it.
struct MailAddress {
  std::string name;     ///< May be empty; one line of any bytes.
  std::string address;  ///< "local@domain" of printable ASCII, at most 254 bytes.
};

/// The mailboxes of a list, with "," or ";" between them outside of double quotes and angle
/// brackets; empty places are left out. Nothing when one of them is no mailbox: then `refused` is
/// that one's text, with every control character as a blank.
///
/// A mailbox is `address` or `name <address>`; the name may stand in double quotes. Addresses with
/// quoted local parts, blanks, control characters or bytes above 127 are none.
std::optional<std::vector<MailAddress>> ReadMailAddresses(std::string_view list,
                                                          std::string& refused);

/// The text with every control character as a blank, so that it stays one line.
std::string InOneLine(std::string_view text);

}  // namespace tarvo
