#include "platform/smtp_mailer.h"

#include <memory>
#include <utility>
#include <vector>

#include "platform/mail_text.h"

namespace tarvo {
namespace {

constexpr std::size_t kMostAnswer = 65536;
constexpr std::size_t kMostReason = 200;

/// Ends a conversation that cannot go on.
struct SmtpFault {
  std::string reason;
};

struct SmtpAnswer {
  int code = 0;
  std::string text;
};

const char* ReasonOf(StreamOutcome outcome) {
  switch (outcome) {
    case StreamOutcome::TimedOut:
      return "no answer in time";
    case StreamOutcome::Closed:
      return "connection closed";
    default:
      return "no connection";
  }
}

/// One conversation with a server. Every step has the same time, however slowly bytes drip in.
class SmtpConversation {
 public:
  SmtpConversation(TcpStream& stream, TickClock& ticks, std::uint32_t stepMilliseconds)
      : stream_(stream), ticks_(ticks), stepMilliseconds_(stepMilliseconds) {}

  /// Sends bytes, which may be none, and gives the answer. Raises SmtpFault when there is none.
  SmtpAnswer Ask(const std::string& step, std::string_view bytes) {
    started_ = ticks_.Milliseconds();
    if (!bytes.empty()) Check(step, stream_.Send(bytes, TimeLeft(step)));
    return ReadAnswer(step);
  }

  /// The same, and raises SmtpFault for every answer but the wanted ones.
  void Demand(const std::string& step, std::string_view bytes, int wanted, int alsoWanted = 0) {
    const SmtpAnswer answer = Ask(step, bytes);
    if (answer.code != wanted && answer.code != alsoWanted) Refuse(step, answer);
  }

  [[noreturn]] static void Refuse(const std::string& step, const SmtpAnswer& answer) {
    throw SmtpFault{step + ": " + InOneLine(answer.text).substr(0, kMostReason)};
  }

 private:
  static void Check(const std::string& step, StreamOutcome outcome) {
    if (outcome != StreamOutcome::Done) throw SmtpFault{step + ": " + ReasonOf(outcome)};
  }

  std::uint32_t TimeLeft(const std::string& step) {
    const std::uint32_t passed = ticks_.Milliseconds() - started_;
    if (passed >= stepMilliseconds_) Check(step, StreamOutcome::TimedOut);
    return stepMilliseconds_ - passed;
  }

  std::string ReadLine(const std::string& step) {
    std::size_t end = received_.find('\n');
    while (end == std::string::npos) {
      const std::size_t before = received_.size();
      Check(step, stream_.Receive(received_, TimeLeft(step)));
      if (received_.size() > kMostAnswer) throw SmtpFault{step + ": answer too long"};
      end = received_.find('\n', before);
    }
    std::string line = received_.substr(0, end);
    received_.erase(0, end + 1);
    if (line.ends_with('\r')) line.pop_back();
    return line;
  }

  SmtpAnswer ReadAnswer(const std::string& step) {
    SmtpAnswer answer;
    for (std::size_t size = 0;;) {
      const std::string line = ReadLine(step);
      size += line.size();
      if (size > kMostAnswer) throw SmtpFault{step + ": answer too long"};
      const bool hasCode =
          line.size() >= 3 && line.find_first_not_of("0123456789") >= 3 && line[0] != '0';
      if (!hasCode) throw SmtpFault{step + ": not understood: " + InOneLine(line).substr(0, 60)};
      answer.code = (line[0] - '0') * 100 + (line[1] - '0') * 10 + (line[2] - '0');
      answer.text += (answer.text.empty() ? "" : " ") + line;
      if (line.size() == 3 || line[3] != '-') return answer;
    }
  }

  TcpStream& stream_;
  TickClock& ticks_;
  const std::uint32_t stepMilliseconds_;
  std::uint32_t started_ = 0;
  std::string received_;
};

std::vector<MailAddress> Mailboxes(const char* what, const std::string& list) {
  std::string refused;
  auto addresses = ReadMailAddresses(list, refused);
  if (!addresses) throw SmtpFault{std::string(what) + ": no mail address: " + refused};
  return std::move(*addresses);
}

struct Letter {
  MailContent content;
  std::vector<MailAddress> recipients;
};

Letter LetterOf(const MailMessage& message) {
  Letter letter;
  const std::vector<MailAddress> from = Mailboxes("FROM", message.from);
  if (from.size() != 1) throw SmtpFault{"FROM: one sender is needed"};
  letter.content.from = from.front();
  letter.content.to = Mailboxes("TO", message.to);
  letter.content.cc = Mailboxes("CC", message.cc);
  letter.recipients = letter.content.to;
  for (const auto& more : {letter.content.cc, Mailboxes("BCC", message.bcc)}) {
    letter.recipients.insert(letter.recipients.end(), more.begin(), more.end());
  }
  if (letter.recipients.empty()) throw SmtpFault{"TO: a recipient is needed"};
  letter.content.subject = message.subject;
  letter.content.body = message.body;
  letter.content.html = message.html;
  return letter;
}

void HandOver(SmtpConversation& server, const Letter& letter, const std::string& helloName) {
  server.Demand("greeting", {}, 220);
  if (server.Ask("EHLO", "EHLO " + helloName + "\r\n").code != 250) {
    server.Demand("HELO", "HELO " + helloName + "\r\n", 250);
  }
  const std::string& sender = letter.content.from.address;
  server.Demand("MAIL FROM", "MAIL FROM:<" + sender + ">\r\n", 250);
  for (const MailAddress& one : letter.recipients) {
    server.Demand("RCPT TO " + one.address, "RCPT TO:<" + one.address + ">\r\n", 250, 251);
  }
  server.Demand("DATA", "DATA\r\n", 354);
  server.Demand("message", WithDotsStuffed(MailText(letter.content)), 250);
}

}  // namespace

std::optional<std::string> SmtpMailer::Send(const MailMessage& message) {
  try {
    Letter letter = LetterOf(message);
    letter.content.date = clock_.Now();
    letter.content.charset = settings_.charset;
    StreamOutcome outcome = StreamOutcome::Failed;
    const std::unique_ptr<TcpStream> stream =
        connector_.Connect(message.server, message.port, settings_.stepMilliseconds, outcome);
    if (stream == nullptr) return std::string("connecting: ") + ReasonOf(outcome);
    SmtpConversation server(*stream, ticks_, settings_.stepMilliseconds);
    HandOver(server, letter, settings_.helloName);
    try {
      server.Ask("QUIT", "QUIT\r\n");
    } catch (const SmtpFault&) {
      // The mail is the server's already; how it says farewell changes nothing.
    }
    return std::nullopt;
  } catch (const SmtpFault& fault) {
    return fault.reason;
  }
}

}  // namespace tarvo
