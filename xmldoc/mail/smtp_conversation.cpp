#include "xmldoc/mail/smtp_conversation.h"

#include <algorithm>

namespace tarvo {
namespace {

// The first digit of a reply code (RFC 5321, 4.2.1).
constexpr int kCompletion = 2;
constexpr int kIntermediate = 3;
constexpr int kPermanentFailure = 5;
constexpr std::size_t kBlock = 16384;
constexpr const char* kMessage = "message";

[[noreturn]] void Refuse(const std::string& step, const SmtpAnswer& answer) {
  throw SmtpRefusal{{ReasonOf(step, answer)}};
}

}  // namespace

void SmtpConversation::Greet() { Demand(kCompletion, "greeting", {}, limits_.greeting); }

void SmtpConversation::Deliver(const std::string& helloName, const SmtpDelivery& delivery) {
  Introduce(helloName);
  Demand(kCompletion, "MAIL FROM", "MAIL FROM:<" + delivery.sender + ">\r\n", limits_.command);
  for (const std::string& one : delivery.recipients) {
    Demand(kCompletion, "RCPT TO " + one, "RCPT TO:<" + one + ">\r\n", limits_.command);
  }
  Demand(kIntermediate, "DATA", "DATA\r\n", limits_.data);
  SendText(delivery.text);
  AwaitLastAnswer();
}

void SmtpConversation::Quit() noexcept {
  try {
    channel_.Ask("QUIT", "QUIT\r\n", limits_.farewell);
  } catch (...) {
    // What became of the mail is settled; how the server says farewell changes nothing.
  }
}

void SmtpConversation::Introduce(const std::string& helloName) {
  const SmtpAnswer answer = channel_.Ask("EHLO", "EHLO " + helloName + "\r\n", limits_.command);
  if (answer.kind == kCompletion) return;
  // A server that does not know EHLO may know the old greeting.
  if (answer.kind != kPermanentFailure) Refuse("EHLO", answer);
  Demand(kCompletion, "HELO", "HELO " + helloName + "\r\n", limits_.command);
}

void SmtpConversation::SendText(std::string_view text) {
  while (!text.empty()) {
    channel_.SendPart(kMessage, text.substr(0, kBlock), limits_.block);
    text.remove_prefix(std::min(kBlock, text.size()));
  }
}

void SmtpConversation::AwaitLastAnswer() {
  SmtpAnswer answer;
  try {
    answer = channel_.Ask(kMessage, {}, limits_.lastAnswer);
  } catch (const SmtpFault& fault) {
    const int kind = channel_.KindBegun();
    if (kind == kCompletion) return;
    if (kind != 0) throw;
    throw SmtpFault{fault.reason + "; the mail may have been taken all the same"};
  }
  if (answer.kind != kCompletion) Refuse(kMessage, answer);
}

void SmtpConversation::Demand(int kind, const std::string& step, std::string_view command,
                              std::uint32_t milliseconds) {
  const SmtpAnswer answer = channel_.Ask(step, command, milliseconds);
  if (answer.kind != kind) Refuse(step, answer);
}

}  // namespace tarvo
