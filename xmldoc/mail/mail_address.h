#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/mail/mail_charset.h"

namespace tarvo {

/// One mailbox: an address that is fit for a command, and the name that is shown with it.
struct MailAddress {
  std::string name;     ///< May be empty; one line of any bytes.
  std::string address;  ///< As IsMailAddress accepts it.
};

/// The mailboxes of a list, with "," or ";" between them outside of double quotes and angle
/// brackets; empty places are left out. Nothing when one of them is no mailbox: then `refused` is
/// that one's text, with every control character as a blank.
///
/// A mailbox is `address` or `name <address>`. The name may be in double quotes, in which a "\"
/// makes the next character a plain one. `form` says which bytes are one character, as the second
/// byte of some looks like "\".
std::optional<std::vector<MailAddress>> ReadMailAddresses(std::string_view list, CharacterForm form,
                                                          std::string& refused);

/// The text with every control character as a blank, so that it stays one line.
std::string InOneLine(std::string_view text);

}  // namespace tarvo
