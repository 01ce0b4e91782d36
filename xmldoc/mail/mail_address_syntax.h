#pragma once

#include <string_view>

namespace tarvo {

/// True for an address as RFC 5321 writes it: "local@domain" of printable ASCII, at most 254 bytes.
///
/// `local` is words of letters, digits and !#$%&'*+-/=?^_`{|}~ with single dots between them, or
/// any text in double quotes, in which "\" comes before a double quote or another "\". `domain` is
/// words of letters, digits, "-" and "_", of at most 63 bytes and with "-" neither first nor last,
/// with single dots between them; or an address in brackets, "[10.0.0.1]" or "[IPv6:fe80::1]".
/// The underscore, which RFC 5321 does not know, is for machines that are named so all the same.
bool IsMailAddress(std::string_view text);

}  // namespace tarvo
