// The lists of fields: adding, look-ups, removal and sorting.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tree_text.h"
#include "xmldoc/document.h"

namespace tarvo {
namespace {

Ref<Document> WithFields(const std::vector<std::string>& names) {
  Ref<Document> document = Document::Create();
  int value = 0;
  for (const std::string& name : names) document->Fields().AddField(name, std::to_string(++value));
  return document;
}

TEST(FieldList, AddFieldSetsAllFourAndReturnsTheIndex) {
  const Ref<Document> document = Document::Create();
  Fields& fields = document->Fields();
  EXPECT_EQ(fields.AddField("a", "1"), 0);
  EXPECT_EQ(fields.AddField(" b ", "<2>", "secret", 3), 1);
  EXPECT_EQ(fields.AddField("c"), 2);
  EXPECT_EQ(fields.Count(), 3);
  EXPECT_EQ(fields.Field(1)->Name(), "b");
  EXPECT_EQ(fields.Field(1)->Value(), "<2>");
  EXPECT_EQ(fields.Field(1)->EncodePassword(), "secret");
  EXPECT_EQ(fields.Field(1)->CryptType(), 3);
  EXPECT_EQ(fields.Field(2)->Value(), "");
}

TEST(FieldList, CountComparesNameAndValueWithoutLetterCase) {
  const Ref<Document> document = Document::Create();
  Fields& fields = document->Fields();
  fields.AddField("rate", "Yes");
  fields.AddField("RATE", "no");
  fields.AddField("other", "YES");
  fields.AddField("sign", "<");
  EXPECT_EQ(fields.Count(), 4);
  EXPECT_EQ(fields.Count("Rate"), 2);
  EXPECT_EQ(fields.Count("Rate", "yes"), 1);
  EXPECT_EQ(fields.Count(std::nullopt, "yes"), 2);
  EXPECT_EQ(fields.Count(std::nullopt, "<"), 1);
  EXPECT_EQ(fields.Count(std::nullopt, std::nullopt), 4);
  EXPECT_EQ(fields.Count("rat"), 0);
}

TEST(FieldList, SearchFieldTakesTheLastMatch) {
  const Ref<Document> document = WithFields({"rate", "Rate", "x", "rate"});
  EXPECT_EQ(document->Fields().SearchField("rate", false)->Value(), "4");
  EXPECT_EQ(document->Fields().SearchField("Rate", false)->Value(), "2");
  EXPECT_EQ(document->Fields().SearchField("RATE", true)->Value(), "4");
  const Ref<Document> two = WithFields({"rate", "Rate"});
  EXPECT_EQ(two->Fields().SearchField("rate", true)->Value(), "2");
  EXPECT_EQ(two->Fields().SearchField("rate", false)->Value(), "1");
}

TEST(FieldList, SearchFieldThatFindsNothingGivesADetachedEmptyField) {
  const Ref<Document> document = WithFields({"a"});
  const Ref<Field> missing = document->Fields().SearchField("missing", false);
  EXPECT_EQ(missing->Value(), "");
  EXPECT_EQ(missing->Name(), "");
  missing->SetValue("x");
  EXPECT_EQ(document->Fields().Count(), 1);
  EXPECT_EQ(document->Fields().SearchField("missing", true)->Value(), "");
}

TEST(FieldList, AddsFieldsWithoutACipherUnlessTold) {
  const Ref<Document> document = Document::Create();
  document->Fields().AddField("plain");
  document->Fields().AddField("ciphered", "value", "password", 3);
  const Ref<Field> plain = document->Fields().Field(0);
  EXPECT_EQ(plain->Value() + plain->EncodePassword(), "");
  EXPECT_EQ(plain->CryptType(), 0);
  const Ref<Field> ciphered = document->Fields().Field(1);
  EXPECT_EQ(ciphered->Value() + ciphered->EncodePassword(), "valuepassword");
  EXPECT_EQ(ciphered->CryptType(), 3);
}

TEST(FieldList, LooksUpByIndexAndByName) {
  const Ref<Document> document = WithFields({"a", "b", "A", "1"});
  const Fields& fields = document->Fields();
  EXPECT_EQ(fields.Field(0)->Value(), "1");
  EXPECT_EQ(fields.Field(3)->Name(), "1");
  EXPECT_EQ(fields.Field("1")->Value(), "4") << "a text is a name, even of digits";
  EXPECT_EQ(fields.Field("a")->Value(), "3") << "any letter case, the last of several";
  EXPECT_EQ(fields.Field("B")->Value(), "2");
  for (const int outside : {-1, 4, 2147483647}) EXPECT_EQ(fields.Field(outside)->Name(), "");
  EXPECT_EQ(fields.Field("0")->Name(), "");
  EXPECT_EQ(fields.Count(), 4);
}

TEST(FieldList, LooksUpByAConditionOnAnAttribute) {
  const Ref<Document> document = Imported(
      "<r><f id=\"1\" k=\"a b\">one</f><f id=\"2\">two</f><g id=\"1\">three</g><f>none</f></r>");
  const Fields& fields = document->Fields();
  const std::vector<std::pair<const char*, const char*>> rows{
      {"f@id=1", "one"},  {"f@id=\"1\"", "one"}, {"f@id='2'", "two"},
      {"F@ID=2", "two"},  {"f@id=3", ""},        {"g@id=1", "three"},
      {"f@k=a b", "one"}, {"f@k='a b'", "one"},  {"f@k=A b", ""},
      {"f@id", "two"},    {"f@missing", ""},     {"@id=1", "three"},
      {"f@", ""},         {"f@id=", ""},         {"f", "none"},
      {"f @id=1", ""},    {"f@ id = 1 ", "one"}, {"f@id=\"1", ""},
  };
  for (const auto& [key, value] : rows) EXPECT_EQ(fields.Field(key)->Value(), value) << key;
}

TEST(FieldList, RemovalClosesTheGapAndTheFieldLivesOn) {
  const Ref<Document> document = WithFields({"a", "b", "c", "B"});
  Ref<Field> removed = document->Fields().RemoveField(1);
  EXPECT_EQ(removed->Name(), "b");
  EXPECT_EQ(TreeText(*document), "{a=1,c=3,B=4}");
  EXPECT_EQ(document->Fields().RemoveField("C")->Value(), "3");
  EXPECT_EQ(document->Fields().RemoveField(2)->Name(), "");
  EXPECT_EQ(document->Fields().RemoveField(-1)->Name(), "");
  EXPECT_EQ(document->Fields().RemoveField("zzz")->Name(), "");
  EXPECT_EQ(TreeText(*document), "{a=1,B=4}");
  removed->SetValue("later");
  EXPECT_EQ(removed->Value(), "later");
}

TEST(FieldList, SortsByNameInLowerCaseAndStably) {
  const Ref<Document> document = WithFields({"b", "A", "a", "C", "B", "_"});
  document->Fields().Sort(true);
  EXPECT_EQ(TreeText(*document), "{_=6,A=2,a=3,b=1,B=5,C=4}");
  document->Fields().Sort(false);
  EXPECT_EQ(TreeText(*document), "{C=4,b=1,B=5,A=2,a=3,_=6}");
}

/// Values of the fields from first to last.
std::string ValuesOf(Document& document) {
  std::string values;
  for (int i = 0; i < document.Fields().Count(); ++i) {
    values += document.Fields().Field(i)->Value() + " ";
  }
  return values;
}

// Sixteen entries and fewer are in order after a sorting that is not stable, too.
TEST(FieldList, OfManyEqualNamesKeepsThemInOrder) {
  const Ref<Document> document = Document::Create();
  std::string first;
  std::string second;
  for (int i = 0; i < 100; ++i) {
    const std::string number = std::to_string(i);
    document->Fields().AddField(i % 4 < 2 ? "b" : i % 4 == 2 ? "a" : "A", number);
    (i % 4 < 2 ? second : first) += number + " ";
  }
  document->Fields().Sort(true);
  EXPECT_EQ(ValuesOf(*document), first + second);
  document->Fields().Sort(false);
  EXPECT_EQ(ValuesOf(*document), second + first);
}

TEST(FieldList, SortsBytesAbove127BehindTheLetters) {
  const Ref<Document> document = WithFields({"\xE9", "z", "\x7F"});
  document->Fields().Sort(true);
  EXPECT_EQ(document->Fields().Field(0)->Name(), "z");
  EXPECT_EQ(document->Fields().Field(1)->Name(), "\x7F");
  EXPECT_EQ(document->Fields().Field(2)->Name(), "\xE9");
}

}  // namespace
}  // namespace tarvo
