// The mail as it travels, and the conversation with a server that plays its part from a script.
#include <gtest/gtest.h>

#include <deque>
#include <string>

#include "platform/mail_address.h"
#include "platform/mail_text.h"
#include "platform/smtp_mailer.h"

namespace tarvo {
namespace {

MailContent Content() {
  MailContent content;
  content.from = {"", "me@example.com"};
  content.to = {{"", "you@example.com"}};
  content.subject = "Hello";
  content.body = "Text\r\n";
  using namespace std::chrono;
  content.date = sys_days{year{2026} / November / 21} + hours{9} + minutes{8} + seconds{7};
  content.charset = "windows-1252";
  return content;
}

std::string Header(const std::string& text, const std::string& name) {
  const auto at = ("\r\n" + text).find("\r\n" + name + ": ");
  if (at == std::string::npos) return "none";
  std::size_t end = text.find("\r\n", at);
  while (text[end + 2] == ' ') end = text.find("\r\n", end + 2);
  return text.substr(at + name.size() + 2, end - at - name.size() - 2);
}

std::string BodyOf(const std::string& text) { return text.substr(text.find("\r\n\r\n") + 4); }

void ExpectLegalLines(const std::string& text) {
  std::size_t start = 0;
  while (start < text.size()) {
    const auto end = text.find("\r\n", start);
    ASSERT_NE(end, std::string::npos);
    EXPECT_LE(end - start, 998U);
    EXPECT_EQ(text.substr(start, end - start).find_first_of("\r\n"), std::string::npos);
    start = end + 2;
  }
  for (const char c : text) EXPECT_TRUE(static_cast<unsigned char>(c) < 128);
}

TEST(MailText, IsHeadersAnEmptyLineAndTheBody) {
  const std::string text = MailText(Content());
  const auto id = Header(text, "Message-ID");
  EXPECT_TRUE(id.starts_with("<") && id.ends_with("@example.com>")) << id;
  std::string rest = text;
  rest.erase(rest.find("Message-ID"), id.size() + 14);
  EXPECT_EQ(rest,
            "From: me@example.com\r\nTo: you@example.com\r\nSubject: Hello\r\n"
            "Date: Sat, 21 Nov 2026 09:08:07 +0000\r\nMIME-Version: 1.0\r\n"
            "Content-Type: text/plain; charset=windows-1252\r\n"
            "Content-Transfer-Encoding: 7bit\r\n\r\nText\r\n");
}

TEST(MailText, WritesSubjectsAsTheyAreOrAsEncodedWords) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"Hello world", "Hello world"},
      {"D\xED"
       "as",
       "=?windows-1252?B?RO1hcw==?="},
      {"=?x?B?eA==?=", "=?windows-1252?B?PT94P0I/ZUE9PT89?="},
      {"a\r\nBcc: x@y", "a  Bcc: x@y"},
      {std::string("a\0b", 3), "a b"},
      {" edge", "=?windows-1252?B?IGVkZ2U=?="},
  };
  for (const auto& [subject, header] : cases) {
    MailContent content = Content();
    content.subject = subject;
    const std::string text = MailText(content);
    EXPECT_EQ(Header(text, "Subject"), header) << subject;
    EXPECT_EQ(text.find("\nBcc"), std::string::npos);
    ExpectLegalLines(text);
  }
}

TEST(MailText, FoldsLongSubjects) {
  MailContent content = Content();
  for (int i = 0; i < 300; ++i) content.subject += "word ";
  content.subject += "end";
  const std::string text = MailText(content);
  ExpectLegalLines(text);
  std::string unfolded = Header(text, "Subject");
  for (auto at = unfolded.find("\r\n"); at != std::string::npos; at = unfolded.find("\r\n")) {
    unfolded.erase(at, 2);
  }
  EXPECT_EQ(unfolded, content.subject);
  content.subject = std::string(5000, 'x') + '\xE9';
  const std::string encoded = Header(MailText(content), "Subject");
  std::size_t start = 0;
  for (auto end = encoded.find("\r\n "); start != std::string::npos;
       end = encoded.find("\r\n ", start)) {
    EXPECT_LE(encoded.substr(start, end - start).size(), 75U);
    start = end == std::string::npos ? end : end + 3;
  }
}

TEST(MailText, WritesNamesSoThatNoneBecomesAnotherAddress) {
  const std::pair<const char*, const char*> cases[] = {
      {"Bob", "\"Bob\"\r\n <you@example.com>"},
      {"Bob \"x\" <evil@x>, y", "\"Bob \\\"x\\\" <evil@x>, y\"\r\n <you@example.com>"},
      {"back\\slash", "\"back\\\\slash\"\r\n <you@example.com>"},
      {"Jos\xE9", "=?windows-1252?B?Sm9z6Q==?=\r\n <you@example.com>"},
      {"a\r\nCc: b", "\"a  Cc: b\"\r\n <you@example.com>"},
  };
  for (const auto& [name, header] : cases) {
    MailContent content = Content();
    content.to[0].name = name;
    EXPECT_EQ(Header(MailText(content), "To"), header) << name;
  }
}

