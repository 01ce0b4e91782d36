#pragma once

#include <cstdint>

namespace tarvo {

/// How long a mailer waits, in milliseconds, all above 0. Those of the conversation are the least
/// that RFC 5321 (4.5.3.2) asks for. However slowly bytes drip in, each is for the whole step.
struct SmtpLimits {
  std::uint32_t lookUp = 30000;       ///< For the addresses of the server's name.
  std::uint32_t connecting = 30000;   ///< For each address.
  std::uint32_t greeting = 300000;    ///< Until the server has said who it is.
  std::uint32_t command = 300000;     ///< EHLO, HELO, MAIL FROM and each RCPT TO, with its answer.
  std::uint32_t data = 120000;        ///< DATA with its answer.
  std::uint32_t block = 180000;       ///< For each block of the mail itself.
  std::uint32_t lastAnswer = 600000;  ///< After the mail: while the server delivers it.
  std::uint32_t farewell = 10000;     ///< QUIT with its answer, on which nothing depends.
};

}  // namespace tarvo
