// The small rules of texts that every room shares.
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tarvo {
namespace {

TEST(Text, IsTrimmedOfTheGivenBlanksAtBothEnds) {
  EXPECT_EQ(Trimmed("  a b  "), "a b");
  EXPECT_EQ(Trimmed("\ta\t"), "\ta\t");
  EXPECT_EQ(Trimmed("\t a \t", " \t"), "a");
  EXPECT_EQ(Trimmed("   "), "");
  EXPECT_EQ(Trimmed(""), "");
}

TEST(Text, KnowsTheDigitsAndLettersOfAsciiAlone) {
  std::string digits, letters;
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    if (IsDigit(c)) digits += c;
    if (IsLetter(c)) letters += c;
  }
  EXPECT_EQ(digits, "0123456789");
  EXPECT_EQ(letters, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
}

TEST(Text, LowersTheLettersOfAsciiAlone) {
  EXPECT_EQ(LowerCase("@ABCXYZ[`az{09"), "@abcxyz[`az{09");
  EXPECT_EQ(LowerCase("\xC4\xD6\xDC"), "\xC4\xD6\xDC");
}

TEST(Text, PadsNumbersWithZeros) {
  const struct {
    long long number;
    std::size_t width;
    const char* text;
  } table[] = {{0, 2, "00"},   {7, 2, "07"}, {10, 2, "10"},    {123, 2, "123"},
               {5, 4, "0005"}, {0, 0, "0"},  {2026, 4, "2026"}};
  for (const auto& row : table) EXPECT_EQ(ZeroPadded(row.number, row.width), row.text);
  EXPECT_EQ(ZeroPadded(5), "05");
}

TEST(Text, GroupsThousands) {
  const std::pair<const char*, const char*> table[] = {{"", ""},
                                                       {"1", "1"},
                                                       {"123", "123"},
                                                       {"1234", "1,234"},
                                                       {"123456", "123,456"},
                                                       {"1234567", "1,234,567"}};
  for (const auto& [digits, grouped] : table) EXPECT_EQ(WithThousands(digits), grouped);
}

TEST(Text, IsCutIntoLinesAtCrLfAlone) {
  const std::pair<std::string, std::vector<std::string>> table[] = {{"", {""}},
                                                                    {"a", {"a"}},
                                                                    {"a\r\n", {"a", ""}},
                                                                    {"a\r\nb", {"a", "b"}},
                                                                    {"\r\n\r\n", {"", "", ""}},
                                                                    {"a\nb\rc", {"a\nb\rc"}},
                                                                    {"a\r\r\nb", {"a\r", "b"}}};
  for (const auto& [text, lines] : table) {
    std::vector<std::string> seen;
    ForEachLine(text, [&seen](std::string_view line) { seen.emplace_back(line); });
    EXPECT_EQ(seen, lines) << text;
  }
}

}  // namespace
}  // namespace tarvo
