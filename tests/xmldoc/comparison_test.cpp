// What counts as a number in a comparison, and how each sign compares.
#include "xmldoc/template/condition_comparison.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(DecimalNumber, IsAWholeTextOfOneNumber) {
  const std::pair<std::string_view, double> numbers[] = {
      {"0", 0},
      {"9", 9},
      {"007", 7},
      {"-5", -5},
      {"+5", 5},
      {"1.5", 1.5},
      {".5", 0.5},
      {"5.", 5},
      {"-.5", -0.5},
      {"1e3", 1000},
      {"1E+3", 1000},
      {"1e-3", 0.001},
      {"999999999999999", 999999999999999.0},
      {"1000000000000000", 1e15},
      {"9007199254740993", 9007199254740992.0},
      {"99999999999999999999", 1e20},
      {std::string_view("1.55").substr(0, 3), 1.5},
      {std::string_view("155").substr(0, 2), 15},
  };
  for (const auto& [text, number] : numbers) EXPECT_EQ(DecimalNumber(text), number) << text;
  for (const std::string_view text :
       {"",    " ",     "-",  "+",  ".",   "e5", "--5", "+-5",  "-+5",
        "++5", "1 2",   " 5", "5 ", "1,5", "5x", "inf", "nan",  "0x10",
        "1e",  "1e999", "/",  ":",  "5/",  "5:", "!",   "1e5.5"}) {
    EXPECT_EQ(DecimalNumber(text), std::nullopt) << '"' << text << '"';
  }
}

TEST(Comparison, HoldsBetweenNumbersAndBetweenTexts) {
  const struct {
    const char* left;
    const char* right;
    int order;  // below 0: left before right
  } cases[] = {
      {"1", "2", -1}, {"2", "10", -1}, {"10", "10", 0}, {"1.0", "1", 0},  {"-2", "-1", -1},
      {"a", "b", -1}, {"A", "a", 0},   {"2x", "10", 1}, {"10", "2x", -1}, {"", "a", -1},
      {"", "", 0},    {" 1 ", "1", 0}, {"/%", ".", 1},  {"a", "ab", -1},  {"1e2", "100", 0},
  };
  for (const auto& c : cases) {
    for (const bool turned : {false, true}) {
      const char* left = turned ? c.right : c.left;
      const char* right = turned ? c.left : c.right;
      const int order = turned ? -c.order : c.order;
      EXPECT_EQ(Holds(Comparison::AtLeast, left, right), order >= 0) << left << " " << right;
      EXPECT_EQ(Holds(Comparison::AtMost, left, right), order <= 0) << left << " " << right;
      EXPECT_EQ(Holds(Comparison::Differs, left, right), order != 0) << left << " " << right;
      EXPECT_EQ(Holds(Comparison::Equal, left, right), order == 0) << left << " " << right;
      EXPECT_EQ(Holds(Comparison::Above, left, right), order > 0) << left << " " << right;
      EXPECT_EQ(Holds(Comparison::Below, left, right), order < 0) << left << " " << right;
    }
  }
}

TEST(Comparison, ContainsInAnyLetterCase) {
  EXPECT_TRUE(Holds(Comparison::Contains, "abc", "B"));
  EXPECT_TRUE(Holds(Comparison::Contains, "ABC", " bc "));
  EXPECT_TRUE(Holds(Comparison::Contains, "abc", ""));
  EXPECT_FALSE(Holds(Comparison::Contains, "abc", "ac"));
  EXPECT_FALSE(Holds(Comparison::Contains, "", "a"));
}

TEST(Comparison, HasItsSignsInTheOrderInWhichTheyAreLookedFor) {
  const struct {
    const char* sign;
    const char* signOfField;
    Comparison comparison;
  } signs[] = {
      {">=", ">=", Comparison::AtLeast}, {"<=", "<=", Comparison::AtMost},
      {"<>", "!=", Comparison::Differs}, {"->", "->", Comparison::Contains},
      {"=", "=", Comparison::Equal},     {">", ">", Comparison::Above},
      {"<", "<", Comparison::Below},
  };
  ASSERT_EQ(std::size(signs), kComparisonCount);
  for (std::size_t i = 0; i < kComparisonCount; ++i) {
    EXPECT_EQ(ComparisonSign(i, DiffersSign::AngleBrackets), signs[i].sign);
    EXPECT_EQ(ComparisonSign(i, DiffersSign::ExclamationMark), signs[i].signOfField);
    EXPECT_EQ(ComparisonAt(i), signs[i].comparison);
  }
}

}  // namespace
}  // namespace tarvo
