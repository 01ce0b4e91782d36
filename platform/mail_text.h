#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "platform/mail_address.h"

namespace tarvo {

/// What a mail says, and what its headers tell of it.
struct MailContent {
  MailAddress from;
  std::vector<MailAddress> to;
  std::vector<MailAddress> cc;
  std::string subject;
  std::string body;
  bool html = false;
  std::chrono::sys_seconds date;
  std::string charset;  ///< Name of the code page of all the texts.
};

/// The mail as it travels (RFC 5322 and MIME): headers, an empty line and the body, in ASCII lines
/// of at most 998 bytes that end with CR LF. Names and subjects with other bytes than printable
/// ASCII are written as encoded words (RFC 2047), such bodies and those with longer lines as quoted
/// printable. Every control character in a header is a blank, so no text adds a line to the
/// headers. Every line end of the body, CR LF, CR or LF, is CR LF.
std::string MailText(const MailContent& content);

/// The same text as it is sent behind DATA (RFC 5321): a "." before each line that begins with one,
/// and the line with a single "." that ends it.
std::string WithDotsStuffed(std::string_view text);

}  // namespace tarvo