TEST(MailText, EncodesBodiesThatDoNotTravelAsTheyAre) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"a", "a\r\n"},
      {"a\nb\rc\r\nd\r\n", "a\r\nb\r\nc\r\nd\r\n"},
      {"tab\there = fine ", "tab\there = fine \r\n"},
      {"\xF1 = 1", "=F1 =3D 1\r\n"},
      {"\xF1 \n\t", "=F1=20\r\n=09\r\n"},
      {std::string("\0", 1), "=00\r\n"},
      {std::string(998, 'x'), std::string(998, 'x') + "\r\n"},
  };
  for (const auto& [body, travelling] : cases) {
    MailContent content = Content();
    content.body = body;
    const std::string text = MailText(content);
    EXPECT_EQ(BodyOf(text), travelling);
    ExpectLegalLines(text);
  }
  MailContent content = Content();
  content.body = std::string(999, 'x');
  const std::string body = BodyOf(MailText(content));
  EXPECT_EQ(body.substr(0, 78), std::string(75, 'x') + "=\r\n");
  ExpectLegalLines(body);
}

TEST(MailText, StuffsDots) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ".\r\n"},
      {"a\r\n", "a\r\n.\r\n"},
      {".\r\n", "..\r\n.\r\n"},
      {"..a\r\nb.c\r\n.d\r\n", "...a\r\nb.c\r\n..d\r\n.\r\n"},
  };
  for (const auto& [text, stuffed] : cases) EXPECT_EQ(WithDotsStuffed(text), stuffed) << text;
}

TEST(MailAddresses, AreReadFromLists) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {" ; , ", ""},
      {"a@b", "|a@b "},
      {"a@b,c@d; e@f", "|a@b |c@d |e@f "},
      {"Bob <a@b>", "Bob|a@b "},
      {"\"Bob, Jr; <x>\" <a@b>, c@d", "Bob, Jr; <x>|a@b |c@d "},
      {"<a@b>", "|a@b "},
      {"Jos\xE9 <a@b>", "Jos\xE9|a@b "},
      {"nobody", "refused: nobody"},
      {"a@b, nobody", "refused: nobody"},
      {"a@", "refused: a@"},
      {"@b", "refused: @b"},
      {"a@b@c", "refused: a@b@c"},
      {"a b@c", "refused: a b@c"},
      {"a@b\r\nRCPT TO:<x@y>", "a@b  RCPT TO:|x@y "},
      {"a@b\xE9", "refused: a@b\xE9"},
      {"x <a@b\r\n>", "x|a@b "},
      {"x <a@b>>", "refused: x <a@b>>"},
  };
  for (const auto& [list, expected] : cases) {
    std::string refused;
    const auto addresses = ReadMailAddresses(list, refused);
    std::string outcome = addresses ? "" : "refused: " + refused;
    if (addresses) {
      for (const MailAddress& one : *addresses) outcome += one.name + "|" + one.address + " ";
    }
    EXPECT_EQ(outcome, expected) << list;
  }
  std::string refused;
  EXPECT_FALSE(ReadMailAddresses(std::string(253, 'a') + "@b", refused));
}

/// Answers every command with the next text of a script, and moves the clock by a second for each.
class ScriptedServer : public TcpConnector, public TickClock {
 public:
  explicit ScriptedServer(std::deque<std::string> answers) : answers_(std::move(answers)) {}

  std::unique_ptr<TcpStream> Connect(const std::string&, int, std::uint32_t,
                                     StreamOutcome& outcome) override {
    outcome = StreamOutcome::Done;
    return std::make_unique<Stream>(*this);
  }
  std::uint32_t Milliseconds() override { return now_; }
  void Pause(std::uint32_t) override {}

  std::string sent;
  std::vector<std::uint32_t> waits;

 private:
  class Stream : public TcpStream {
   public:
    explicit Stream(ScriptedServer& server) : server_(server) {}
    StreamOutcome Send(std::string_view bytes, std::uint32_t) override {
      server_.sent += bytes;
      return StreamOutcome::Done;
    }
    StreamOutcome Receive(std::string& bytes, std::uint32_t milliseconds) override {
      server_.waits.push_back(milliseconds);
      if (server_.answers_.empty()) return StreamOutcome::Closed;
      server_.now_ += 1000;
      bytes += server_.answers_.front();
      server_.answers_.pop_front();
      return StreamOutcome::Done;
    }

   private:
    ScriptedServer& server_;
  };

