// The conversation with a mail server that plays its part from a script.
#include <gtest/gtest.h>

#include <string>

#include "tests/xmldoc/mail/scripted_mail_server.h"
#include "xmldoc/mail/smtp_mailer.h"

namespace tarvo {
namespace {

using Answers = std::deque<std::string>;

MailMessage Message() {
  MailMessage message;
  message.server = "mail";
  message.from = "me@example.com";
  message.to = "you@example.com";
  message.body = "x";
  return message;
}

std::string SendBy(ScriptedMailServer& server, const MailMessage& message = Message()) {
  FixedUtcClock clock;
  return SmtpMailer(server, server, clock).Send(message).value_or("sent");
}

/// The answers of a good server up to a step, the steps counted from the greeting: EHLO, MAIL FROM,
/// RCPT TO, DATA, the mail, QUIT.
Answers GoodUpTo(int step) {
  Answers answers{"220 hi\r\n",        "250-one\r\n250 two\r\n", "250 ok\r\n",
                  "251 forwarded\r\n", "354 go on\r\n",          "250 ok\r\n",
                  "221 bye\r\n"};
  answers.resize(static_cast<std::size_t>(step));
  return answers;
}

Answers GoodUpTo(int step, const Answers& more) {
  Answers answers = GoodUpTo(step);
  answers.insert(answers.end(), more.begin(), more.end());
  return answers;
}

constexpr int kEhlo = 1;
constexpr int kMail = 2;
constexpr int kRcpt = 3;
constexpr int kData = 4;
constexpr int kMessage = 5;
constexpr int kQuit = 6;
constexpr int kAll = 7;

int Farewells(const ScriptedMailServer& server) {
  int count = 0;
  for (auto at = server.sent.find("QUIT"); at != std::string::npos;
       at = server.sent.find("QUIT", at + 1)) {
    ++count;
  }
  return count;
}

TEST(SmtpMailer, SpeaksToTheServer) {
  ScriptedMailServer server(GoodUpTo(kAll));
  EXPECT_EQ(SendBy(server), "sent");
  const auto body = server.sent.find("From: ");
  EXPECT_EQ(
      server.sent.substr(0, body),
      "EHLO [127.0.0.1]\r\nMAIL FROM:<me@example.com>\r\nRCPT TO:<you@example.com>\r\nDATA\r\n");
  EXPECT_TRUE(server.sent.ends_with("\r\n\r\nx\r\n.\r\nQUIT\r\n"));
}

TEST(SmtpMailer, FallsBackToTheOldGreeting) {
  ScriptedMailServer server({"220 hi\r\n", "502 what\r\n", "250 ok\r\n", "250 ok\r\n", "250 ok\r\n",
                             "354 go\r\n", "250 ok\r\n"});
  EXPECT_EQ(SendBy(server), "sent");
  EXPECT_NE(server.sent.find("EHLO [127.0.0.1]\r\nHELO [127.0.0.1]\r\n"), std::string::npos);
}

TEST(SmtpMailer, TakesCodesWithoutAText) {
  ScriptedMailServer server(
      {"220\r\n", "250-\r\n250\r\n", "250\r\n", "250\r\n", "354\r\n", "250\r\n"});
  EXPECT_EQ(SendBy(server), "sent");
}

TEST(SmtpMailer, ReadsAnswersInPieces) {
  ScriptedMailServer server(
      {"2", "20 h", "i\r", "\n", "250 a\n", "250 ok\r\n250 ok\r\n354 go\r\n", "250 ok\r\n"});
  EXPECT_EQ(SendBy(server), "sent");
}

TEST(SmtpMailer, GivesUpOnBadAnswers) {
  const std::pair<std::string, std::string> cases[] = {
      {"hello\r\n", "greeting: not understood: hello"},
      {std::string(61, 'h') + "\r\n", "greeting: not understood: " + std::string(60, 'h')},
      {"22\r\n", "greeting: not understood: 22"},
      {"\r\n", "greeting: not understood: "},
      {"020 x\r\n", "greeting: not understood: 020 x"},
      {"421 later\r\n", "greeting: 421 later"},
      {"554-a\x1B[1m\r\n554 b\r\n", "greeting: 554-a [1m 554 b"},
      {std::string(70000, '2'), "greeting: answer too long"},
      {"220 unfinished", "greeting: connection closed"},
      {"554 " + std::string(300, 'x') + "\r\n", "greeting: 554 " + std::string(196, 'x')},
  };
  for (const auto& [answer, reason] : cases) {
    ScriptedMailServer server({answer});
    EXPECT_EQ(SendBy(server), reason);
  }
  ScriptedMailServer server(Answers(20, "220-" + std::string(5000, 'x') + "\r\n"));
  EXPECT_EQ(SendBy(server), "greeting: answer too long");
}

// Its lines without their ends have 65536 bytes.
TEST(SmtpMailer, ReadsAnAnswerThatIsJustShortEnough) {
  const std::string first = "220-" + std::string(65526, 'x');
  for (const auto& [more, ends] : {std::pair("", "sent"), {"x", "greeting: answer too long"}}) {
    ScriptedMailServer server(std::deque<std::string>{first + more + "\r\n", "220 ok\r\n",
                                                      "250 a\n", "250 ok\r\n250 ok\r\n354 go\r\n",
                                                      "250 ok\r\n"});
    EXPECT_EQ(SendBy(server), ends);
  }
}

TEST(SmtpMailer, GivesEachStepItsTimeHoweverSlowlyBytesDripIn) {
  struct Case {
    int step;
    const char* reason;
    std::uint32_t seconds;
  };
  const Case cases[] = {
      {0, "greeting: no answer in time", 300},
      {kEhlo, "EHLO: no answer in time", 300},
      {kMail, "MAIL FROM: no answer in time", 300},
      {kRcpt, "RCPT TO you@example.com: no answer in time", 300},
      {kData, "DATA: no answer in time", 120},
      {kMessage, "message: no answer in time; the mail may have been taken all the same", 600},
      {kQuit, "sent", 10},
  };
  for (const Case& one : cases) {
    ScriptedMailServer server(GoodUpTo(one.step, Answers(1000, "2")));
    if (one.step == kMessage) server.addresses[0].answers[kMessage] = "x";
    EXPECT_EQ(SendBy(server), one.reason);
    ASSERT_EQ(server.waits.size(), static_cast<std::size_t>(one.step) + one.seconds) << one.reason;
    EXPECT_EQ(server.waits[static_cast<std::size_t>(one.step)], one.seconds * 1000);
    EXPECT_EQ(server.waits.back(), 1000U) << one.reason;
  }
}

TEST(SmtpMailer, GivesUpWhenAByteComesAfterTheTime) {
  ScriptedMailServer server(Answers(1000, "2"));
  server.perAnswer = 700;
  EXPECT_EQ(SendBy(server), "greeting: no answer in time");
  EXPECT_EQ(server.waits.size(), 429U);
}

TEST(SmtpMailer, GivesEachBlockOfTheMailItsTime) {
  ScriptedMailServer server(GoodUpTo(kAll));
  MailMessage message = Message();
  message.body = std::string(100000, '\xE9');  // 300000 bytes as quoted printable
  EXPECT_EQ(SendBy(server, message), "sent");
  ASSERT_GT(server.sendWaits.size(), 5U + 10U);
  for (std::size_t i = 4; i + 1 < server.sendWaits.size(); ++i) {
    EXPECT_EQ(server.sendWaits[i], 180000U) << i;
  }
  EXPECT_EQ(server.sendWaits.back(), 10000U);
  EXPECT_EQ(server.largestPart, 16384U);
}

TEST(SmtpMailer, SaysFarewellAfterEveryRefusal) {
  struct Case {
    int step;
    const char* answer;
    const char* reason;
  };
  const Case cases[] = {
      {0, "554 no\r\n", "greeting: 554 no"},
      {kEhlo, "421 later\r\n", "EHLO: 421 later"},
      {kEhlo, "550 no\r\n550 never\r\n", "HELO: 550 never"},
      {kMail, "451 later\r\n", "MAIL FROM: 451 later"},
      {kMail, "354 what\r\n", "MAIL FROM: 354 what"},
      {kRcpt, "550-no\r\n550 such user\r\n", "RCPT TO you@example.com: 550-no 550 such user"},
      {kData, "554 no\r\n", "DATA: 554 no"},
      {kData, "250 what\r\n", "DATA: 250 what"},
      {kMessage, "552 too big\r\n", "message: 552 too big"},
      {kMessage, "354 what\r\n", "message: 354 what"},
  };
  for (const Case& one : cases) {
    ScriptedMailServer server(GoodUpTo(one.step, {one.answer, "221 bye\r\n"}));
    EXPECT_EQ(SendBy(server), one.reason);
    EXPECT_TRUE(server.sent.ends_with("QUIT\r\n")) << one.reason;
    EXPECT_EQ(Farewells(server), 1) << one.reason;
    EXPECT_EQ(server.waits.back(), 10000U) << "the answer to QUIT is waited for";
  }
}

TEST(SmtpMailer, SaysNoFarewellToWhomItCannotUnderstandOrReach) {
  const std::pair<int, Answers> cases[] = {
      {0, {"hello\r\n"}}, {0, {}}, {kMail, {}}, {kRcpt, {"?\r\n"}}, {kMessage, {}}};
  for (const auto& [step, answers] : cases) {
    ScriptedMailServer server(GoodUpTo(step, answers));
    EXPECT_NE(SendBy(server), "sent");
    EXPECT_EQ(Farewells(server), 0) << step;
  }
}

// A mail whose last answer broke off behind the code was told as failed, and sent once more by
// hand.
TEST(SmtpMailer, NeverTellsADeliveredMailAsFailed) {
  const Answers cases[] = {
      {"250 ok\r\n"}, {"250 ok\r\n", "421 good night\r\n"}, {"250 ok\r\n", "what?\r\n"},
      {"250-ok\r\n"}, {"250-ok\r\n", "junk\r\n"},           {"250-ok\r\n", std::string(70000, 'x')},
      {"250 o"},      {"250 o", std::string(70000, 'x')},   {"252 fine\r\n"},
  };
  for (const Answers& last : cases) {
    for (const StreamOutcome atEnd :
         {StreamOutcome::Closed, StreamOutcome::Failed, StreamOutcome::TimedOut}) {
      ScriptedMailServer server(GoodUpTo(kMessage, last));
      server.atEnd = atEnd;
      EXPECT_EQ(SendBy(server), "sent") << last.front();
    }
  }
  ScriptedMailServer server(GoodUpTo(kQuit));
  server.deafAfter = std::string("EHLO [127.0.0.1]\r\nMAIL").size();
  server.deaf = StreamOutcome::Done;
  EXPECT_EQ(SendBy(server), "sent") << "QUIT reaches nobody";
}

TEST(SmtpMailer, TellsWhenOnlyTheServerKnowsWhetherTheMailWasTaken) {
  const std::string perhaps = "; the mail may have been taken all the same";
  struct Case {
    Answers last;
    StreamOutcome atEnd;
    std::string reason;
  };
  const Case cases[] = {
      {{}, StreamOutcome::Closed, "message: connection closed" + perhaps},
      {{}, StreamOutcome::Failed, "message: no connection" + perhaps},
      {{}, StreamOutcome::TimedOut, "message: no answer in time" + perhaps},
      {{"250"}, StreamOutcome::Closed, "message: connection closed" + perhaps},
      {{"hm\r\n"}, StreamOutcome::Closed, "message: not understood: hm" + perhaps},
      {{"554-no\r\n"}, StreamOutcome::Closed, "message: connection closed"},
      {{"554 n"}, StreamOutcome::Closed, "message: connection closed"},
  };
  for (const Case& one : cases) {
    ScriptedMailServer server(GoodUpTo(kMessage, one.last));
    server.atEnd = one.atEnd;
    EXPECT_EQ(SendBy(server), one.reason);
  }
}

MailMessage LargeMessage() {
  MailMessage message = Message();
  message.body.clear();
  for (int line = 0; line < 4000; ++line) message.body += std::string(78, 'x') + "\r\n";
  return message;
}

TEST(SmtpMailer, TellsTheReasonOfAServerThatClosesDuringTheMail) {
  const std::pair<std::string, Answers> cases[] = {
      {"552 5.3.4 too big\r\n", {}},
      {"552-5.3.4 too\r\n552 big\r\n", {}},
      {"552-5.3.4 t", {"oo big\r\n", "552 really\r\n"}},
  };
  for (const auto& [outcry, rest] : cases) {
    ScriptedMailServer server(GoodUpTo(kMessage, rest));
    server.outcry = outcry;
    server.outcryAfter = 50000;
    const std::string reason = SendBy(server, LargeMessage());
    EXPECT_TRUE(reason.starts_with("message: 552") && reason.find("too") != std::string::npos)
        << reason;
    EXPECT_LT(server.sent.size(), 70000U) << "nothing is sent behind that";
    EXPECT_EQ(Farewells(server), 0) << "it would be a line of the mail";
  }
}

TEST(SmtpMailer, TellsTheReasonOfAServerThatTakesNoMore) {
  for (const StreamOutcome deaf :
       {StreamOutcome::Closed, StreamOutcome::Failed, StreamOutcome::TimedOut}) {
    ScriptedMailServer server(GoodUpTo(kMessage));
    server.deafAfter = 50000;
    server.deaf = deaf;
    server.lastWords = "552 5.3.4 too big\r\n";
    EXPECT_EQ(SendBy(server, LargeMessage()), "message: 552 5.3.4 too big");
    ScriptedMailServer early(GoodUpTo(kMessage));
    early.deafAfter = 1;
    early.deaf = deaf;
    early.lastWords = "421 4.3.2 going down\r\n";
    EXPECT_EQ(SendBy(early), "MAIL FROM: 421 4.3.2 going down");
    ScriptedMailServer broken(GoodUpTo(kMail));
    broken.deafAfter = 1;
    broken.deaf = deaf;
    broken.lastWords = "421-4.3.2 going\r\n";
    EXPECT_EQ(SendBy(broken), "MAIL FROM: connection closed");
    EXPECT_EQ(broken.waits.size(), 2U) << "what has not come by then is not waited for";
  }
}

TEST(SmtpMailer, TellsOfAServerThatClosesDuringTheMailWithoutAWord) {
  ScriptedMailServer server(GoodUpTo(kMessage));
  server.outcryAfter = 50000;
  EXPECT_EQ(SendBy(server, LargeMessage()), "message: connection closed");
  ScriptedMailServer deaf(GoodUpTo(kMessage));
  deaf.deafAfter = 50000;
  EXPECT_EQ(SendBy(deaf, LargeMessage()), "message: connection closed");
}

TEST(SmtpMailer, TriesTheAddressesInTurnUntilOneGreets) {
  ScriptedMailServer server({{"10.0.0.1", {}, StreamOutcome::TimedOut},
                             {"10.0.0.2", {}, StreamOutcome::Failed},
                             {"10.0.0.3", {}},
                             {"10.0.0.4", {"421 busy\r\n", "221 bye\r\n"}},
                             {"fe80::1%2", GoodUpTo(kAll)},
                             {"10.0.0.6", GoodUpTo(kAll)}});
  EXPECT_EQ(SendBy(server), "sent");
  EXPECT_EQ(server.calls,
            (std::vector<std::string>{"look up mail 30000", "connect 10.0.0.1 25 30000",
                                      "connect 10.0.0.2 25 30000", "connect 10.0.0.3 25 30000",
                                      "connect 10.0.0.4 25 30000", "connect fe80::1%2 25 30000"}));
  EXPECT_TRUE(server.sent.starts_with("QUIT\r\nEHLO")) << "the busy one is told";
  EXPECT_EQ(Farewells(server), 2);
}

TEST(SmtpMailer, TriesNoOtherAddressOnceOneHasGreeted) {
  ScriptedMailServer server(
      {{"10.0.0.1", GoodUpTo(kRcpt, {"550 no\r\n"})}, {"10.0.0.2", GoodUpTo(kAll)}});
  EXPECT_EQ(SendBy(server), "RCPT TO you@example.com: 550 no");
  EXPECT_EQ(server.calls.size(), 2U);
}

TEST(SmtpMailer, TellsTheReasonOfTheLastAddress) {
  ScriptedMailServer server(
      {{"10.0.0.1", {"554 no\r\n"}}, {"10.0.0.2", {}, StreamOutcome::Failed}});
  EXPECT_EQ(SendBy(server), "connecting: no connection");
  server.addresses[1].connecting = StreamOutcome::TimedOut;
  EXPECT_EQ(SendBy(server), "connecting: no answer in time");
  std::swap(server.addresses[0], server.addresses[1]);
  EXPECT_EQ(SendBy(server), "greeting: 554 no");
}

TEST(SmtpMailer, TellsWhenTheServersNameIsNotFound) {
  ScriptedMailServer server(GoodUpTo(kAll));
  server.lookingUp = StreamOutcome::TimedOut;
  EXPECT_EQ(SendBy(server), "looking up: no answer in time");
  server.lookingUp = StreamOutcome::Failed;
  EXPECT_EQ(SendBy(server), "looking up: no address found");
  EXPECT_EQ(server.sent, "");
}

TEST(SmtpMailer, GivesEqualMailsIdsOfTheirOwn) {
  ScriptedMailServer server(GoodUpTo(kAll));
  FixedUtcClock clock;
  SmtpMailer mailer(server, server, clock);
  SmtpMailer another(server, server, clock);
  std::vector<std::string> ids;
  server.perAnswer = 0;
  for (SmtpMailer* one : {&mailer, &mailer, &another}) {
    if (one == &another) ++server.now;
    server.sent.clear();
    EXPECT_EQ(one->Send(Message()), std::nullopt);
    const auto at = server.sent.find("Message-ID: ");
    ids.push_back(server.sent.substr(at, server.sent.find("\r\n", at) - at));
    EXPECT_TRUE(ids.back().starts_with("Message-ID: <") && ids.back().ends_with("@example.com>"));
  }
  EXPECT_NE(ids[0], ids[1]);
  EXPECT_NE(ids[0], ids[2]);
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
      {"a@b", "x@y..z", "", "TO: no mail address: x@y..z"},
      {"a@b", "a@b", "x\r\nDATA", "BCC: no mail address: x  DATA"},
  };
  for (const Case& one : cases) {
    ScriptedMailServer server({"220 hi\r\n"});
    MailMessage message = Message();
    message.from = one.from;
    message.to = one.to;
    message.bcc = one.bcc;
    EXPECT_EQ(SendBy(server, message), one.reason);
    EXPECT_EQ(server.sent, "");
    EXPECT_TRUE(server.calls.empty());
  }
}

TEST(SmtpMailer, SendsToAddressesOfAllKinds) {
  ScriptedMailServer server(
      GoodUpTo(kRcpt, {"250 ok\r\n250 ok\r\n250 ok\r\n354 go\r\n250 ok\r\n"}));
  MailMessage message = Message();
  message.from = "x@[10.0.0.1]";
  message.to = "\"local part\"@x; \"Bob \\\"B\\\"\" <x@[IPv6:fe80::1]>";
  message.bcc = "\"a<b>,\"@x";
  EXPECT_EQ(SendBy(server, message), "sent");
  EXPECT_NE(server.sent.find("\r\nMAIL FROM:<x@[10.0.0.1]>\r\nRCPT TO:<\"local part\"@x>\r\n"
                             "RCPT TO:<x@[IPv6:fe80::1]>\r\nRCPT TO:<\"a<b>,\"@x>\r\nDATA\r\n"),
            std::string::npos)
      << server.sent;
  EXPECT_NE(
      server.sent.find("\r\nTo: \"local part\"@x,\r\n \"Bob \\\"B\\\"\"\r\n <x@[IPv6:fe80::1]>"
                       "\r\nSubject"),
      std::string::npos)
      << server.sent;
}

}  // namespace
}  // namespace tarvo
