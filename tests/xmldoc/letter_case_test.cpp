// Letters are those of the system's code page, wherever letter case does not count.
#include "xmldoc/rules/letter_case.h"

#include <gtest/gtest.h>

#include <memory>

#include "code_pages_fake.h"
#include "tests/xmldoc/template_outcome.h"

namespace tarvo {
namespace {

// "A\xF1o" is "Año", "\xC9" a capital E with acute.
constexpr const char* kDocument =
    "<r><A\xF1o \xC9=\"1\">\xE9t\xE9</A\xF1o><ni\xF1o n\xE9=\"x\"><edad>7</edad></ni\xF1o></r>";

TEST(Letters, OfTheCodePageAreFoundInEitherCase) {
  OneBytePage page = WesternPage();
  const LettersInUse inUse(page);
  const Ref<Document> r = DocumentOf(kDocument);
  EXPECT_EQ(r->Fields().SearchField("A\xD1O", true)->Value(), "\xE9t\xE9");
  EXPECT_EQ(r->Fields().SearchField("A\xD1O", false)->Value(), "");
  EXPECT_EQ(r->Fields().Field("a\xD1o")->Value(), "\xE9t\xE9");
  EXPECT_EQ(r->Fields().Field("a\xD1o@\xE9=1")->Value(), "\xE9t\xE9");
  EXPECT_EQ(r->Fields().Field("a\xD1o@\xE9")->Value(), "\xE9t\xE9");
  EXPECT_EQ(r->Fields().Field(0)->Parameters().Parameter("\xE9")->Value(), "1");
  EXPECT_EQ(r->Fields().Count("A\xD1O"), 1);
  EXPECT_EQ(r->Fields().Count(std::nullopt, "\xC9T\xC9"), 1);
  EXPECT_EQ(r->Childs().SearchChild2("NI\xD1O", true), 0);
  EXPECT_EQ(r->Childs().SearchChild2("NI\xD1O", false), -1);
  EXPECT_EQ(r->Childs().SearchChild("NI\xD1O", true)->Name(), "ni\xF1o");
  EXPECT_EQ(r->Childs().Child("NI\xD1O@N\xC9='x'")->Name(), "ni\xF1o");
  EXPECT_EQ(r->SelectSingleNode("NI\xD1O")->Name(), "ni\xF1o");
  EXPECT_EQ(r->GetChilds("var(edad)=7").Count(), 1);
}

TEST(Letters, OfTheCodePageCountInTemplates) {
  OneBytePage page = WesternPage();
  const LettersInUse inUse(page);
  const TemplateCase cases[] = {
      {"<@field A\xD1O>", "\xE9t\xE9"},
      {"<@field NI\xD1O.edad>", "7"},
      {"<@open ID=\"NI\xD1O\"><@field edad><@close ID=\"NI\xD1O\">", "7"},
      {"<@open ID=\"NI\xD1O\" when=\"1=1\">a<@close ID=\"NI\xD1O\">"
       "<@open ID=\"ni\xF1o\" when=\"\xC1=\xE1\">b<@close ID=\"ni\xF1o\">",
       "ab"},
      {"<@field con(VAR(A\xD1O)=\xC9T\xC9,yes,no)>", "yes"},
      {"<@field ID=\"con(VAR(A\xD1O)->T\xC9,yes,no)\">", "yes"},
      {"<@field LET A\xD1O=new><@field a\xF1o>", "new"},
      {"<@field upp(a\xF1o)><@field low(A\xD1O)>",
       "A\xD1O"
       "a\xF1o"},
      {"<@field tit(\xE9T\xC9 \xF1U)>", "\xC9t\xE9 \xD1u"},
      {"<@field sen(\xE9T\xC9. \xF1U)>", "\xC9t\xE9. \xD1u"},
  };
  for (const TemplateCase& one : cases) {
    EXPECT_EQ(Filled(kDocument, one.source), one.outcome) << one.source;
  }
}

TEST(Letters, SortTheFieldsInLowerCase) {
  OneBytePage page = WesternPage();
  const Ref<Document> r = DocumentOf("<r><\xE9z/><\xC9m/><\xE9\x61/></r>");
  const auto names = [&r] {
    std::string all;
    for (int i = 0; i < r->Fields().Count(); ++i) all += r->Fields().Field(i)->Name() + " ";
    return all;
  };
  {
    const LettersInUse inUse(page);
    r->Fields().Sort(true);
    EXPECT_EQ(names(), "\xE9\x61 \xC9m \xE9z ");
    r->Fields().Sort(false);
    EXPECT_EQ(names(), "\xE9z \xC9m \xE9\x61 ");
  }
  r->Fields().Sort(true);
  EXPECT_EQ(names(), "\xC9m \xE9\x61 \xE9z ");
}

TEST(Letters, OfTheCodePageAreAllAboveAscii) {
  OneBytePage page({{'\x80', '\x90'}, {'\xDF', '\xFF'}});  // as in page 1251
  const LettersInUse inUse(page);
  EXPECT_TRUE(EqualIgnoringCase("\x80", "\x90"));
  EXPECT_EQ(LowerCased("\x80\xDF"), "\x90\xFF");
}

TEST(Letters, AreTheSameWhenTheyAreInUpperCase) {
  OneBytePage page = GreekPage();
  const LettersInUse inUse(page);
  const Ref<Document> r = DocumentOf("<r><\xF3>1</\xF3></r>");
  EXPECT_EQ(r->Fields().SearchField("\xF2", true)->Value(), "1");
}

TEST(Letters, AreAToZWithoutACodePage) {
  const Ref<Document> r = DocumentOf("<r><a\xF1>1</a\xF1></r>");
  EXPECT_EQ(r->Fields().SearchField("A\xF1", true)->Value(), "1");
  EXPECT_EQ(r->Fields().SearchField("a\xD1", true)->Value(), "");
}

TEST(Letters, AreThoseOfTheCodePageThatCameLast) {
  OneBytePage western = WesternPage();
  OneBytePage greek = GreekPage();
  auto first = std::make_unique<LettersInUse>(western);
  auto second = std::make_unique<LettersInUse>(greek);
  auto third = std::make_unique<LettersInUse>(western);
  EXPECT_FALSE(EqualIgnoringCase("\xF2", "\xF3"));
  second.reset();
  EXPECT_TRUE(EqualIgnoringCase("\xF1", "\xD1"));
  second = std::make_unique<LettersInUse>(greek);
  EXPECT_TRUE(EqualIgnoringCase("\xF2", "\xF3"));
  EXPECT_FALSE(EqualIgnoringCase("\xF1", "\xD1"));
  third.reset();
  second.reset();
  EXPECT_TRUE(EqualIgnoringCase("\xF1", "\xD1"));
  first.reset();
  EXPECT_FALSE(EqualIgnoringCase("\xF1", "\xD1"));
}

// The wide a (82 81) is the small letter of the wide A (82 60); the second bytes of other pairs are
// ASCII letters that have no case.
TEST(Letters, StayThoseOfTheCodePageThatCameLastWhenTheFirstIsGone) {
  OneBytePage western = WesternPage();
  OneBytePage greek = GreekPage();
  auto first = std::make_unique<LettersInUse>(western);
  auto second = std::make_unique<LettersInUse>(greek);
  auto third = std::make_unique<LettersInUse>(western);
  first.reset();
  EXPECT_TRUE(EqualIgnoringCase("\xF1", "\xD1"));
  third.reset();
  EXPECT_TRUE(EqualIgnoringCase("\xF2", "\xF3"));
  second.reset();
  EXPECT_FALSE(EqualIgnoringCase("\xF2", "\xF3"));
}

TEST(Letters, MayHaveTwoBytes) {
  JapanesePage page;
  const LettersInUse inUse(page);
  EXPECT_TRUE(EqualIgnoringCase("x\x82\x60z", "X\x82\x81Z"));
  EXPECT_FALSE(EqualIgnoringCase("\x83\x41", "\x83\x61"));
  EXPECT_FALSE(LessIgnoringCase("\x82\x81", "\x82\x60"));
  EXPECT_TRUE(LessIgnoringCase("\x82\x60", "\x82\x82"));
  const TemplateCase cases[] = {
      {"<@field upp(a\x83\x61\x82\x81)>", "A\x83\x61\x82\x60"},
      {"<@field low(A\x83\x41\x82\x60)>", "a\x83\x41\x82\x81"},
      {"<@field tit(\x82\x81\x82\x60 \x83\x61\x41)>", "\x82\x60\x82\x81 \x83\x61\x61"},
      {"<@field sen(\x82\x81\x82\x60. \x82\x81)>", "\x82\x60\x82\x81. \x82\x60"},
      {"<@field tit(a\x82)>", "A\x82"},
      {"<@field tit(\x82)>", "\x82"},
      {"<@field \x82\x60>", "wide"},
      {"<@field \x83\x41>", ""},
  };
  for (const TemplateCase& one : cases) {
    EXPECT_EQ(Filled("<r><\x82\x81>wide</\x82\x81><\x83\x61>other</\x83\x61></r>", one.source),
              one.outcome)
        << one.source;
  }
}

// Their second bytes are those of "@", "A", "v" and "|".
TEST(Letters, OfTwoBytesHoldNoSign) {
  JapanesePage page;
  const LettersInUse inUse(page);
  const char* const document =
      "<r><\x83\x40>1</\x83\x40><\x83\x7C>2</\x83\x7C><n x=\"\x83\x40\">3</n>"
      "<g\x83\x40><x>4</x></g\x83\x40><q\x83\x40's a=\"1\"><h><x>5</x></h></q\x83\x40's></r>";
  const Ref<Document> r = DocumentOf(document);
  EXPECT_EQ(r->Fields().Field("\x83\x40")->Value(), "1");
  EXPECT_EQ(r->Fields().Field("n@x=\x83\x40")->Value(), "3");
  EXPECT_EQ(r->Childs().Child("g\x83\x40")->Fields().Count(), 1);
  EXPECT_EQ(r->SelectSingleNode("g\x83\x40")->Fields().Count(), 1);
  EXPECT_EQ(r->SelectSingleNode("q\x83\x40's.h")->Fields().Count(), 1);
  EXPECT_EQ(r->SelectSingleNode("q\x83\x40's.@a=1.h")->Fields().Count(), 1);
  const TemplateCase cases[] = {
      {"<@field \x83\x40>", "1"},
      {"<@field g\x83\x40.x>", "4"},
      {"<@field con(VAR(\x83\x7C)=\x83\x7C, yes, no)>", "no"},
      {"<@field con(VAR(\x83\x7C)=2, yes, no)>", "yes"},
      {"<@field upp(\x83\x41(x))>", "\x83\x41(X)"},
      {"<@field upp(\x83|(x))>", "\x83|(X)"},
      {"<@field upp(a\x83\x41 low(X))>", "A\x83\x41 X"},
      {"<@field ID=\"con(b\x83\x61->\x61, yes, no)\">", "no"},
      {"<@field ID=\"con(b\x83\x41->\x83\x41, yes, no)\">", "yes"},
      {"<@open ID=\"g\x83\x40\" when=\"\x83var(=\x83var(\">y<@close ID=\"g\x83\x40\">", "y"},
      {"<@open ID=\"g\x83\x40\" when=\"\x83var(x)->ar(\">y<@close ID=\"g\x83\x40\">", "y"},
  };
  for (const TemplateCase& one : cases) {
    EXPECT_EQ(Filled(document, one.source), one.outcome) << one.source;
  }
}

TEST(Letters, OfTwoBytesDifferWhereTheirAsciiPartsDo) {
  JapanesePage page;
  const LettersInUse inUse(page);
  for (const auto& [a, b] :
       std::initializer_list<std::pair<const char*, const char*>>{{"ab", "ac"},
                                                                  {"ab", "bb"},
                                                                  {"a\x82\x60", "b\x82\x60"},
                                                                  {"\x82\x60"
                                                                   "a",
                                                                   "\x82\x60"
                                                                   "b"},
                                                                  {"a", "ab"},
                                                                  {"a\x82\x60", "a\x82\x61"}}) {
    EXPECT_FALSE(EqualIgnoringCase(a, b)) << a << " " << b;
  }
  for (const auto& [a, b] :
       std::initializer_list<std::pair<const char*, const char*>>{{"ab", "AB"},
                                                                  {"a\x82\x60", "A\x82\x81"},
                                                                  {"\x82\x60"
                                                                   "a",
                                                                   "\x82\x81"
                                                                   "A"},
                                                                  {"", ""}}) {
    EXPECT_TRUE(EqualIgnoringCase(a, b)) << a << " " << b;
  }
}

TEST(Letters, HaveOneByteOrTwoOrNoCase) {
  EXPECT_EQ(CasedLength("a\x82", 0), 1u);
  EXPECT_EQ(CasedLength("a\x82", 1), 1u) << "each byte is a letter without a code page";
  JapanesePage page;
  const LettersInUse inUse(page);
  const std::string text = "a\x82\x60\xB1\xB2\x80\x7F\x82";
  const std::size_t lengths[] = {1, 2, 1, 0, 0, 0, 1, 0};
  for (std::size_t i = 0; i < text.size(); ++i) EXPECT_EQ(CasedLength(text, i), lengths[i]) << i;
}

TEST(Letters, OfAsciiNamesNeverAskTheCodePage) {
  JapanesePage page;
  const LettersInUse inUse(page);
  const Ref<Document> r = DocumentOf("<r><alpha/><beta\x82\x60/><beta/><\x82\x60/></r>");
  EXPECT_EQ(r->Fields().Count("BETA"), 1);
  EXPECT_EQ(r->Fields().Count("gamma\x82\x60"), 0);
  EXPECT_EQ(r->Fields().Count("beta\x82\x60"), 1) << "the very same bytes";
  EXPECT_EQ(UpperCased("ascii"), "ASCII");
  EXPECT_EQ(page.asked, 0);
  EXPECT_EQ(r->Fields().Count("beta\x82\x81"), 1);
  EXPECT_EQ(page.asked, 2);
}

}  // namespace
}  // namespace tarvo
