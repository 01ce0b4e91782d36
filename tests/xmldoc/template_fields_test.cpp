// Field directives: values, calls, arguments, and the ports that they use.
#include <gtest/gtest.h>

#include <string>

#include "tests/xmldoc/template_outcome.h"

namespace tarvo {
namespace {

constexpr const char* kFieldsDocument =
    "<r><name>Night Watch</name><Name>Night's Watch</Name><n>7</n><op>1,2;3|4)=\"x\"</op>"
    "<c><v>first</v></c><C><v>last</v><d><e>deep</e></d></C></r>";

void ExpectAll(const TemplateCase* begin, const TemplateCase* end) {
  FakePorts fakes;
  for (const TemplateCase* one = begin; one != end; ++one) {
    EXPECT_EQ(Filled(kFieldsDocument, std::string("<@field ") + one->source + ">", fakes.All()),
              one->outcome)
        << one->source;
  }
}
template <std::size_t kCount>
void ExpectAll(const TemplateCase (&cases)[kCount]) {
  ExpectAll(cases, cases + kCount);
}

TEST(TemplateFields, AreValuesOfThePathsTheyName) {
  ExpectAll({
      {"n", "7"},
      {"N", "7"},
      {" n ", "7"},
      {"name", "Night's Watch"},  // of two fields of one name the last
      {"c.v", "last"},
      {"C.D.E", "deep"},
      {"c.nothing", ""},
      {"nothing.v", ""},
      {"nothing", ""},
      {"", ""},
      {"ID=\"n\"", "7"},
      {"id=\"c.v\"", "last"},
      {"ID=\"'n'\"", "7"},
      {"VAR(n)", "7"},
      {"var( c.v )", "last"},
      {"VAR(n)VAR(n)", "77"},
      {"no VAR(n) yes", "no 7 yes"},
      {"\"n\"", "n"},
      {"a)b", ""},
      {"LET", ""},
  });
}

TEST(TemplateFields, KnowTheirFunctionsByThreeLetters) {
  ExpectAll({
      {"upp(a)", "A"},
      {"UPPER(a)", "A"},
      {"uppermost9_(a)", "A"},
      {"up(a)", "10105 parse.field: Unknown function: up"},
      {"random(3)", "3"},
      {"ran(3)", "10105 parse.field: Unknown function: ran"},
      {"xyz(a)", "10105 parse.field: Unknown function: xyz"},
      {"upp (a)", "upp (a)"},  // not directly before the parenthesis, and so text
      {"upp(a", "10105 parse.field: Missing \")\" of upp("},
      {"VAR(n", "10105 parse.field: Missing \")\" of VAR("},
      {"upp((a)", "10105 parse.field: Missing \")\" of upp("},
      {"upp(a))", "A)"},
      {"(a", "(a"},
      {"low(upp(tit(x)))", "x"},
  });
}

TEST(TemplateFields, SplitTheirArguments) {
  ExpectAll({
      {"lef(abc,2)", "ab"},
      {"lef(abc;2)", "ab"},
      {"lef( abc , 2 )", "ab"},
      {"lef(\" abc\",2)", " a"},
      {"lef(\"a,b;c\",3)", "a,b"},
      {"upp(a (b, c))", "A (B, C)"},
      {"lef(VAR(op),6)", "1,2;3|"},
      {"upp(a|b)", "A|B"},
      {"a,b;c|VAR(n)", "a,b;c|7"},
      {"upp(a,b)", "10105 parse.field: Too many arguments: upp"},
      {"lef(a,1,2)", "10105 parse.field: Too many arguments: lef"},
      {"mid(a,1,2,3)", "10105 parse.field: Too many arguments: mid"},
      {"cal(1,2)", "10105 parse.field: Too many arguments: cal"},
      {"RANDOM(1,2)", "10105 parse.field: Too many arguments: random"},
      {"ext(a)", "10105 parse.field: Too few arguments: ext"},
      {"upp()", ""},
  });
}

TEST(TemplateFields, CutTexts) {
  ExpectAll({
      {"lef(abc)", "a"},
      {"rig(abc)", "c"},
      {"lef(abc,0)", ""},
      {"rig(abc,-1)", ""},
      {"lef(abc,1e300)", "abc"},
      {"rig(abc,1e300)", "abc"},
      {"lef(abc,x)", ""},
      {"lef(abc,2.9)", "ab"},
      {"mid(abcdef)", "abcdef"},
      {"mid(abcdef,2)", "bcdef"},
      {"mid(abcdef,0,2)", "ab"},
      {"mid(abcdef,-5,2)", "ab"},
      {"mid(abcdef,6,9)", "f"},
      {"mid(abcdef,7)", ""},
      {"mid(abcdef,1e300)", ""},
      {"mid(abcdef,2,0)", ""},
  });
}

TEST(TemplateFields, WriteLettersInTheirCase) {
  ExpectAll({
      {"upp(a\xE9z)", "A\xE9Z"},
      {"low(A\xC9Z)", "a\xC9z"},
      {"tit(one-two THREE 4th)", "One-Two Three 4th"},
      {"tit(o'neil)", "O'neil"},
      {"sen(one. two? three! FOUR.five)", "One. Two? Three! Four.five"},
      {"sen()", ""},
      {"sen(  \"  one\")", "  One"},
      {"sen(3 is more. 4 too)", "3 is more. 4 too"},
  });
}

TEST(TemplateFields, Calculate) {
  ExpectAll({
      {"cal(1+2*3)", "7"},
      {"cal((1+2)*3)", "9"},
      {"cal(10-4-3)", "3"},
      {"cal(2^3^2)", "512"},
      {"cal(-2^2)", "-4"},
      {"cal(2^-1)", "0.5"},
      {"cal(--3)", "3"},
      {"cal(+3)", "3"},
      {"cal(2*-3)", "-6"},
      {"cal(0*-1)", "0"},
      {"cal(17 MOD 5*2)", "4"},
      {"cal(7 mod(4))", "3"},
      {"cal(7mod(2+2))", "3"},
      {"cal((17) MOD((5)))", "2"},
      {"cal(VAR(n)mod(lef(42,1)))", "3"},
      {"cal(7 mod(lef(\"3,\",1)+1)*2)", "6"},
      {"cal(mod(7,4))", "10105 parse.field: Calculation not understood: mod(7,4)"},
      {"cal(7 model(4))", "10105 parse.field: Unknown function: model"},
      {"cal(1+lef(mod(3),1))", "10105 parse.field: Unknown function: mod"},
      {"mod(3)", "10105 parse.field: Unknown function: mod"},
      {"cal(7 mod(4)", "10105 parse.field: Missing \")\" of cal("},
      {"cal(1/3)", "0.333333333333333"},
      {"cal(.5+1.)", "1.5"},
      {"cal(1e3)", "1000"},
      {"cal(VAR(n)*VAR(n))", "49"},
      {"cal(3-VAR(nothing))", "3"},
      {"cal(VAR(op)+1)", "2"},  // a value counts as the number that it begins with
      {"cal(lef(789,2)+cal(1+1))", "80"},
      {"cal(\"4\"+1)", "5"},
      {"cal(1/0)", "11 parse.calculation: Division by zero"},
      {"cal(1 mod 0)", "11 parse.calculation: Division by zero"},
      {"cal(9e999)", "6 parse.calculation: Overflow"},
      {"cal(9e307*10)", "6 parse.calculation: Overflow"},
      {"cal((0-4)^0.5)", "5 parse.calculation: Invalid procedure call or argument"},
      {"cal()", "10105 parse.field: Calculation not understood"},
      {"cal(1+)", "10105 parse.field: Calculation not understood"},
      {"cal(1 2)", "10105 parse.field: Calculation not understood: 2"},
      {"cal(VAR(n) 2)", "10105 parse.field: Calculation not understood: 2"},
      {"cal(1VAR(n))", "10105 parse.field: Calculation not understood"},
      {"cal(2 VAR(n))", "10105 parse.field: Calculation not understood"},
      {"cal(x)", "10105 parse.field: Calculation not understood: x"},
      {"cal(1.2.3)", "10105 parse.field: Calculation not understood: .3"},
      {"cal(1|2)", "10105 parse.field: Calculation not understood: |"},
      {"cal((1)", "10105 parse.field: Missing \")\" of cal("},
      {"cal(()1)", "10105 parse.field: Calculation not understood: )1"},
  });
}

TEST(TemplateFields, FormatNumbersAndMoments) {
  ExpectAll({
      {"for(1234.5,0)", "1235"},
      {"for(-0.4,0)", "0"},
      {"for(-1234.5,#,##0)", "-1,235"},
      {"for(0,#)", ""},
      {"for(0.5,.00)", ".50"},
      {"for(999.995,0.00)", "1000.00"},
      {"for(1e20,#,##0)", "100,000,000,000,000,000,000"},
      {"for(5,$0.00 each)", "$5.00 each"},
      {"for(1.005,0.##)", "1.01"},
      {"for(1.2,0.0##)", "1.2"},
      {"for(3,2)", "3.00"},
      {"for(1e5)", "100000"},
      {"for(x)", "x"},
      {"for(,0.00)", ""},
      {"for(1,)", "1"},
      {"for(1,nonsense)", "10105 parse.field: Unknown format: nonsense"},
      {"for(1e307,0%)", "6 parse.field: Overflow"},
      {"for(2026-01-02,date)", "2026-01-02"},
      {"for(2026-01-02,DateTime)", "2026-01-02 00:00:00"},
      {"for(01/02/2026 3:04 PM,time)", "15:04:00"},
      {"for(2026-01-02 03:04:05,date,yyyy/yy mm/m dd/d hh/h nn/n ss/s)",
       "2026/26 01/1 02/2 03/3 04/4 05/5"},
      {"for(2026-13-45,date)", "2026-13-45"},
      {"for(,date)", ""},
      {"for(NOW,time)", "10:32:07"},
      {"for(now,date;dd.mm.yyyy)", "21.11.2026"},
      {"for(now,0)", "now"},
      {"for(now)", "now"},
  });
}

TEST(TemplateFields, Choose) {
  ExpectAll({
      {"con(1=1,a,b)", "a"},
      {"con(1=2,a,b)", "b"},
      {"con(1=2,a)", ""},
      {"con(1=2,a,2=2,b,c)", "b"},
      {"con(1=2,a,2=3,b,c)", "c"},
      {"con(1=2,a,2=3,b)", ""},
      {"con(1=1)", "1"},
      {"con(1=2|2=3)", "0"},
      {"con(1=2|2=2|3=4,a,b)", "a"},
      {"ID=\"con(9>=10,a,b)\"", "b"},
      {"ID=\"con(9<=10,a,b)\"", "a"},
      {"con(1!=1,a,b)", "b"},
      {"con(1<2,a,b)", "a"},
      {"ID=\"con(2>1,a,b)\"", "a"},
      {"ID=\"con(abc->B,a,b)\"", "a"},
      {"ID=\"con(1<>2,a,b)\"", "b"},  // no operator here: is "1<" above "2"?
      {"con(VAR(op)=VAR(op),a,b)", "a"},
      {"con(VAR(name)=NIGHT'S WATCH,a,b)", "a"},
      {"con(upp(n)=VAR(nothing),a,b)", "b"},
      {"ID=\"con(b>a>c,a,b)\"", "a"},  // the first ">" splits
      {"con(con(1=1,x,y)=x,a,b)", "a"},
      {"con(1=1, a b , c)", "a b"},
      {"con(1=1,yes,cal(1/0))", "yes"},
      {"con(1=2,cal(1/0),no)", "no"},
      {"con(1=1,con(2=2,deep,x),y)", "deep"},
      {"con(\"1=1\",a,b)", "10104 parse.condition: No se encuentra la condici\xF3n"},
      {"con(1,a,b)", "10104 parse.condition: No se encuentra la condici\xF3n"},
      {"con(1=1|2,a,b)", "10104 parse.condition: No se encuentra la condici\xF3n"},
      {"con(1=1,a,2,b)", "10104 parse.condition: No se encuentra la condici\xF3n"},
      {"con()", "10104 parse.condition: No se encuentra la condici\xF3n"},
  });
}

TEST(TemplateFields, StoreValues) {
  const Ref<Document> document = DocumentOf(kFieldsDocument);
  EXPECT_EQ(document->HTMLExport("<@field LET n=8>[<@field n>]"), "[8]");
  EXPECT_EQ(document->HTMLExport("<@field let fresh = a <b VAR(n)>"), "");
  EXPECT_EQ(document->Fields().Field("fresh")->Value(), "a <b 8");
  EXPECT_EQ(
      document->HTMLExport("<@field LET c.v=new><@field LET c.w=more><@field c.v><@field c.w>"),
      "newmore");
  EXPECT_EQ(document->HTMLExport("<@field LET nowhere.v=x><@field nowhere.v>"), "");
  EXPECT_EQ(document->HTMLExport("<@field LET n=a=b><@field n>"), "a=b");
  EXPECT_EQ(document->HTMLExport("<@field set(s, upp(x))><@field set(s)><@field set(none)>"), "XX");
  EXPECT_EQ(document->HTMLExport("<@field con(1=2,set(s,never),no)><@field s>"), "noX");
  EXPECT_EQ(document->Fields().Count(), 6);
  EXPECT_EQ(document->Childs().Count(), 2);
}

TEST(TemplateFields, StoreNothingUnderABadName) {
  ExpectAll({
      {"LET a b=1", "1 Name: Spaces found in the name"},
      {"set(a b,1)", "1 Name: Spaces found in the name"},
      {"LET a", "10105 parse.field: Missing \"=\" of LET"},
      {"LET =1", "10105 parse.field: Missing name of LET"},
  });
}

TEST(TemplateFields, BoundTheValuesThatTheyMake) {
  TemplatePorts ports;
  ports.mostOutput = 1000;
  std::string source = "<@field LET x=ab>";
  for (int i = 0; i < 40; ++i) source += "<@field LET x=VAR(x)VAR(x)>";
  EXPECT_EQ(Filled("<r/>", source, ports),
            "10106 VemtoParser.Maker: A value of the template passes 1000 bytes");
  ports.mostOutput = 4;
  EXPECT_EQ(Filled("<r/>", "<@field LET x=abcd><@field x>", ports), "abcd");
  EXPECT_EQ(Filled("<r/>", "<@field LET x=abcde>", ports),
            "10106 VemtoParser.Maker: A value of the template passes 4 bytes");
}

TEST(TemplateFields, AskChanceWithinItsRange) {
  FakePorts fakes;
  const std::string source = "<@field RANDOM(6)> <@field RANDOM()> <@field RANDOM( 2147483647 )>";
  EXPECT_EQ(Filled(kFieldsDocument, source, fakes.All()), "6 1000 2147483647");
  EXPECT_EQ(fakes.random.bounds, (std::vector<std::uint32_t>{6, 1000, 2147483647}));
  ExpectAll({
      {"RANDOM(0)", "5 parse.field: Invalid procedure call or argument"},
      {"RANDOM(-1)", "5 parse.field: Invalid procedure call or argument"},
      {"RANDOM(2147483648)", "6 parse.field: Overflow"},
      {"RANDOM(x)", "13 parse.field: Type mismatch"},
  });
}

TEST(TemplateFields, CallExternalComponents) {
  FakePorts fakes;
  EXPECT_EQ(Filled(kFieldsDocument, "<@field ext(Some.Thing,Do,VAR(n),b)>", fakes.All()), "called");
  EXPECT_EQ(Filled(kFieldsDocument, "<@field ext(Some.Thing;Do)>", fakes.All()), "called");
  EXPECT_EQ(fakes.components.calls,
            (std::vector<std::string>{"Some.Thing.Do(7,b)", "Some.Thing.Do()"}));
  fakes.components.answer = {false, "Invalid class string"};
  EXPECT_EQ(Filled(kFieldsDocument, "[<@field ext(Some.Thing,Do,x)>]", fakes.All()),
            "10107 parse.external: Some.Thing.Do: Invalid class string");
  fakes.components.answer = {true, ""};
  EXPECT_EQ(Filled(kFieldsDocument, "[<@field ext(Some.Thing,Do)>]", fakes.All()), "[]");
  std::string arguments;
  for (int i = 0; i < 30; ++i) arguments += ",x";
  EXPECT_EQ(Filled(kFieldsDocument, "<@field ext(a,b" + arguments + ")>", fakes.All()), "");
  EXPECT_EQ(Filled(kFieldsDocument, "<@field ext(a,b,x" + arguments + ")>", fakes.All()),
            "10105 parse.field: Too many arguments: ext");
}

TEST(TemplateFields, ProduceNothingWithoutTheirPorts) {
  const TemplateCase cases[] = {
      {"[<@field RANDOM(6)>]", "[]"},
      {"[<@field a RANDOM(6) b>]", "[]"},
      {"[<@field for(now,date)>]", "[]"},
      {"[<@field ext(a,b)>]", "[]"},
      {"[<@field LET n=RANDOM()><@field n>]", "[7]"},
      {"[<@field con(1=1,fixed,RANDOM())>]", "[fixed]"},
      {"[<sendmail TO=\"a@b\">x</sendmail>]", "[]"},
  };
  for (const TemplateCase& one : cases)
    EXPECT_EQ(Filled(kFieldsDocument, one.source), one.outcome) << one.source;
}

TEST(TemplateFields, NestTenThousandDeep) {
  std::string calls;
  std::string sums;
  std::string choices;
  for (int i = 0; i < 10000; ++i) {
    calls += "upp(";
    sums += "cal(1+(";
    choices += "con(1=1,";
  }
  const std::string ends(10000, ')');
  EXPECT_EQ(Filled(kFieldsDocument, "<@field " + calls + "x" + ends + ">"), "X");
  EXPECT_EQ(Filled(kFieldsDocument, "<@field " + sums + "0" + ends + ends + ">"), "10000");
  EXPECT_EQ(Filled(kFieldsDocument, "<@field " + choices + "x" + ends + ">"), "x");
  EXPECT_EQ(Filled(kFieldsDocument, "<@field " + calls + "x>"),
            "10105 parse.field: Missing \")\" of upp(");
}

TEST(TemplateFields, ThatAreMalformedAreErrors) {
  const TemplateCase cases[] = {
      {"<@field n", "10101 VemtoParser.Maker: Tag mal formado"},
      {"<@field \"n>", "10101 VemtoParser.Maker: Tag mal formado"},
      {"<@field ID=n>", "10101 VemtoParser.Maker: Tag mal formado"},
      {"<@field ID=\"n>", "10101 VemtoParser.Maker: Tag mal formado"},
      {"<@field>", "<@field>"},
      {"<@ field n>", "<@ field n>"},
  };
  for (const TemplateCase& one : cases)
    EXPECT_EQ(Filled(kFieldsDocument, one.source), one.outcome) << one.source;
}

TEST(TemplateFields, OfADocumentWithoutAnythingAreEmpty) {
  EXPECT_EQ(Document::Create()->HTMLExport("[<@field n>][<@open ID=\"a\">x<@close ID=\"a\">]"),
            "[][]");
  EXPECT_EQ(Document::Create()->HTMLExport(""), "");
}

}  // namespace
}  // namespace tarvo
