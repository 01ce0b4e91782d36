// The headers of a mail: what is written as it is, what as encoded words, and how long the lines
// are.
#include "xmldoc/mail/mail_header.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvo {
namespace {

constexpr const char* kLatin = "windows-1252";

std::string Base64Decoded(std::string_view text) {
  const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  unsigned bits = 0;
  int count = 0;
  for (const char c : text) {
    if (c == '=') break;
    bits = bits << 6 | static_cast<unsigned>(digits.find(c));
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes += static_cast<char>(bits >> count & 0xFF);
  }
  return bytes;
}

std::vector<std::string> LinesOf(const std::string& header) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < header.size();) {
    const auto end = header.find("\r\n", start);
    EXPECT_NE(end, std::string::npos);
    lines.push_back(header.substr(start, end - start));
    start = end + 2;
  }
  return lines;
}

/// The texts of the encoded words of a header, and the longest line of all.
std::vector<std::string> WordsOf(const std::string& header, std::size_t& longest) {
  std::vector<std::string> words;
  for (const std::string& line : LinesOf(header)) {
    EXPECT_TRUE(line.front() == ' ' || line.find(": ") != std::string::npos) << line;
    longest = std::max(longest, line.size());
    const auto start = line.find("?B?");
    if (start == std::string::npos) continue;
    const auto word = line.find("=?");
    EXPECT_LE(line.size() - word, 75U) << line;
    EXPECT_TRUE(line.ends_with("?=")) << line;
    words.push_back(Base64Decoded(line.substr(start + 3, line.size() - start - 5)));
  }
  return words;
}

// 76 columns are the most: "Subject: " and 67, then the blank and 75.
TEST(MailHeader, FoldsTextsIntoLinesThatAreJustFull) {
  const std::string first = std::string(33, 'a') + " " + std::string(33, 'b');
  const std::string second = " " + std::string(37, 'c') + " " + std::string(37, 'd');
  EXPECT_EQ(TextHeader("Subject", first + second, kLatin),
            "Subject: " + first + "\r\n" + second + "\r\n");
}

TEST(MailHeader, WritesTextsAsTheyAreOrAsEncodedWords) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"Hello world", "Hello world"},
      {"about ~ 5", "about ~ 5"},
      {"a\x7F!", "a !"},
      {"D\xED"
       "as",
       "=?windows-1252?B?RO1hcw==?="},
      {"=?x?B?eA==?=", "=?windows-1252?B?PT94P0I/ZUE9PT89?="},
      {"a\r\nBcc: x@y", "a  Bcc: x@y"},
      {std::string("a\0b", 3), "a b"},
      {" edge", "=?windows-1252?B?IGVkZ2U=?="},
      {"edge ", "=?windows-1252?B?ZWRnZSA=?="},
      {std::string(67, 'x'), std::string(67, 'x')},
      {std::string(68, 'x'), "=?windows-1252?B?" + std::string()},
  };
  for (const auto& [text, expected] : cases) {
    const std::string header = TextHeader("Subject", text, kLatin);
    EXPECT_EQ(header.substr(0, 9 + expected.size()), "Subject: " + expected);
    EXPECT_TRUE(header.ends_with("\r\n"));
    EXPECT_EQ(header.find("\nBcc"), std::string::npos);
  }
}

TEST(MailHeader, FoldsLongTexts) {
  std::string text;
  for (int i = 0; i < 300; ++i) text += "word ";
  text += "end";
  const std::string header = TextHeader("Subject", text, kLatin);
  std::string unfolded;
  for (const std::string& line : LinesOf(header)) {
    EXPECT_LE(line.size(), 76U);
    EXPECT_NE(line.find_first_not_of(' '), std::string::npos);
    unfolded += line;
  }
  EXPECT_EQ(unfolded, "Subject: " + text);
}

// The first line of a header had an encoded word of 75 columns behind the header's name.
TEST(MailHeader, KeepsEveryLineOfTextsWithinTheColumns) {
  const std::string pieces[] = {"x", "\xE9", "word ", std::string(100, ' '), "\"", "=?"};
  for (const std::string& piece : pieces) {
    for (std::size_t count = 1; count < 100; count += 3) {
      std::string text = "a";
      for (std::size_t i = 0; i < count; ++i) text += piece;
      std::size_t longest = 0;
      std::string joined;
      for (const auto& word : WordsOf(TextHeader("Subject", text, kLatin), longest)) {
        joined += word;
      }
      EXPECT_LE(longest, 76U) << text;
      EXPECT_TRUE(joined.empty() || joined == text) << text;
      longest = 0;
      const std::vector<MailAddress> mailboxes(2, {text, "you@example.com"});
      WordsOf(AddressHeader("From", mailboxes, kLatin), longest);
      EXPECT_LE(longest, 76U) << text;
    }
  }
}

