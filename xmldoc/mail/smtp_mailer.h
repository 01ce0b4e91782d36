#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "platform/clock.h"
#include "xmldoc/mail/mail.h"
#include "xmldoc/mail/smtp_channel.h"
#include "xmldoc/mail/tcp_stream.h"

namespace tarvo {

class SmtpConversation;

/// How a mailer introduces itself, and how long it waits.
struct SmtpSettings {
  std::string helloName = "[127.0.0.1]";  ///< A full domain name or an address in brackets.
  std::string charset = "windows-1252";   ///< Name of the code page of the texts, see MailContent.
  SmtpLimits limits;
};

/// Hands mails to the mail server that they name, one connection for each (RFC 5321, without
/// authentication or encryption: for a relay in the same house).
///
/// The addresses of the server's name are tried in turn, each with its own time, until one of them
/// greets; the reason of a failure there is the last one's. A mail is sent for all its recipients
/// or for none: when the server refuses one of them, the mail is not handed over. The reason that
/// Send gives names the step, and the server's answer, "no answer in time", "connection closed",
/// "no connection" or "no address found". A mail that the server has accepted counts as sent,
/// whatever fails afterwards; where only the server knows whether it has, the reason says so.
///
/// Send returns when all that is done, after minutes at worst, and raises only std::bad_alloc. The
/// ports have to outlive the mailer.
class SmtpMailer : public Mailer {
 public:
  SmtpMailer(TcpConnector& connector, TickClock& ticks, UtcClock& clock, SmtpSettings settings = {})
      : connector_(connector), ticks_(ticks), clock_(clock), settings_(std::move(settings)) {}

  std::optional<std::string> Send(const MailMessage& message) override;

 private:
  std::unique_ptr<SmtpConversation> Reach(const std::string& server, int port);
  std::unique_ptr<SmtpConversation> ReachAddress(const std::string& address, int port,
                                                 std::string& reason);
  std::uint64_t NextSerial();

  TcpConnector& connector_;
  TickClock& ticks_;
  UtcClock& clock_;
  SmtpSettings settings_;
  std::uint32_t sent_ = 0;
};

}  // namespace tarvo
