#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/mail/smtp_channel.h"

namespace tarvo {

/// The server has refused, and waits for the next command.
struct SmtpRefusal : SmtpFault {};

/// A mail and its envelope.
struct SmtpDelivery {
  std::string sender;
  std::vector<std::string> recipients;  ///< At least one.
  std::string text;                     ///< As it is sent after DATA, its last line the ".".
};

/// One conversation with a server (RFC 5321): Greet, Deliver, Quit. A refusal is raised as
/// SmtpRefusal, and Quit is to follow it; what ends the conversation is raised as SmtpFault.
class SmtpConversation {
 public:
  SmtpConversation(SmtpChannel channel, const SmtpLimits& limits)
      : channel_(std::move(channel)), limits_(limits) {}

  /// Waits until the server has said that it is there.
  void Greet();

  /// Introduces the sender and hands the mail over: for all its recipients or for none. Returns as
  /// soon as the server has said that the mail is its own, even when nothing but the code came. A
  /// fault between the mail and that answer says that the mail may have been taken all the same.
  void Deliver(const std::string& helloName, const SmtpDelivery& delivery);

  /// Says farewell. Raises nothing, whatever comes of it.
  void Quit() noexcept;

 private:
  void Introduce(const std::string& helloName);
  void SendText(std::string_view text);
  void AwaitLastAnswer();
  void Demand(int kind, const std::string& step, std::string_view command,
              std::uint32_t milliseconds);

  SmtpChannel channel_;
  const SmtpLimits limits_;
};

}  // namespace tarvo
