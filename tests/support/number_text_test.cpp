#include "support/number_text.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <string>

#include "support/runtime_error.h"

namespace tarvo {
namespace {

int FaultOf(std::string_view text) {
  try {
    ToInteger(text);
  } catch (const RuntimeError& fault) {
    return fault.Number();
  }
  return 0;
}

TEST(NumericValue, ReadsTheNumberThatATextStartsWith) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"", 0},
      {"abc", 0},
      {"12a", 12},
      {"-5", -5},
      {"+7", 7},
      {" 1 2\t3", 123},
      {"1.5.2", 1.5},
      {".5", 0.5},
      {"5.", 5},
      {"-", 0},
      {"1e3x", 1000},
      {"1e", 1},
      {"1d2", 100},
      {"&H202", 0x202},
      {"&hff", 255},
      {"&H", 0},
      {"&Hxyz", 0},
      {"&HFFFFFFFF", -1},
      {"1,5", 1},
      {"--1", 0},
      {"1e-400", 0},
      {"0e999", 0},
      {"&H100000000", 4294967296.0},
      {"&HFFFFFFFFFx", 68719476735.0},
      {"&HFFFFFFFFF.8", 68719476735.0},
      {"&HFFFFFFFFFp4", 68719476735.0},
      {"&H7FFFFFFF", 2147483647},
      {"&H80000000", -2147483648.0},
      {"&G1", 0},
      {"H1", 0},
      {"1e+2", 100},
      {"1E-2", 0.01},
      {"1E2", 100},
      {"1D2", 100},
      {"1D+2", 100},
      {"1d-2", 0.01},
      {"1f2", 1},
      {"1e+", 1},
      {"1e-", 1},
      {"1e++2", 1},
      {"1e2.5", 100},
      {"+.5", 0.5},
      {"-.5x", -0.5},
      {"-.", 0},
      {".", 0},
      {"0/9", 0},
      {"09:", 9},
      {"1\n2\r3", 12},
  };
  for (const auto& c : cases) EXPECT_EQ(NumericValue(c.text), c.value) << '"' << c.text << '"';
  EXPECT_GT(NumericValue("1e999"), 1e300);
  EXPECT_LT(NumericValue("-1e999"), -1e300);
  EXPECT_GT(NumericValue("&H" + std::string(1000, 'F')), 1e300);
}

TEST(NumericValue, BeyondADoublesRangeIsToldByItsDigitsNotByTheSignOfItsExponent) {
  const std::string zeros(400, '0');
  EXPECT_EQ(NumericValue("0." + zeros + "1"), 0);
  EXPECT_EQ(NumericValue("0." + zeros + "1e+5"), 0);
  EXPECT_EQ(NumericValue("." + zeros + "1e99999999999999999999"), DBL_MAX);
  EXPECT_EQ(NumericValue("1" + zeros + "e-5"), DBL_MAX);
  EXPECT_EQ(NumericValue("-00" + zeros + "1" + zeros + ".5d-5"), -DBL_MAX);
  EXPECT_EQ(NumericValue("9" + zeros + "e-99999999999999999999"), 0);
  EXPECT_EQ(NumericValue("10.5e9223372036854775807"), DBL_MAX);
  EXPECT_EQ(NumericValue("10.5e-9223372036854775808"), 0);
  EXPECT_EQ(NumericValue("0." + zeros + "1E+5"), 0);
  EXPECT_EQ(NumericValue("0." + zeros + "1e+710"), DBL_MAX);
  EXPECT_EQ(NumericValue("0." + zeros + "1E710"), DBL_MAX);
  EXPECT_EQ(NumericValue("0." + zeros + "1D+710"), DBL_MAX);
  EXPECT_EQ(NumericValue(zeros + "1e-400"), 0);
  EXPECT_EQ(NumericValue(zeros + "1e+400"), DBL_MAX);
  EXPECT_EQ(NumericValue("1" + zeros + "e-800"), 0);
  EXPECT_EQ(NumericValue("-1e-400"), 0);
  EXPECT_EQ(NumericValue("-1e+400"), -DBL_MAX);
  EXPECT_EQ(ToInteger("0." + zeros + "1"), 0);
  EXPECT_EQ(FaultOf("1" + zeros + "e-5"), 6);
}

