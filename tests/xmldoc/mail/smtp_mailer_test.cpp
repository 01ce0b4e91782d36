// The mail client against a real mail server on this machine.
#include <gtest/gtest.h>

#include <ostream>

#include "tests/xmldoc/mail/posix_tcp_stream.h"
#include "tests/xmldoc/mail/scripted_mail_server.h"
#include "tests/xmldoc/mail/smtp_server.h"
#include "xmldoc/mail/smtp_mailer.h"

namespace tarvo {
namespace {

MailMessage Sample(int port) {
  MailMessage message;
  message.server = "127.0.0.1";
  message.port = port;
  message.from = "Launcher <launcher@example.com>";
  message.to = "one@example.com; Two <two@example.com>";
  message.cc = "three@example.com";
  message.bcc = "four@example.com";
  message.subject = "Servers";
  message.body = "All up.\r\n.\r\n..hidden dots\r\n";
  return message;
}

/// Long enough for a machine under load.
SmtpLimits Patient() { return {20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000}; }

std::string SendTo(const SmtpServer& server, const MailMessage& given,
                   const SmtpLimits& limits = Patient()) {
  PosixTcpConnector connector;
  PosixTickClock ticks;
  FixedUtcClock clock;
  SmtpSettings settings;
  settings.limits = limits;
  MailMessage message = given;
  message.port = server.Port();
  return SmtpMailer(connector, ticks, clock, settings).Send(message).value_or("sent");
}

MailMessage LargeSample() {
  MailMessage message = Sample(0);
  // More than the system keeps for a connection, in lines that travel as they are.
  for (int line = 0; line < 7000; ++line) message.body += std::string(900, 'x') + "\r\n";
  return message;
}

TEST(SmtpServerOnLoopback, TakesAPlainMail) {
  SmtpServer server("accept", "all");
  EXPECT_EQ(SendTo(server, Sample(0)), "sent");
  EXPECT_EQ(
      server.NextEvent(),
      R"({"body": "All up.\r\n.\r\n..hidden dots\r\n", "cc": "three@example.com", "faults": [], )"
      R"("from": "Launcher <launcher@example.com>", "headers": ["From", "To", "Cc", )"
      R"("Subject", "Date", "Message-ID", "MIME-Version", "Content-Type", )"
      R"("Content-Transfer-Encoding"], "longest": 46, "recipients": ["one@example.com", )"
      R"("two@example.com", "three@example.com", "four@example.com"], "sender": )"
      R"("launcher@example.com", "subject": "Servers", "to": )"
      R"("one@example.com, Two <two@example.com>", "type": "text/plain"})");
  EXPECT_EQ(server.NextEvent(), "QUIT");
}

TEST(SmtpServerOnLoopback, TakesAnHtmlMailWithBytesAbove127AndLongLines) {
  SmtpServer server("accept", "all");
  MailMessage message = Sample(0);
  message.from = "Jos\xE9 <jose@example.com>";
  message.to = "one@example.com";
  message.cc = message.bcc = "";
  message.html = true;
  message.subject =
      "D\xED"
      "as\r\nBcc: smuggled@example.com";
  message.body = "<p>\xF1</p>" + std::string(2000, 'x');
  EXPECT_EQ(SendTo(server, message), "sent");
  EXPECT_EQ(server.NextEvent(),
            R"({"body": "<p>\u00f1</p>)" + std::string(2000, 'x') +
                R"(\r\n", "cc": null, "faults": [], "from": "Jos\u00e9 <jose@example.com>", )"
                R"("headers": ["From", "To", "Subject", "Date", "Message-ID", "MIME-Version", )"
                R"("Content-Type", "Content-Transfer-Encoding"], "longest": 76, "recipients": )"
                R"(["one@example.com"], "sender": "jose@example.com", "subject": )"
                R"("D\u00edas  Bcc: smuggled@example.com", "to": "one@example.com", )"
                R"("type": "text/html"})");
}

struct SmtpFault {
  const char* mode;
  const char* step;
  const char* reason;
};

void PrintTo(const SmtpFault& fault, std::ostream* out) { *out << fault.mode << ' ' << fault.step; }

class SmtpFaults : public testing::TestWithParam<SmtpFault> {};

/// A time that is too short for the step that is to fail alone.
SmtpLimits Impatient(const std::string& step) {
  SmtpLimits limits = Patient();
  std::uint32_t& limit = step == "greeting"  ? limits.greeting
                         : step == "data"    ? limits.data
                         : step == "message" ? limits.lastAnswer
                                             : limits.command;
  limit = 1000;
  return limits;
}

TEST_P(SmtpFaults, AreNamedWithTheirStep) {
  SmtpServer server(GetParam().mode, GetParam().step);
  const std::string mode = GetParam().mode;
  const bool waits = mode == "silent" || mode == "drip";
  EXPECT_EQ(SendTo(server, Sample(0), waits ? Impatient(GetParam().step) : Patient()),
            GetParam().reason);
  EXPECT_TRUE(mode != "refuse" || server.NextEvent() == "QUIT");
}