TEST(MailHeader, CutsNoCharacterBetweenEncodedWords) {
  const std::pair<const char*, std::string> cases[] = {
      {"utf-8", "\xC3\xA9"},     {"UTF-8", "\xE3\x81\x82"},       {"utf-8", "\xF0\x9F\x98\x80"},
      {"shift_jis", "\x83\x5C"}, {"gb2312", "\xB0\xA1"},          {"big5", "\xA5\x5C"},
      {"euc-kr", "\xB0\xA1"},    {"gb18030", "\x81\x30\x81\x30"}, {"Windows-31J", "\xE0\x40"},
  };
  for (const auto& [charset, character] : cases) {
    for (std::size_t shift = 0; shift < 4; ++shift) {
      std::string text(shift, 'a');
      for (int i = 0; i < 200; ++i) text += character;
      std::size_t longest = 0;
      std::string joined;
      for (const std::string& word : WordsOf(TextHeader("Subject", text, charset), longest)) {
        const std::size_t letters = joined.empty() ? shift : 0;
        EXPECT_EQ((word.size() - letters) % character.size(), 0U) << charset << ' ' << shift;
        joined += word;
      }
      EXPECT_EQ(joined, text);
      EXPECT_LE(longest, 76U);
      EXPECT_GT(longest, 65U) << "lines are filled";
    }
  }
}

TEST(MailHeader, KnowsTheCharactersOfCharsets) {
  struct Case {
    const char* charset;
    std::string text;
    std::size_t size;
  };
  const Case cases[] = {
      {"windows-1252", "\xC3\xA9", 1},
      {"utf-8", "a", 1},
      {"utf-8", "\xC3\xA9", 2},
      {"utf-8", "\xC3", 1},
      {"utf-8", "\xC3x", 1},
      {"utf-8", "\xA9\xA9", 1},
      {"utf-8", "\xE3\x81", 1},
      {"utf-8", "\xF0\x9F\x98\x80x", 4},
      {"utf-8", "\xF5\x9F\x98\x80x", 1},
      {"shift_jis", "\x83\x5C", 2},
      {"shift_jis", "\xB1\x5C", 1},
      {"shift_jis", "\x83", 1},
      {"shift_jis", "\x83 ", 1},
      {"gbk", "\xFE\x40", 2},
      {"gbk", "\xFF\x40", 1},
      {"gbk", "\x80\x40", 1},
      {"gb18030", "\x81\x30\x81\x30", 4},
      {"gb18030", "\x81\x30\x81", 1},
      {"gb18030", "\x81\x40", 2},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(CharacterSize(one.text, CharacterFormOf(one.charset)), one.size)
        << one.charset << ' ' << testing::PrintToString(one.text);
  }
}

TEST(MailHeader, WritesNamesSoThatNoneBecomesAnotherAddress) {
  const std::pair<const char*, const char*> cases[] = {
      {"Bob", "\"Bob\"\r\n <you@example.com>"},
      {"Bob \"x\" <evil@x>, y", "\"Bob \\\"x\\\" <evil@x>, y\"\r\n <you@example.com>"},
      {"back\\slash", "\"back\\\\slash\"\r\n <you@example.com>"},
      {"Jos\xE9", "=?windows-1252?B?Sm9z6Q==?=\r\n <you@example.com>"},
      {"a\r\nCc: b", "\"a  Cc: b\"\r\n <you@example.com>"},
  };
  for (const auto& [name, expected] : cases) {
    EXPECT_EQ(AddressHeader("To", {{name, "you@example.com"}}, kLatin),
              std::string("To: ") + expected + "\r\n");
  }
  const std::string longest(73, 'x');
  EXPECT_TRUE(AddressHeader("To", {{"", "a@b"}, {longest, "c@d"}}, kLatin)
                  .ends_with(",\r\n \"" + longest + "\"\r\n <c@d>\r\n"));
  EXPECT_EQ(AddressHeader("To", {}, kLatin), "");
  EXPECT_EQ(AddressHeader("To", {{"", "a@b"}, {"B", "c@d"}}, kLatin),
            "To: a@b,\r\n \"B\"\r\n <c@d>\r\n");
}

}  // namespace
}  // namespace tarvo
