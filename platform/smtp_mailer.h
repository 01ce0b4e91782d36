#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/clock.h"
#include "platform/mail.h"
#include "platform/tcp_stream.h"
#include "platform/utc_clock.h"

namespace tarvo {

/// What a mailer says of itself, and how long it waits.
struct SmtpSettings {
  std::string helloName = "[127.0.0.1]";   ///< A full domain name or an address in brackets.
  std::string charset = "windows-1252";    ///< Name of the code page of the texts.
  std::uint32_t stepMilliseconds = 30000;  ///< For each step: connecting, and each answer.
};

/// Hands mails to the mail server that they name, one connection for each (RFC 5321, without
/// authentication or encryption: for a relay in the same house).
///
/// A mail is sent for all its recipients or for none: when the server refuses one of them, the
/// mail is not handed over. The reason that Send gives names the step, and the server's answer,
/// "no answer in time", "connection closed" or "no connection". A server that takes the mail and
/// then fails at the farewell has taken it.
class SmtpMailer : public Mailer {
 public:
  SmtpMailer(TcpConnector& connector, TickClock& ticks, UtcClock& clock, SmtpSettings settings = {})
      : connector_(connector), ticks_(ticks), clock_(clock), settings_(std::move(settings)) {}

  std::optional<std::string> Send(const MailMessage& message) override;

 private:
  TcpConnector& connector_;
  TickClock& ticks_;
  UtcClock& clock_;
  SmtpSettings settings_;
};

}  // namespace tarvo
