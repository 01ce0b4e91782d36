#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/mail/mail_address.h"

namespace tarvo {

/// The contents of a mail and of its headers.
struct MailContent {
  MailAddress from;
  std::vector<MailAddress> to;
  std::vector<MailAddress> cc;
  std::string subject;
  std::string body;
  bool html = false;
  std::chrono::sys_seconds date;
  std::string charset;       ///< Name of the code page of all the texts, at most 40 letters.
  std::uint64_t serial = 0;  ///< Distinguishes mails that are the same otherwise.
};

/// The mail as it travels (RFC 5322 and MIME): headers, an empty line and the body, in ASCII lines
/// of at most 998 bytes that end with CR LF. The headers are as in mail_header.h; bodies with
/// other bytes than printable ASCII and those with longer lines are quoted printable. Every line
/// end of the body, CR LF, CR or LF, is CR LF. The Message-ID is another one for every mail that
/// differs in anything that travels, or in its serial.
std::string MailText(const MailContent& content);

/// The same text as it is sent after DATA (RFC 5321): a "." before each line that begins with one,
/// and the line with a single "." that ends it.
std::string WithDotsStuffed(std::string_view text);

}  // namespace tarvo
