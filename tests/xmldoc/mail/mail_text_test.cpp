// The mail as it travels.
#include "xmldoc/mail/mail_text.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

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
  EXPECT_EQ(id.find('.'), id.size() - std::string("@example.com>").size() - 17) << id;
  std::string rest = text;
  rest.erase(rest.find("Message-ID"), id.size() + 14);
  EXPECT_EQ(rest,
            "From: me@example.com\r\nTo: you@example.com\r\nSubject: Hello\r\n"
            "Date: Sat, 21 Nov 2026 09:08:07 +0000\r\nMIME-Version: 1.0\r\n"
            "Content-Type: text/plain; charset=windows-1252\r\n"
            "Content-Transfer-Encoding: 7bit\r\n\r\nText\r\n");
}

TEST(MailText, NamesEveryDayAndMonthInItsDate) {
  using namespace std::chrono;
  std::string dates;
  for (int month = 1; month <= 12; ++month) {
    MailContent content = Content();
    content.date = sys_days{year{2026} / month / month};
    dates += Header(MailText(content), "Date").substr(0, 11) + "|";
  }
  EXPECT_EQ(dates,
            "Thu, 01 Jan|Mon, 02 Feb|Tue, 03 Mar|Sat, 04 Apr|Tue, 05 May|Sat, 06 Jun|"
            "Tue, 07 Jul|Sat, 08 Aug|Wed, 09 Sep|Sat, 10 Oct|Wed, 11 Nov|Sat, 12 Dec|");
  MailContent content = Content();
  content.date = sys_days{year{2026} / November / 20} + seconds{1};
  EXPECT_EQ(Header(MailText(content), "Date"), "Fri, 20 Nov 2026 00:00:01 +0000");
  content.date = sys_days{year{2026} / November / 22};
  EXPECT_EQ(Header(MailText(content), "Date"), "Sun, 22 Nov 2026 00:00:00 +0000");
}

TEST(MailText, EncodesBodiesThatDoNotTravelAsTheyAre) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"a", "a\r\n"},
      {"a\nb\rc\r\nd\r\n", "a\r\nb\r\nc\r\nd\r\n"},
      {"\r\na", "\r\na\r\n"},
      {"\xF1\n" + std::string(75, 'x'), "=F1\r\n" + std::string(75, 'x') + "\r\n"},
      {"tab\there = fine ", "tab\there = fine \r\n"},
      {"\xF1 = 1", "=F1 =3D 1\r\n"},
      {"\xF1 \n\t", "=F1=20\r\n=09\r\n"},
      {std::string("\0", 1), "=00\r\n"},
      {std::string(998, 'x'), std::string(998, 'x') + "\r\n"},
      {"a\n" + std::string(998, 'x'), "a\r\n" + std::string(998, 'x') + "\r\n"},
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
  const std::string piece = std::string(75, 'x') + "=\r\n";
  std::string pieces;
  for (int i = 0; i < 13; ++i) pieces += piece;
  EXPECT_EQ(body, pieces + std::string(24, 'x') + "\r\n");
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

struct Change {
  const char* what;
  std::function<void(MailContent&)> make;
};

// The recipients of copies, the names and the kind of body made no difference, nor did it matter
// where the subject ended and the body began.
TEST(MailText, HasAnIdOfItsOwnForMailsOfWhichAnythingDiffers) {
  const Change changes[] = {
      {"nothing", [](MailContent&) {}},
      {"sender's name", [](MailContent& mail) { mail.from.name = "Me"; }},
      {"sender", [](MailContent& mail) { mail.from.address = "we@example.com"; }},
      {"recipient", [](MailContent& mail) { mail.to[0].address = "who@example.com"; }},
      {"recipient's name", [](MailContent& mail) { mail.to[0].name = "You"; }},
      {"one more",
       [](MailContent& mail) {
         mail.to.push_back({"", "two@example.com"});
       }},
      {"copy",
       [](MailContent& mail) {
         mail.cc.push_back({"", "two@example.com"});
       }},
      {"subject", [](MailContent& mail) { mail.subject = "Hello!"; }},
      {"body", [](MailContent& mail) { mail.body = "Text.\r\n"; }},
      {"subject and body", [](MailContent& mail) { mail.subject = "HelloText", mail.body = ""; }},
      {"kind", [](MailContent& mail) { mail.html = true; }},
      {"date", [](MailContent& mail) { mail.date += std::chrono::seconds(1); }},
      {"charset", [](MailContent& mail) { mail.charset = "utf-8"; }},
      {"serial", [](MailContent& mail) { mail.serial = 1; }},
      {"large serial", [](MailContent& mail) { mail.serial = std::uint64_t{1} << 32; }},
  };
  std::set<std::string> ids;
  for (const Change& change : changes) {
    MailContent content = Content();
    change.make(content);
    const std::string id = Header(MailText(content), "Message-ID");
    EXPECT_TRUE(ids.insert(id).second) << change.what;
    EXPECT_EQ(Header(MailText(content), "Message-ID"), id) << change.what;
  }
}

TEST(MailText, HasAnIdThatEndsWithTheSendersDomain) {
  MailContent content = Content();
  content.from.address = "\"a@b\"@[10.0.0.1]";
  const std::string id = Header(MailText(content), "Message-ID");
  EXPECT_TRUE(id.starts_with("<") && id.ends_with("@[10.0.0.1]>")) << id;
  EXPECT_EQ(id.find('"'), std::string::npos);
}

}  // namespace
}  // namespace tarvo
