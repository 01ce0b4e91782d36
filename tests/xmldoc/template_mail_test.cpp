// Mail directives: what is handed to the mailer, and what they leave in the text.
#include <gtest/gtest.h>

#include <string>

#include "tests/xmldoc/template_outcome.h"
#include "xmldoc/template/template_parser.h"

namespace tarvo {
namespace {

constexpr const char* kMailDocument =
    "<r><to>full@example.com</to><quote>say \"it's\" &gt; on</quote>"
    "<evil>x\" SERVER=\"evil&gt;&lt;/sendmail&gt;&lt;sendmail TO=\"y\"&gt;</evil>"
    "<m><to>one@example.com</to></m><m><to>two@example.com</to></m></r>";

std::string FilledBy(FakePorts& fakes, const std::string& source) {
  return Filled(kMailDocument, source, fakes.All());
}

TEST(TemplateMail, HandsOverWhatTheDirectiveSays) {
  FakePorts fakes;
  EXPECT_EQ(FilledBy(fakes,
                     "a<sendmail TO=\"one@example.com\" FROM=\"me@example.com\" CC=\"c\" BCC=\"b\" "
                     "SUBJECT=\"Hello there\" HTML=\"1\" Port=\"2525\" Server=\"mail\">\r\n"
                     "<b>body</b></sendmail>z"),
            "az");
  ASSERT_EQ(fakes.mailer.mails.size(), 1U);
  const MailMessage& mail = fakes.mailer.mails[0];
  EXPECT_EQ(mail.to, "one@example.com");
  EXPECT_EQ(mail.from, "me@example.com");
  EXPECT_EQ(mail.cc, "c");
  EXPECT_EQ(mail.bcc, "b");
  EXPECT_EQ(mail.subject, "Hello there");
  EXPECT_TRUE(mail.html);
  EXPECT_EQ(mail.port, 2525);
  EXPECT_EQ(mail.server, "mail");
  EXPECT_EQ(mail.body, "\r\n<b>body</b>");
}

// The places of all values are kept only for a text that may hold mails.
TEST(TemplateMail, IsLookedForOnlyWhereThereMayBeOne) {
  EXPECT_FALSE(ParseTemplate("").mayHaveMail);
  EXPECT_FALSE(ParseTemplate("a<@field x>b").mayHaveMail);
  EXPECT_TRUE(ParseTemplate("a<SendMail TO=\"x\">b").mayHaveMail);
  EXPECT_TRUE(ParseTemplate("<send<@field LET x=1>mail TO=\"x\">").mayHaveMail);
}

TEST(TemplateMail, HasDefaultsForWhatItDoesNotSay) {
  FakePorts fakes;
  EXPECT_EQ(FilledBy(fakes, "<SendMail server=\"mail\">x</SENDMAIL>"), "");
  ASSERT_EQ(fakes.mailer.mails.size(), 1U);
  EXPECT_EQ(fakes.mailer.mails[0].port, 25);
  EXPECT_FALSE(fakes.mailer.mails[0].html);
  EXPECT_EQ(fakes.mailer.mails[0].to, "");
}

TEST(TemplateMail, TakesNothingOfItsBodyForItsOwnWords) {
  FakePorts fakes;
  FilledBy(fakes, "some text before it <sendmail server=\"m\">a cc=\"x\" html=\"1\"</sendmail>");
  ASSERT_EQ(fakes.mailer.mails.size(), 1U);
  EXPECT_EQ(fakes.mailer.mails[0].cc, "");
  EXPECT_FALSE(fakes.mailer.mails[0].html);
}

TEST(TemplateMail, TakesTheBeginningOfAnotherForItsBody) {
  FakePorts fakes;
  EXPECT_EQ(FilledBy(fakes, "<sendmail server=\"s\">a<sendmail server=\"t\">b</sendmail>c"), "c");
  ASSERT_EQ(fakes.mailer.mails.size(), 1U);
  EXPECT_EQ(fakes.mailer.mails[0].server, "s");
  EXPECT_EQ(fakes.mailer.mails[0].body, "a<sendmail server=\"t\">b");
}

TEST(TemplateMail, LooksForItsEndBehindItsTag) {
  FakePorts fakes;
  EXPECT_EQ(FilledBy(fakes, "<sendmail server=\"s\" subject=\"</sendmail>\">a</sendmail>c"), "c");
  ASSERT_EQ(fakes.mailer.mails.size(), 1U);
  EXPECT_EQ(fakes.mailer.mails[0].body, "a");
}

TEST(TemplateMail, IsHtmlForOneAlone) {
  for (const char* html : {"0", "true", "", "11", "yes"}) {
    FakePorts fakes;
    FilledBy(fakes, std::string("<sendmail server=\"m\" html=\"") + html + "\">x</sendmail>");
    ASSERT_EQ(fakes.mailer.mails.size(), 1U) << html;
    EXPECT_FALSE(fakes.mailer.mails[0].html) << html;
  }
}

TEST(TemplateMail, LeavesTheReportOfAFailure) {
  const std::pair<const char*, const char*> cases[] = {
      {"server=\"m\" to=\"full@example.com\"",
       "[xDocument[SENDMAIL] Error: RCPT TO full@example.com: 452 4.2.2 full]"},
      {"to=\"a\"", "[xDocument[SENDMAIL] Error: no server given]"},
      {"server=\"m\" port=\"0\"", "[xDocument[SENDMAIL] Error: no valid port given]"},
      {"server=\"m\" port=\"65536\"", "[xDocument[SENDMAIL] Error: no valid port given]"},
      {"server=\"m\" port=\"x\"", "[xDocument[SENDMAIL] Error: no valid port given]"},
      {"server=\"m\" port=\"2.5\"", "[xDocument[SENDMAIL] Error: no valid port given]"},
      {"server=\"m\" port=\"65535\"", "[]"},
      {"server=\"m\" port=\"1\"", "[]"},
      {"server=\" m \" port=\" 1 \"", "[]"},
      {"server=\"m\" port=\" \"", "[]"},
      {"server=\" \"", "[xDocument[SENDMAIL] Error: no server given]"},
      {"server=\"m\" port=\"-1\"", "[xDocument[SENDMAIL] Error: no valid port given]"},
  };
  for (const auto& [attributes, outcome] : cases) {
    FakePorts fakes;
    EXPECT_EQ(FilledBy(fakes, std::string("[<sendmail ") + attributes + ">x</sendmail>]"), outcome)
        << attributes;
  }
}

TEST(TemplateMail, IsFilledBeforeItIsSent) {
  FakePorts fakes;
  EXPECT_EQ(FilledBy(fakes,
                     "<@open ID=\"m\"><sendmail TO=\"<@field to>\" Server=\"s\">Dear <@field to>"
                     "</sendmail><@close ID=\"m\"><sendmail TO=\"<@field to>\" Server=\"s\">x"
                     "</sendmail>"),
            "xDocument[SENDMAIL] Error: RCPT TO full@example.com: 452 4.2.2 full");
  ASSERT_EQ(fakes.mailer.mails.size(), 3U);
  EXPECT_EQ(fakes.mailer.mails[0].to, "one@example.com");
  EXPECT_EQ(fakes.mailer.mails[0].body, "Dear one@example.com");
  EXPECT_EQ(fakes.mailer.mails[1].to, "two@example.com");
}

TEST(TemplateMail, TakesItsRecipientsFromABlock) {
  FakePorts fakes;
  FilledBy(
      fakes,
      "<sendmail Server=\"s\" TO=\"<@open ID=\"m\"><@field to>;<@close ID=\"m\">\">x</sendmail>");
  ASSERT_EQ(fakes.mailer.mails.size(), 1U);
  EXPECT_EQ(fakes.mailer.mails[0].to, "one@example.com;two@example.com;");
}

TEST(TemplateMail, KeepsValuesFromBecomingPartsOfADirective) {
  FakePorts fakes;
  EXPECT_EQ(FilledBy(fakes,
                     "<sendmail Server=\"s\" SUBJECT=\"'<@field quote>'\" TO=\"<@field evil>\">"
                     "<@field evil></sendmail>|<@field evil>"),
            "|x\" SERVER=\"evil></sendmail><sendmail TO=\"y\">");
  ASSERT_EQ(fakes.mailer.mails.size(), 1U);
  EXPECT_EQ(fakes.mailer.mails[0].server, "s");
  EXPECT_EQ(fakes.mailer.mails[0].subject, "say \"it's\" > on");
  EXPECT_EQ(fakes.mailer.mails[0].to, "x\" SERVER=\"evil></sendmail><sendmail TO=\"y\">");
  EXPECT_EQ(fakes.mailer.mails[0].body, "x\" SERVER=\"evil></sendmail><sendmail TO=\"y\">");
}

TEST(TemplateMail, IsFoundInTheTextAsItIsAfterTheOtherPasses) {
  for (const char* source :
       {"<send<@field none>mail Server=\"s\">b</send<@field none>mail>",
        "<<@open ID=\"none\">x<@close ID=\"none\">sendmail Server=\"s\">b</sendmail>",
        "<SENDMAIL<@field LET q=1> Server=\"s\">b</sendmail>"}) {
    for (const char* another : {"", "<sendmail Server=\"t\">c</sendmail>"}) {
      FakePorts fakes;
      EXPECT_EQ(FilledBy(fakes, std::string(source) + another), "") << source;
      ASSERT_EQ(fakes.mailer.mails.size(), *another ? 2U : 1U) << source;
      EXPECT_EQ(fakes.mailer.mails[0].server, "s");
    }
  }
}

TEST(TemplateMail, KeepsStoredValuesFromBecomingPartsToo) {
  FakePorts fakes;
  EXPECT_EQ(FilledBy(fakes,
                     "<@field LET copy=VAR(evil)><sendmail Server=\"s\" TO=\"<@field copy>\">b"
                     "</sendmail>."),
            ".");
  ASSERT_EQ(fakes.mailer.mails.size(), 1U);
  EXPECT_EQ(fakes.mailer.mails[0].server, "s");
}

TEST(TemplateMail, SendsNothingWhenADirectiveIsMalformed) {
  const TemplateCase cases[] = {
      {"<sendmail Server=\"s\">x", "10102 Vemto.Parser: Falta el final de bloque:\r\n</sendmail>"},
      {"<sendmail Server=\"s\">a</sendmail><sendmail Server=\"s\">x",
       "10102 Vemto.Parser: Falta el final de bloque:\r\n</sendmail>"},
      {"<sendmail Server=\"s\">a</sendmail><sendmail Server=\"s\"",
       "10101 VemtoParser.Maker: Tag mal formado"},
      {"<sendmail Server=\"s\">a</sendmail><sendmail Server=s>x</sendmail>",
       "10101 VemtoParser.Maker: Tag mal formado"},
      {"</sendmail>", "</sendmail>"},
      {"<sendmail>x</sendmail>", "<sendmail>x</sendmail>"},
  };
  for (const TemplateCase& one : cases) {
    FakePorts fakes;
    EXPECT_EQ(FilledBy(fakes, one.source), one.outcome) << one.source;
    EXPECT_TRUE(fakes.mailer.mails.empty()) << one.source;
  }
}

}  // namespace
}  // namespace tarvo
