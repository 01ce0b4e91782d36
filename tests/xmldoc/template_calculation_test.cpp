// Calculations and choices: ranks, blanks, and what each step leaves behind for the next one.
#include <gtest/gtest.h>

#include <string>

#include "tests/xmldoc/template_outcome.h"
#include "xmldoc/template/template_calculation.h"

namespace tarvo {
namespace {

TEST(TemplateCalculations, GoByRanksAndFromTheLeft) {
  ExpectFields({
      {"cal(8-3-2)", "3"},     {"cal(8-3+2)", "7"},        {"cal(24/4/2)", "3"},
      {"cal(24/4*2)", "12"},   {"cal(20 mod 7*2)", "12"},  {"cal(2*20 mod 7)", "5"},
      {"cal(1+6/3)", "3"},     {"cal(6/3+1)", "3"},        {"cal(1-2*3)", "-5"},
      {"cal(2*3-1)", "5"},     {"cal(1+9 mod 5)", "5"},    {"cal(2^3*2)", "16"},
      {"cal(2*2^3)", "16"},    {"cal(2^3^2)", "512"},      {"cal(1+2^2)", "5"},
      {"cal(-2*3)", "-6"},     {"cal(-2+3)", "1"},         {"cal(-2^2)", "-4"},
      {"cal(2^-2)", "0.25"},   {"cal(6/-3)", "-2"},        {"cal(1--1)", "2"},
      {"cal(1-+1)", "0"},      {"cal(-(1+2))", "-3"},      {"cal(2*(3+4)*5)", "70"},
      {"cal(((1)))", "1"},     {"cal((1+2)*(3+4))", "21"}, {"cal(10-(4-3))", "9"},
      {"cal(-7 mod 4)", "-3"}, {"cal(7.5 mod 2)", "1.5"},  {"cal(0-0)", "0"},
  });
}

TEST(TemplateCalculations, MayHoldBlanksTabsAndLineEnds) {
  ExpectFields({
      {"cal( 1 + 2 )", "3"},
      {"cal(1\t+\t2)", "3"},
      {"cal(1\r\n+\r\n2)", "3"},
      {"cal(\t\r\n 7)", "7"},
      {"cal(1\v+2)", "10105 parse.field: Calculation not understood: \v+2"},
      {"cal(7\tMOD\n4)", "3"},
  });
}

TEST(TemplateCalculations, ThatAreNotUnderstoodSayWhere) {
  ExpectFields({
      {"cal(*1)", "10105 parse.field: Calculation not understood: *1"},
      {"cal(1*)", "10105 parse.field: Calculation not understood"},
      {"cal(1**2)", "10105 parse.field: Calculation not understood: *2"},
      {"cal(1(2))", "10105 parse.field: Calculation not understood: (2)"},
      {"cal(1 2)", "10105 parse.field: Calculation not understood: 2"},
      {"cal(1:2)", "10105 parse.field: Calculation not understood: :2"},
      {"cal(1 mo 2)", "10105 parse.field: Calculation not understood: mo 2"},
      {"cal(.)", "10105 parse.field: Calculation not understood: ."},
      {"cal(mod 2)", "10105 parse.field: Calculation not understood: mod 2"},
      {"cal(\"1\"\"2\")", "10105 parse.field: Calculation not understood"},
      {"cal(9e400)", "6 parse.calculation: Overflow"},
      {"cal(10^308*10)", "6 parse.calculation: Overflow"},
      {"cal(0-10^308*10)", "6 parse.calculation: Overflow"},
      {"cal(0/0)", "11 parse.calculation: Division by zero"},
      {"cal((0-1)^0.5)", "5 parse.calculation: Invalid procedure call or argument"},
  });
}

// A template's tokens come with pairs of parentheses; a calculation does not rely on that.
TEST(TemplateCalculations, WantAPairForEachParenthesis) {
  const std::pair<const char*, const char*> cases[] = {
      {"(1", "("}, {"((1)", "("}, {"2*(1", "("}, {"1)", ")"}, {"(1))", ")"}};
  for (const auto& [text, sign] : cases) {
    const std::string outcome = OutcomeOf([source = text] {
      Calculation calculation;
      calculation.AddText(source);
      calculation.Finish();
      return std::to_string(calculation.Result({}));
    });
    EXPECT_EQ(outcome, std::string("10105 parse.field: Calculation not understood: ") + sign)
        << text;
  }
}

TEST(TemplateChoices, LookAtEachAlternative) {
  ExpectFields({
      {"con(1=1|2=3,a,b)", "a"},
      {"con(2=3|1=1,a,b)", "a"},
      {"con(2=3|2=4,a,b)", "b"},
      {"con(1=1|1=1,a,b)", "a"},
      {"con(1=1|2=3|2=4,a,b)", "a"},
      {"con(2=4|2=3|1=1,a,b)", "a"},
      {"con(1=1|2=3)", "1"},
      {"con(2=3|2=4)", "0"},
      {"x con(1=1|2=3,a,b) y", "x a y"},
      {"con(con(1=2,a,b)=b|1=2,c,d)", "c"},
  });
}

TEST(TemplateChoices, LeaveOneTextAlsoWithoutAnElse) {
  ExpectFields({
      {"x con(1=2,a) y", "x  y"},
      {"x con(1=1,a) y", "x a y"},
      {"upp(con(1=2,a))", ""},
      {"x con(1=2,a,1=2,b) y", "x  y"},
      {"lef(abc,con(1=2,a))", ""},
      {"con(con(1=2,a)=,yes,no)", "yes"},
  });
}

TEST(TemplateChoices, DropTheBlanksAroundTheirTexts) {
  ExpectFields({
      {"con(1=2,a, b )", "b"},
      {"con( 1=1 , a , b )", "a"},
      {"con(1=1,\" a \",b)", " a "},
      {"upp( a )", "A"},
      {"upp( a VAR(n) )", "A 7"},
      {"upp(VAR(n) a )", "7 A"},
      {"upp( a \"b \" )", "A B "},
      {"upp( VAR(n) )", "7"},
      {"con(a =a,yes,no)", "yes"},
      {"con(a= a|b=c,yes,no)", "yes"},
  });
}

TEST(TemplateCalls, OfAMissingPortEmptyTheWholeField) {
  ExpectFields({
      {"a RANDOM(6) b", ""},
      {"a for(now,date) b", ""},
      {"a ext(x,y) b", ""},
      {"upp(ext(x,y))", ""},
      {"con(1=2,ext(x,y),no)", "no"},
      {"a for(nowhere,date) b", "a nowhere b"},
  });
}

TEST(TemplateCalls, OfAMissingPortLeaveNothingForTheNextField) {
  EXPECT_EQ(Filled("<r/>", "<@field a RANDOM(6) b>[<@field LET x=1>][<@field x>]"), "[][1]");
  EXPECT_EQ(Filled("<r/>", "<@field LET x=a RANDOM(6) b>[<@field x>]"), "[]");
}

TEST(TemplateCalls, OfChanceTakeAnyWholeNumberFromOne) {
  FakePorts fakes;
  ExpectFields(
      {
          {"RANDOM(1)", "1"},
          {"RANDOM( 2 )", "2"},
          {"RANDOM(2.4)", "2"},
          {"RANDOM()", "1000"},
          {"RANDOM( )", "1000"},
          {"RANDOM(0.4)", "5 parse.field: Invalid procedure call or argument"},
          {"RANDOM(0)", "5 parse.field: Invalid procedure call or argument"},
          {"RANDOM(2147483648)", "6 parse.field: Overflow"},
          {"RANDOM(1x)", "13 parse.field: Type mismatch"},
      },
      fakes.All());
}

}  // namespace
}  // namespace tarvo
