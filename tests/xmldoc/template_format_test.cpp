// Fields that format, cut and change letters: every rule of their patterns, at its edges.
#include <gtest/gtest.h>

#include <string>

#include "tests/xmldoc/template_outcome.h"
#include "xmldoc/template/template_functions.h"

namespace tarvo {
namespace {

TEST(TemplateFormats, OfNumbers) {
  const struct {
    const char* value;
    const char* format;
    const char* outcome;
  } cases[] = {
      // One digit: so many places, ungrouped, at least one digit before the point.
      {"1234567", "2", "1234567.00"},
      {"0.5", "1", "0.5"},
      {"0.25", "1", "0.3"},
      {"-0.25", "1", "-0.3"},
      {"0.5", "9", "0.500000000"},
      {"5", "0", "5"},
      // Places before the point.
      {"5", "000", "005"},
      {"1234", "000", "1234"},
      {"0", "0", "0"},
      {"0", "#", ""},
      {"0", "#.0", ".0"},
      {"12", "#", "12"},
      {"0.5", "#", "1"},
      {"0.4", "#", ""},
      // Places behind it.
      {"1", "0.00", "1.00"},
      {"1.5", "0.##", "1.5"},
      {"1.50", "0.0#", "1.5"},
      {"1", "0.##", "1"},
      {"1.239", "0.0#", "1.24"},
      {"1.999", "0.0#", "2.0"},
      {"9.995", "0.00", "10.00"},
      {"99.5", "0", "100"},
      {"0.05", "0.0", "0.1"},
      {"0.04", "0.0", "0.0"},
      {"-0.04", "0.0", "0.0"},
      {"-0.05", "0.0", "-0.1"},
      {"1.44", "0.0", "1.4"},
      {"1.45", "0.0", "1.5"},
      // Groups.
      {"1234", "#,##0", "1,234"},
      {"123", "#,##0", "123"},
      {"123456", "#,##0", "123,456"},
      {"1234567", "#,##0.0", "1,234,567.0"},
      {"-1234", "#,##0", "-1,234"},
      {"1234", "0.0", "1234.0"},
      // What stands around.
      {"0.5", "0%", "50%"},
      {"0.005", "0.0 %", "0.5 %"},
      {"1234", "0 a,b", "1234 a,b"},
      {"1234", "$0", "$1234"},
      {"1234", "$0 a,b", "$1234 a,b"},
      {"-5", "$0", "-$5"},
      {"5", "0.0.", "5.0."},
      {"5", "x", "10105 parse.field: Unknown format: x"},
      {"5", "", "5"},
      {"005", "", "5"},
      {"+1.50", "", "1.5"},
      {"x", "0.00", "x"},
      {" 5 ", "0", "5"},
      {"1e999", "0", "1e999"},
      {"1.7e308", "0%", "6 parse.field: Overflow"},
      {"-1.7e308", "0%", "6 parse.field: Overflow"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(OutcomeOf([&] { return FormatValue(c.value, c.format); }), c.outcome)
        << c.value << " as " << c.format;
  }
}

TEST(TemplateFormats, OfMoments) {
  const std::pair<const char*, const char*> cases[] = {
      {"date", "2026-01-02"},
      {"time", "03:04:05"},
      {"datetime", "2026-01-02 03:04:05"},
      {" DATE ", "2026-01-02"},
      {"Time", "03:04:05"},
      {"date,", "2026-01-02"},
      {"time, ", "03:04:05"},
      {"time;hh", "03"},
      {"date,hh:nn", "03:04"},
      {"time,dd/mm", "02/01"},
      {"date,y", "26"},
      {"date,yy", "26"},
      {"date,yyy", "2026"},
      {"date,yyyy", "2026"},
      {"date,yyyyy", "2026"},
      {"date,m", "1"},
      {"date,mm", "01"},
      {"date,mmm", "01"},
      {"date,d dd ddd", "2 02 02"},
      {"date,h hh hhh", "3 03 03"},
      {"date,n nn nnn", "4 04 04"},
      {"date,s ss sss", "5 05 05"},
      {"date,YYYY-MM-DD HH:NN:SS", "2026-01-02 03:04:05"},
      {"date,yyyymmddhhnnss", "20260102030405"},
      {"date,[-:.,_] x", "[-:.,_] x"},
  };
  for (const auto& [format, outcome] : cases) {
    EXPECT_TRUE(IsMomentFormat(format)) << format;
    EXPECT_EQ(FormatValue("2026-01-02 03:04:05", format), outcome) << format;
  }
  EXPECT_EQ(FormatValue("2026-11-12 13:14:15", "date,d/m/y h:n:s"), "12/11/26 13:14:15");
  EXPECT_EQ(FormatValue("1905-11-12", "date,yy yyyy"), "05 1905");
  for (const char* other : {"", "dates", "dat", "x,date", "0", ",date"}) {
    EXPECT_FALSE(IsMomentFormat(other)) << other;
  }
}

TEST(TemplateFormats, JoinTheirArgumentsByCommas) {
  FakePorts fakes;
  ExpectFields(
      {
          {"for(1234567,#,##0)", "1,234,567"},
          {"for(1234567,#;##0.0)", "1,234,567.0"},
          {"for(1234,0 a,b)", "1234 a,b"},
          {"for(now,date,yyyy,mm)", "2026,11"},
          {"for( NOW ,time)", "10:32:07"},
          {"for(nowx,time)", "nowx"},
      },
      fakes.All());
}

TEST(TemplateFormats, OfTitlesAndSentences) {
  const struct {
    const char* text;
    const char* title;
    const char* sentence;
  } cases[] = {
      {"apple ZOO", "Apple Zoo", "Apple zoo"},
      {"a0b9c", "A0b9c", "A0b9c"},
      {"a/b:c", "A/B:C", "A/b:c"},
      {"a`b{c", "A`B{C", "A`b{c"},
      {"a\x7F"
       "b",
       "A\x7F"
       "B",
       "A\x7F"
       "b"},
      {"a\x80"
       "b",
       "A\x80"
       "b",
       "A\x80"
       "b"},
      {"zoo zz", "Zoo Zz", "Zoo zz"},
      {"aa 0a 9z", "Aa 0a 9z", "Aa 0a 9z"},
      {"o'neil's", "O'neil's", "O'neil's"},
      {"'one' two", "'one' Two", "'One' two"},
      {"one.two. three", "One.Two. Three", "One.two. Three"},
      {"a!b! c?d? e", "A!B! C?D? E", "A!b! C?d? E"},
      {"a.\tb.\rc.\nd", "A.\tB.\rC.\nD", "A.\tB.\rC.\nD"},
      {"a, b; c: d", "A, B; C: D", "A, b; c: d"},
      {"a. - b", "A. - B", "A. - B"},
      {"a. 1b c. d", "A. 1b C. D", "A. 1b c. D"},
      {"...", "...", "..."},
      {"", "", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(TitleCased(c.text), c.title) << c.text;
    EXPECT_EQ(SentenceCased(c.text), c.sentence) << c.text;
  }
}

TEST(TemplateFormats, CountFromTheNumberThatATextBeginsWith) {
  const std::pair<const char*, std::size_t> cases[] = {{"0", 0},
                                                       {"1", 1},
                                                       {"2.9", 2},
                                                       {"-1", 0},
                                                       {"", 0},
                                                       {"x", 0},
                                                       {"3x", 3},
                                                       {"&H10", 16},
                                                       {"0.9", 0},
                                                       {"3999999999", 3999999999},
                                                       {"1e300", 2000000000},
                                                       {"4000000000", 2000000000}};
  for (const auto& [text, count] : cases) EXPECT_EQ(CountArgument(text), count) << text;
}

TEST(TemplateFormats, TakeSoManyArguments) {
  FakePorts fakes;
  ExpectFields(
      {
          {"cal(1,2)", "10105 parse.field: Too many arguments: cal"},
          {"sen(a,b)", "10105 parse.field: Too many arguments: sen"},
          {"tit(a,b)", "10105 parse.field: Too many arguments: tit"},
          {"upp(a,b)", "10105 parse.field: Too many arguments: upp"},
          {"low(a,b)", "10105 parse.field: Too many arguments: low"},
          {"lef(abc,2)", "ab"},
          {"lef(abc,2,3)", "10105 parse.field: Too many arguments: lef"},
          {"rig(abc,2)", "bc"},
          {"rig(abc,2,3)", "10105 parse.field: Too many arguments: rig"},
          {"set(a,1)", "1"},
          {"set(a,1,2)", "10105 parse.field: Too many arguments: set"},
          {"mid(abcd,2,2)", "bc"},
          {"mid(abcd,2,2,2)", "10105 parse.field: Too many arguments: mid"},
          {"random(4)", "4"},
          {"random(4,5)", "10105 parse.field: Too many arguments: random"},
          {"ext(a)", "10105 parse.field: Too few arguments: ext"},
          {"ext(a,b)", "called"},
          {"sentence(a)", "A"},
          {"format(5,0.0)", "5.0"},
          {"Title(a)", "A"},
          {"LOWER(A)", "a"},
          {"calculate(1)", "1"},
          {"condition(1=1,a)", "a"},
          {"middle(abc,2)", "bc"},
          {"left(abc)", "a"},
          {"right(abc)", "c"},
          {"randoms(4)", "10105 parse.field: Unknown function: randoms"},
      },
      fakes.All());
}

TEST(TemplateFormats, CutAtEveryPosition) {
  FakePorts fakes;
  ExpectFields(
      {
          {"lef(abc,1)", "a"},     {"lef(abc,2)", "ab"},  {"lef(abc,3)", "abc"},
          {"lef(abc,4)", "abc"},   {"lef(abc,-1)", ""},   {"rig(abc,1)", "c"},
          {"rig(abc,2)", "bc"},    {"rig(abc,3)", "abc"}, {"rig(abc,4)", "abc"},
          {"rig(abc,0)", ""},      {"mid(abc,1)", "abc"}, {"mid(abc,1,1)", "a"},
          {"mid(abc,2,1)", "b"},   {"mid(abc,3)", "c"},   {"mid(abc,3,1)", "c"},
          {"mid(abc,4)", ""},      {"mid(abc,4,1)", ""},  {"mid(abc,1,3)", "abc"},
          {"mid(abc,1,4)", "abc"}, {"mid(abc,0)", "abc"}, {"mid(abc,2,1e300)", "bc"},
          {"lef()", ""},           {"mid(,1)", ""},
      },
      fakes.All());
}

}  // namespace
}  // namespace tarvo
