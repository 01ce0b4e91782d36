// Addresses of mails, alone and in lists.
#include "xmldoc/mail/mail_address.h"

#include <gtest/gtest.h>

#include <string>

#include "xmldoc/mail/mail_address_syntax.h"

namespace tarvo {
namespace {

std::string Read(std::string_view list, const char* charset = "windows-1252") {
  std::string refused;
  const auto addresses = ReadMailAddresses(list, CharacterFormOf(charset), refused);
  if (!addresses) return "refused: " + refused;
  std::string all;
  for (const MailAddress& one : *addresses) all += one.name + "|" + one.address + " ";
  return all;
}

TEST(MailAddresses, AreReadFromLists) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {" ; , ", ""},
      {"a@b", "|a@b "},
      {"a@b,c@d; e@f", "|a@b |c@d |e@f "},
      {"Bob <a@b>", "Bob|a@b "},
      {"\"Bob, Jr; <x>\" <a@b>, c@d", "Bob, Jr; <x>|a@b |c@d "},
      {"\"Bob \\\"B\\\", \\\\\" <a@b>, c@d", "Bob \"B\", \\|a@b |c@d "},
      {"Bob \"B, C\" Smith <a@b>", "Bob \"B, C\" Smith|a@b "},
      {"\"A\" and \"B\" <a@b>", "\"A\" and \"B\"|a@b "},
      {"\"\" <a@b>", "|a@b "},
      {"<a@b>", "|a@b "},
      {"< a@b >", "|a@b "},
      {"Jos\xE9 <a@b>", "Jos\xE9|a@b "},
      {"\"local part\"@x, c@d", "|\"local part\"@x |c@d "},
      {"Bob <\"a,<b>\"@x>;c@d", "Bob|\"a,<b>\"@x |c@d "},
      {"\"a\\\",b\"@x,c@d", "|\"a\\\",b\"@x |c@d "},
      {"x@[10.0.0.1]; Bob <x@[IPv6:::1]>", "|x@[10.0.0.1] Bob|x@[IPv6:::1] "},
      {"x@[IPv6:A::a], x@[IPv6:::1:2:3:4:5:6:7]", "|x@[IPv6:A::a] |x@[IPv6:::1:2:3:4:5:6:7] "},
      {"x@[IPv6:::1:2:3:4:5:6:7:8]", "refused: x@[IPv6:::1:2:3:4:5:6:7:8]"},
      {"nobody", "refused: nobody"},
      {"a@b, nobody", "refused: nobody"},
      {"a b@c", "refused: a b@c"},
      {"a@b\r\nRCPT TO:<x@y>", "a@b  RCPT TO:|x@y "},
      {"a@b\xE9", "refused: a@b\xE9"},
      {"x <a@b\r\n>", "x|a@b "},
      {"x <a@b>>", "refused: x <a@b>>"},
      {"x <a@b> y", "refused: x <a@b> y"},
      {"x <<a@b>", "refused: x <<a@b>"},
      {"\"Bob <a@b>, c@d", "refused: \"Bob <a@b>, c@d"},
      {"Bob <a@bc", "refused: Bob <a@bc"},
      {"<a,b;@c>,d@e", "refused: <a,b;@c>"},
  };
  for (const auto& [list, expected] : cases) EXPECT_EQ(Read(list), expected) << list;
}

// The second byte of a Japanese letter was taken for a sign that hides the quote behind it.
TEST(MailAddresses, AreReadByTheCharactersOfTheCodePage) {
  EXPECT_EQ(Read("\"\x83\x5C\" <a@b>, c@d", "shift_jis"), "\x83\x5C|a@b |c@d ");
  EXPECT_EQ(Read("\"\\\x83\x5C\\\"\" <a@b>, c@d", "shift_jis"), "\x83\x5C\"|a@b |c@d ");
  EXPECT_EQ(Read("\"\x83\x5C\" <a@b>, c@d"), "refused: \"\x83\x5C\" <a@b>, c@d");
}