INSTANTIATE_TEST_SUITE_P(
    EachStep, SmtpFaults,
    testing::Values(
        SmtpFault{"refuse", "greeting", "greeting: 554 5.7.1 refused at greeting"},
        SmtpFault{"refuse", "ehlo", "HELO: 554 5.7.1 refused at ehlo"},
        SmtpFault{"refuse", "mail", "MAIL FROM: 554 5.7.1 refused at mail"},
        SmtpFault{"refuse", "rcpt", "RCPT TO one@example.com: 554 5.7.1 refused at rcpt"},
        SmtpFault{"refuse", "data", "DATA: 554 5.7.1 refused at data"},
        SmtpFault{"refuse", "message", "message: 554 5.7.1 refused at message"},
        SmtpFault{"silent", "greeting", "greeting: no answer in time"},
        SmtpFault{"silent", "ehlo", "EHLO: no answer in time"},
        SmtpFault{"silent", "mail", "MAIL FROM: no answer in time"},
        SmtpFault{"silent", "rcpt", "RCPT TO one@example.com: no answer in time"},
        SmtpFault{"silent", "data", "DATA: no answer in time"},
        SmtpFault{"silent", "message",
                  "message: no answer in time; the mail may have been taken all the same"},
        SmtpFault{"drip", "mail", "MAIL FROM: no answer in time"},
        SmtpFault{"cut", "greeting", "greeting: connection closed"},
        SmtpFault{"cut", "ehlo", "EHLO: connection closed"},
        SmtpFault{"cut", "mail", "MAIL FROM: connection closed"},
        SmtpFault{"cut", "rcpt", "RCPT TO one@example.com: connection closed"},
        SmtpFault{"cut", "data", "DATA: connection closed"},
        SmtpFault{"cut", "message",
                  "message: connection closed; the mail may have been taken all the same"},
        SmtpFault{"half", "mail", "MAIL FROM: connection closed"},
        SmtpFault{"half", "message", "sent"}, SmtpFault{"leave", "message", "sent"},
        SmtpFault{"late", "message", "sent"}),
    [](const auto& one) { return std::string(one.param.mode) + "_" + one.param.step; });

TEST(SmtpServerOnLoopback, TellsWhyItClosesDuringTheMail) {
  SmtpServer server("refuse", "body");
  EXPECT_EQ(SendTo(server, LargeSample()), "message: 554 5.7.1 refused at body");
}

TEST(SmtpServerOnLoopback, TakesNoMoreOfTheMail) {
  SmtpServer server("silent", "body");
  SmtpLimits limits = Patient();
  limits.block = 500;
  EXPECT_EQ(SendTo(server, LargeSample(), limits), "message: no answer in time");
}

TEST(SmtpServerOnLoopback, HasTimeOfItsOwnForTheLastAnswer) {
  SmtpServer server("late", "message");
  SmtpLimits limits = Patient();
  limits.data = limits.farewell = limits.connecting = limits.lookUp = 900;
  EXPECT_EQ(SendTo(server, Sample(0), limits), "sent");
}

/// A machine that has three addresses, the mail server on the last of them alone.
class MachineOfThreeAddresses : public PosixTcpConnector {
 public:
  std::vector<std::string> AddressesOf(const std::string&, std::uint32_t,
                                       StreamOutcome& outcome) override {
    outcome = StreamOutcome::Done;
    return {"127.0.0.3", "127.0.0.2", "127.0.0.1"};
  }
};

TEST(SmtpServerOnLoopback, IsReachedByTheAddressOnWhichItListens) {
  SmtpServer server("accept", "all");
  MachineOfThreeAddresses connector;
  PosixTickClock ticks;
  FixedUtcClock clock;
  EXPECT_EQ(SmtpMailer(connector, ticks, clock).Send(Sample(server.Port())), std::nullopt);
}

TEST(SmtpServerOnLoopback, HasNoName) {
  PosixTcpConnector connector;
  PosixTickClock ticks;
  FixedUtcClock clock;
  MailMessage message = Sample(25);
  message.server = "no blanks in names";
  EXPECT_EQ(SmtpMailer(connector, ticks, clock).Send(message).value_or("sent"),
            "looking up: no address found");
}

TEST(SmtpServerOnLoopback, NobodyListens) {
  int port = 0;
  {
    SmtpServer gone("accept", "all");
    port = gone.Port();
  }
  PosixTcpConnector connector;
  PosixTickClock ticks;
  FixedUtcClock clock;
  EXPECT_EQ(SmtpMailer(connector, ticks, clock).Send(Sample(port)).value_or("sent"),
            "connecting: no connection");
}

}  // namespace
}  // namespace tarvo
