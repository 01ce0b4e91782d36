#include "xmldoc/mail/smtp_mailer.h"

#include <vector>

#include "xmldoc/mail/mail_text.h"
#include "xmldoc/mail/smtp_conversation.h"

namespace tarvo {
namespace {

/// The addresses that a mail names.
struct Mailboxes {
  MailAddress from;
  std::vector<MailAddress> to;
  std::vector<MailAddress> cc;
  std::vector<MailAddress> bcc;
};

std::vector<MailAddress> Read(const char* what, const std::string& list, CharacterForm form) {
  std::string refused;
  auto addresses = ReadMailAddresses(list, form, refused);
  if (!addresses) throw SmtpFault{std::string(what) + ": no mail address: " + refused};
  return std::move(*addresses);
}

Mailboxes MailboxesOf(const MailMessage& message, CharacterForm form) {
  Mailboxes all;
  const std::vector<MailAddress> from = Read("FROM", message.from, form);
  if (from.size() != 1) throw SmtpFault{"FROM: one sender is needed"};
  all.from = from.front();
  all.to = Read("TO", message.to, form);
  all.cc = Read("CC", message.cc, form);
  all.bcc = Read("BCC", message.bcc, form);
  if (all.to.empty() && all.cc.empty() && all.bcc.empty()) {
    throw SmtpFault{"TO: a recipient is needed"};
  }
  return all;
}

MailContent ContentOf(const MailMessage& message, const Mailboxes& mailboxes) {
  MailContent content;
  content.from = mailboxes.from;
  content.to = mailboxes.to;
  content.cc = mailboxes.cc;
  content.subject = message.subject;
  content.body = message.body;
  content.html = message.html;
  return content;
}

SmtpDelivery DeliveryOf(const Mailboxes& mailboxes, const MailContent& content) {
  SmtpDelivery delivery;
  delivery.sender = mailboxes.from.address;
  for (const auto* list : {&mailboxes.to, &mailboxes.cc, &mailboxes.bcc}) {
    for (const MailAddress& one : *list) delivery.recipients.push_back(one.address);
  }
  delivery.text = WithDotsStuffed(MailText(content));
  return delivery;
}

}  // namespace

std::optional<std::string> SmtpMailer::Send(const MailMessage& message) {
  try {
    const Mailboxes mailboxes = MailboxesOf(message, CharacterFormOf(settings_.charset));
    MailContent content = ContentOf(message, mailboxes);
    content.date = clock_.Now();
    content.charset = settings_.charset;
    content.serial = NextSerial();
    const SmtpDelivery delivery = DeliveryOf(mailboxes, content);
    const std::unique_ptr<SmtpConversation> server = Reach(message.server, message.port);
    try {
      server->Deliver(settings_.helloName, delivery);
    } catch (const SmtpRefusal&) {
      server->Quit();
      throw;
    }
    server->Quit();
    return std::nullopt;
  } catch (const SmtpFault& fault) {
    return fault.reason;
  }
}

std::unique_ptr<SmtpConversation> SmtpMailer::Reach(const std::string& server, int port) {
  StreamOutcome outcome = StreamOutcome::Failed;
  const std::vector<std::string> addresses =
      connector_.AddressesOf(server, settings_.limits.lookUp, outcome);
  std::string reason = "looking up: ";
  reason += outcome == StreamOutcome::TimedOut ? ReasonOf(outcome) : "no address found";
  for (const std::string& address : addresses) {
    if (auto conversation = ReachAddress(address, port, reason)) return conversation;
  }
  throw SmtpFault{reason};
}

/// A conversation with a server that has greeted, or the reason why there is none.
std::unique_ptr<SmtpConversation> SmtpMailer::ReachAddress(const std::string& address, int port,
                                                           std::string& reason) {
  StreamOutcome outcome = StreamOutcome::Failed;
  auto stream = connector_.Connect(address, port, settings_.limits.connecting, outcome);
  if (stream == nullptr) {
    reason = std::string("connecting: ") + ReasonOf(outcome);
    return nullptr;
  }
  auto conversation =
      std::make_unique<SmtpConversation>(SmtpChannel(std::move(stream), ticks_), settings_.limits);
  try {
    conversation->Greet();
    return conversation;
  } catch (const SmtpRefusal& refusal) {
    reason = refusal.reason;
    conversation->Quit();
  } catch (const SmtpFault& fault) {
    reason = fault.reason;
  }
  return nullptr;
}

std::uint64_t SmtpMailer::NextSerial() {
  // The tick count distinguishes the mails of one mailer from those of the next one.
  return std::uint64_t{++sent_} << 32 | ticks_.Milliseconds();
}

}  // namespace tarvo