  std::deque<std::string> answers_;
  std::uint32_t now_ = 0xFFFFFF00;  // wraps on the way
};

class EpochClock : public UtcClock {
 public:
  std::chrono::sys_seconds Now() override { return {}; }
};

MailMessage Message() {
  MailMessage message;
  message.server = "mail";
  message.from = "me@example.com";
  message.to = "you@example.com";
  message.body = "x";
  return message;
}

std::string SendBy(ScriptedServer& server, const MailMessage& message) {
  EpochClock clock;
  return SmtpMailer(server, server, clock).Send(message).value_or("sent");
}

TEST(SmtpMailer, SpeaksToTheServer) {
  ScriptedServer server({"220 hi\r\n", "250-one\r\n250 two\r\n", "250 ok\r\n", "251 forwarded\r\n",
                         "354 go\r\n", "250 ok\r\n", "221 bye\r\n"});
  EXPECT_EQ(SendBy(server, Message()), "sent");
  const auto body = server.sent.find("From: ");
  EXPECT_EQ(
      server.sent.substr(0, body),
      "EHLO [127.0.0.1]\r\nMAIL FROM:<me@example.com>\r\nRCPT TO:<you@example.com>\r\nDATA\r\n");
  EXPECT_TRUE(server.sent.ends_with("\r\n\r\nx\r\n.\r\nQUIT\r\n"));
}

TEST(SmtpMailer, FallsBackToTheOldGreeting) {
  ScriptedServer server({"220 hi\r\n", "502 what\r\n", "250 ok\r\n", "250 ok\r\n", "250 ok\r\n",
                         "354 go\r\n", "250 ok\r\n"});
  EXPECT_EQ(SendBy(server, Message()), "sent");  // also without a farewell
  EXPECT_NE(server.sent.find("EHLO [127.0.0.1]\r\nHELO [127.0.0.1]\r\n"), std::string::npos);
}

TEST(SmtpMailer, ReadsAnswersInPieces) {
  ScriptedServer server(
      {"2", "20 h", "i\r", "\n", "250 a\n", "250 ok\r\n250 ok\r\n354 go\r\n", "250 ok\r\n"});
  EXPECT_EQ(SendBy(server, Message()), "sent");
}

TEST(SmtpMailer, GivesUpOnBadAnswers) {
  const std::pair<std::string, std::string> cases[] = {
      {"hello\r\n", "greeting: not understood: hello"},
      {"22\r\n", "greeting: not understood: 22"},
      {"\r\n", "greeting: not understood: "},
      {"020 x\r\n", "greeting: not understood: 020 x"},
      {"421 later\r\n", "greeting: 421 later"},
      {"554-a\x1B[1m\r\n554 b\r\n", "greeting: 554-a [1m 554 b"},
      {std::string(70000, '2'), "greeting: answer too long"},
      {"220 unfinished", "greeting: connection closed"},
  };
  for (const auto& [answer, reason] : cases) {
    ScriptedServer server({answer});
    EXPECT_EQ(SendBy(server, Message()), reason);
  }
  std::deque<std::string> endless(20, "220-" + std::string(5000, 'x') + "\r\n");
  ScriptedServer server(endless);
  EXPECT_EQ(SendBy(server, Message()), "greeting: answer too long");
}

TEST(SmtpMailer, GivesEachStepItsTimeHoweverSlowlyBytesDripIn) {
  ScriptedServer server(std::deque<std::string>(100, "2"));
  EXPECT_EQ(SendBy(server, Message()), "greeting: no answer in time");
  ASSERT_EQ(server.waits.size(), 30U);
  EXPECT_EQ(server.waits.front(), 30000U);
  EXPECT_EQ(server.waits.back(), 1000U);
}

TEST(SmtpMailer, SpeaksToNobodyForAMailThatCannotBeSent) {
  struct Case {
    const char* from;
    const char* to;
    const char* bcc;
    const char* reason;
  };
  const Case cases[] = {
      {"", "a@b", "", "FROM: one sender is needed"},
      {"a@b, c@d", "a@b", "", "FROM: one sender is needed"},
      {"nobody", "a@b", "", "FROM: no mail address: nobody"},
      {"a@b", "", "", "TO: a recipient is needed"},
      {"a@b", "x", "", "TO: no mail address: x"},
      {"a@b", "a@b", "x\r\nDATA", "BCC: no mail address: x  DATA"},
  };
  for (const Case& one : cases) {
    ScriptedServer server({"220 hi\r\n"});
    MailMessage message = Message();
    message.from = one.from;
    message.to = one.to;
    message.bcc = one.bcc;
    EXPECT_EQ(SendBy(server, message), one.reason);
    EXPECT_EQ(server.sent, "");
  }
}

}  // namespace
}  // namespace tarvo