TEST(MailAddresses, AreAsTheStandardWritesThem) {
  const std::string label63(63, 'x');
  const std::string accepted[] = {
      "a@b",
      "a.b@c.d",
      "!#$%&'*+-/=?^_`{|}~@x",
      "1@2.3",
      "a@b-c",
      "a@my_server",
      "a@" + label63,
      "\"local part\"@x",
      "\"\"@x",
      "\"a@b\"@x",
      "\"a\\\"b\\\\\"@x",
      "\"..\"@x",
      "x@[10.0.0.1]",
      "x@[255.255.255.255]",
      "x@[IPv6:::]",
      "x@[ipv6:::1]",
      "x@[IPv6:fe80::1]",
      "x@[IPv6:1:2:3:4:5:6:7:8]",
      "x@[IPv6:1:2:3:4:5:6:10.0.0.1]",
      "x@[IPv6:::ffff:10.0.0.1]",
      "x@[IPv6:1::]",
      std::string(252, 'a') + "@b",
  };
  for (const std::string& address : accepted) EXPECT_TRUE(IsMailAddress(address)) << address;
  const std::string refused[] = {
      "",
      "@",
      "a",
      "a@",
      "@b",
      "a@b@c",
      "a b@c",
      "a@b c",
      ".a@b",
      "a.@b",
      "a..b@c",
      "x@y..z",
      "x@.y",
      "x@y.",
      "a@-b",
      "a@b-",
      "a@b.-c",
      "a@x" + label63,
      "a(b)@c",
      "a,b@c",
      "a@b,c",
      "a:b@c",
      "a@b:25",
      "a\\b@c",
      "a@b\xE9",
      "\xE9@b",
      "a@b\r\n",
      "a@b\t",
      "\"a@b",
      "\"@b",
      "\"a\"b@c",
      "a\"b\"@c",
      "\"a\"",
      "\"a\"@",
      "\"a\\\"@b",
      "\"a\r\n\"@b",
      "\"\xE9\"@b",
      "\"a\\",
      "x@[]",
      "x@[",
      "x@]",
      "x@[10.0.0]",
      "x@[10.0.0.0.1]",
      "x@[10.0.0.256]",
      "x@[10.0..1]",
      "x@[10.0.0.1",
      "x@10.0.0.1]",
      "x@[a]",
      "x@[10.0.0.1].b",
      "x@[10.0.0.1 ]",
      "x@[0010.0.0.1]",
      "x@[::1]",
      "x@[IPv6:]",
      "x@[IPv6::]",
      "x@[IPv6:::1::]",
      "x@[IPv6::::]",
      "x@[IPv6:1:2:3:4:5:6:7]",
      "x@[IPv6:1:2:3:4:5:6:7:8:9]",
      "x@[IPv6:1:2:3:4:5:6:7::8]",
      "x@[IPv6:12345::]",
      "x@[IPv6:g::]",
      "x@[IPv6:10.0.0.1::]",
      "x@[IPv6:1:10.0.0.1]",
      "x@[IPv6:::10.0.0.1:1]",
      "x@[IPv6:fe80::1%2]",
      std::string(253, 'a') + "@b",
  };
  for (const std::string& address : refused) EXPECT_FALSE(IsMailAddress(address)) << address;
}

TEST(MailAddresses, AreReadOrRefusedWhereverTheTextEnds) {
  const std::string text =
      "\"Bob \\\"B\\\"\" <\"a\\\\b\"@[IPv6:1::10.0.0.1]>; x@y.z, \x83\x5C <c@d>";
  for (std::size_t size = 0; size <= text.size(); ++size) {
    for (const char* charset : {"windows-1252", "shift_jis", "utf-8", "gb18030"}) {
      const std::string part = text.substr(0, size);
      std::string refused;
      const auto all = ReadMailAddresses(part, CharacterFormOf(charset), refused);
      EXPECT_NE(part.find(refused), std::string::npos);
      EXPECT_EQ(all.has_value(), refused.empty()) << part;
      for (const MailAddress& one : all.value_or(std::vector<MailAddress>())) {
        EXPECT_TRUE(IsMailAddress(one.address)) << part;
      }
    }
  }
}

}  // namespace
}  // namespace tarvo