TEST(IsNumeric, OfAWholeTextThatIsOneNumber) {
  for (const char* text : {"0", "9", "-5", "+7", ".5", "5.", "-.5", "1e5", "1E+5", "1d-5", "1D5",
                           " 12\t", "&H0", "&hfF", "&HFFFFFFFF", "1e999", "007"}) {
    EXPECT_TRUE(IsNumeric(text)) << '"' << text << '"';
  }
  for (const char* text :
       {"",    " ",  ".",   "-",   "+",     "-.",          "+.",    "--1",  "1e",
        "1e+", "e5", ".e5", "12a", "a12",   "1 2",         "1.5.2", "1,5",  "/",
        ":",   "&H", "&",   "&HG", "&H12G", "&H100000000", "H12",   "12\n", "$5"}) {
    EXPECT_FALSE(IsNumeric(text)) << '"' << text << '"';
  }
}

TEST(ToInteger, TakesTheWholeTextAndRoundsHalvesToEven) {
  const struct {
    const char* text;
    std::int32_t value;
  } cases[] = {
      {"6900", 6900},
      {" 6121 ", 6121},
      {"\t5121\t ", 5121},
      {"0.5", 0},
      {"1.5", 2},
      {"2.5", 2},
      {"-1.5", -2},
      {"-0.5", 0},
      {"2.51", 3},
      {"1e3", 1000},
      {"&H202", 0x202},
      {"&hFF", 255},
      {"&H80000000", INT32_MIN},
      {"2147483647", INT32_MAX},
      {"-2147483648", INT32_MIN},
      {"2147483647.4", INT32_MAX},
  };
  for (const auto& c : cases) EXPECT_EQ(ToInteger(c.text), c.value) << '"' << c.text << '"';
}

TEST(ToInteger, RefusesWhatIsNoNumber) {
  for (const char* text :
       {"", " ", "abc", "6900 // main", "12a", "1 2", "&H", "&HXY", "1e", ".", "-", "1,000",
        "\r\n6900", "0x10", "-.", "&H12G", "&H100000000G", "H10", "1e+"}) {
    EXPECT_EQ(FaultOf(text), 13) << '"' << text << '"';
  }
}

TEST(ToInteger, OverflowsBeyondThirtyTwoBits) {
  for (const char* text : {"2147483648", "-2147483649", "99999999999999999999", "1e400",
                           "&H100000000", "2147483647.5"}) {
    EXPECT_EQ(FaultOf(text), 6) << '"' << text << '"';
  }
}

TEST(RoundedToEven, LeavesHalvesAtTheEvenNumber) {
  const double cases[][2] = {{0.5, 0},    {1.5, 2},    {2.5, 2},  {-0.5, 0},
                             {-1.5, -2},  {-2.5, -2},  {0.49, 0}, {0.51, 1},
                             {-0.51, -1}, {-1.49, -1}, {7, 7},    {1e300, 1e300}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundedToEven(value), rounded) << value;
}

TEST(ShortestDecimal, HasNoLeadingBlankAndNoEmptyFraction) {
  EXPECT_EQ(ShortestDecimal(15), "15");
  EXPECT_EQ(ShortestDecimal(15.5), "15.5");
  EXPECT_EQ(ShortestDecimal(0.1), "0.1");
  EXPECT_EQ(ShortestDecimal(-0.25), "-0.25");
  EXPECT_EQ(ShortestDecimal(100000), "100000");
  EXPECT_EQ(ShortestDecimal(-0.0), "0");
  EXPECT_EQ(ShortestDecimal(999999999999999), "999999999999999");
  EXPECT_EQ(ShortestDecimal(1e15), "1E+15");
  EXPECT_EQ(ShortestDecimal(0.1 + 0.2), "0.3") << "fifteen digits";
}

TEST(PlainDecimal, NeverHasAnExponent) {
  EXPECT_EQ(PlainDecimal(12), "12");
  EXPECT_EQ(PlainDecimal(1.5), "1.5");
  EXPECT_EQ(PlainDecimal(1e15), "1000000000000000");
  EXPECT_EQ(PlainDecimal(1e300).size(), 301u);
  EXPECT_EQ(PlainDecimal(0.00000001), "0.00000001");
  EXPECT_EQ(PlainDecimal(0.1 + 0.2), "0.3") << "fifteen digits";
  EXPECT_EQ(PlainDecimal(999999999999999), "999999999999999");
  EXPECT_EQ(PlainDecimal(-1e15), "-1000000000000000");
}

}  // namespace
}  // namespace tarvo
