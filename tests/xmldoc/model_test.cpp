// The document model: names, values, lists, look-ups, sorting and paths.
#include <gtest/gtest.h>

#include <functional>

#include "support/runtime_error.h"
#include "tree_text.h"
#include "xmldoc/document.h"

namespace tarvo {
namespace {

/// What a call raises, as "number/source/description"; "" when it raises nothing.
std::string Raised(const std::function<void()>& call) {
  try {
    call();
    return "";
  } catch (const RuntimeError& error) {
    return std::to_string(error.Number()) + "/" + error.Source() + "/" + error.Description();
  }
}

constexpr const char* kNameRefused = "1/Name/Spaces found in the name";
constexpr const char* kDocumentNameRefused = "10007/xDocument.Name/Spaces found in name";

Ref<Document> WithFields(const std::vector<std::string>& names) {
  Ref<Document> document = Document::Create();
  int value = 0;
  for (const std::string& name : names) document->Fields().AddField(name, std::to_string(++value));
  return document;
}

Ref<Document> WithChilds(const std::vector<std::string>& names) {
  Ref<Document> document = Document::Create();
  for (const std::string& name : names) document->Childs().AddChild(name);
  return document;
}

TEST(DocumentNode, BeginsEmptyWithTheDefaultsOfItsDeclaration) {
  const Ref<Document> document = Document::Create();
  EXPECT_EQ(document->Name(), "");
  EXPECT_EQ(document->Version(), "1.0");
  EXPECT_EQ(document->Encoding(), "ISO-8859-1");
  EXPECT_EQ(document->EncodePassword(), "");
  EXPECT_EQ(document->CryptType(), 0);
  EXPECT_FALSE(document->Busy());
  EXPECT_FALSE(document->StopOnLoadError());
  EXPECT_EQ(TreeText(*document), "{}");
}

TEST(DocumentNode, NameIsTrimmedAndHoldsNoBlank) {
  const Ref<Document> document = Document::Create();
  document->SetName("  abc  ");
  EXPECT_EQ(document->Name(), "abc");
  EXPECT_EQ(Raised([&] { document->SetName("a b"); }), kDocumentNameRefused);
  EXPECT_EQ(document->Name(), "abc");
  document->SetName(document->NameView().substr(1));
  EXPECT_EQ(document->Name(), "bc");
  document->SetName("   ");
  EXPECT_EQ(document->Name(), "");
  document->SetName("\ta\t");
  EXPECT_EQ(document->Name(), "\ta\t");
}

TEST(DocumentNode, KeepsWhatItIsGiven) {
  const Ref<Document> document = Document::Create();
  document->SetVersion("2.0");
  document->SetEncoding(" x ");
  document->SetEncodePassword("p");
  document->SetCryptType(-2147483647 - 1);
  EXPECT_EQ(document->Version(), "2.0");
  EXPECT_EQ(document->Encoding(), " x ");
  EXPECT_EQ(document->EncodePassword(), "p");
  EXPECT_EQ(document->CryptType(), -2147483647 - 1);
  document->SetVersion("");
  EXPECT_EQ(document->Version(), "1.0");
}

TEST(DocumentNode, StopOnLoadErrorReachesEveryDescendant) {
  const Ref<Document> root = Imported("<r><a><b><c><f/></c></b></a><d><f/></d></r>");
  root->SetStopOnLoadError(true);
  for (const char* path : {"", "a", "a.b", "a.b.c", "d"}) {
    EXPECT_TRUE(root->SelectSingleNode(path)->StopOnLoadError()) << path;
  }
}

TEST(DocumentNode, StopOnLoadErrorSetToWhatItIsDoesNothing) {
  const Ref<Document> root = Imported("<r><a><b><f/></b></a></r>");
  root->SelectSingleNode("a")->SetStopOnLoadError(true);
  root->SelectSingleNode("a.b")->SetStopOnLoadError(false);
  root->SetStopOnLoadError(false);
  EXPECT_TRUE(root->SelectSingleNode("a")->StopOnLoadError());
  root->SetStopOnLoadError(true);  // ends at "a", which has the value already
  EXPECT_FALSE(root->SelectSingleNode("a.b")->StopOnLoadError());
}

TEST(DocumentNode, StopOnLoadErrorEndsInACircle) {
  const Ref<Document> root = WithChilds({"a"});
  root->Childs().SetChild(0, root);
  root->SetStopOnLoadError(true);
  EXPECT_TRUE(root->StopOnLoadError());
  root->Childs().RemoveChild(0);
}

TEST(FieldNode, NameIsTrimmedAndHoldsNoBlank) {
  const Ref<Field> field = Field::Create();
  field->SetName("  abc ");
  EXPECT_EQ(field->Name(), "abc");
  EXPECT_EQ(Raised([&] { field->SetName("a b"); }), kNameRefused);
  EXPECT_EQ(field->Name(), "abc");
}

TEST(FieldNode, ValueIsKeptEscapedAndReadUnescaped) {
  struct Row {
    const char* set;
    const char* kept;
    const char* read;
  };
  for (const Row& row : std::vector<Row>{{"a<b>c", "a&lt;b&gt;c", "a<b>c"},
                                         {"&lt;", "&lt;", "<"},
                                         {"&gt;&lt;", "&gt;&lt;", "><"},
                                         {"a & b", "a & b", "a & b"},
                                         {"&amp;lt;", "&amp;lt;", "&amp;lt;"},
                                         {"&&lt;lt;", "&&lt;lt;", "&<lt;"},
                                         {"&lt", "&lt", "&lt"},
                                         {"", "", ""}}) {
    const Ref<Field> field = Field::Create();
    field->SetValue(row.set);
    EXPECT_EQ(field->EscapedValueView(), row.kept) << row.set;
    EXPECT_EQ(field->Value(), row.read) << row.set;
  }
}

TEST(FieldNode, CipherHooksAreStoredAndChangeNoValue) {
  const Ref<Field> field = Field::Create();
  EXPECT_EQ(field->EncodePassword(), "");
  EXPECT_EQ(field->CryptType(), 0);
  field->SetEncodePassword("p");
  field->SetCryptType(5);
  field->SetValue("plain");
  EXPECT_EQ(field->EncodePassword(), "p");
  EXPECT_EQ(field->CryptType(), 5);
  EXPECT_EQ(field->Value(), "plain");
}

TEST(ParameterNode, NameIsCheckedAndValueKeptAsGiven) {
  const Ref<Parameter> parameter = Parameter::Create();
  parameter->SetName(" x ");
  EXPECT_EQ(parameter->Name(), "x");
  EXPECT_EQ(Raised([&] { parameter->SetName("x y"); }), kNameRefused);
  EXPECT_EQ(parameter->Name(), "x");
  parameter->SetValue(" a<b>\"&lt; ");
  EXPECT_EQ(parameter->Value(), " a<b>\"&lt; ");
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

TEST(Lists, ARefusedNameLeavesTheListAsItWas) {
  const Ref<Document> document = Imported("<r x=\"1\"><a/><g><b/></g></r>");
  EXPECT_EQ(Raised([&] { document->Fields().AddField("a b", "1"); }), kNameRefused);
  EXPECT_EQ(Raised([&] { document->Parameters().AddParameter("a b", "1"); }), kNameRefused);
  EXPECT_EQ(Raised([&] { document->Childs().AddChild("a b"); }), kDocumentNameRefused);
  EXPECT_EQ(Raised([&] { document->Childs().AddChild("a b", 0); }), kDocumentNameRefused);
  EXPECT_EQ(TreeText(*document), "r(x=1){a=|g{b=}}");
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

TEST(ChildList, AddChildAtTheEndOrBeforeAnIndex) {
  const Ref<Document> document = Document::Create();
  Documents& childs = document->Childs();
  EXPECT_EQ(childs.AddChild("a"), 0);
  EXPECT_EQ(childs.AddChild(" b ", -1), 1);
  EXPECT_EQ(childs.AddChild("c", -7), 2);
  EXPECT_EQ(childs.AddChild("d", 0), 0);
  EXPECT_EQ(childs.AddChild("e", 2), 2);
  EXPECT_EQ(childs.AddChild("f", 5), 5);
  EXPECT_EQ(childs.AddChild("g", 99), 6);
  EXPECT_EQ(TreeText(*document), "{|d{}|a{}|e{}|b{}|c{}|f{}|g{}}");
}

TEST(ChildList, LooksUpByIndexNameAndCondition) {
  const Ref<Document> document =
      Imported("<r><g id=\"1\"><f/></g><G id=\"2\"><f/></G><h><f/></h></r>");
  const Documents& childs = document->Childs();
  EXPECT_EQ(childs.Child(0)->Name(), "g");
  EXPECT_EQ(childs.Child("g")->Name(), "G");
  EXPECT_EQ(childs.Child("g@id=1")->Name(), "g");
  EXPECT_EQ(childs.Child("H")->Name(), "h");
  EXPECT_EQ(childs.Child("missing")->Name(), "");
  EXPECT_EQ(childs.Child(3)->Name(), "");
  EXPECT_EQ(childs.Child(-1)->Name(), "");
  EXPECT_EQ(childs.Count(), 3);
}

TEST(ChildList, SearchChildComparesAsAskedAndTakesTheLast) {
  const Ref<Document> document = WithChilds({"a", "A", "b", "a"});
  document->Childs().Child(0)->Fields().AddField("first");
  EXPECT_EQ(document->Childs().SearchChild2("a"), 3);
  EXPECT_EQ(document->Childs().SearchChild2("A"), 1);
  EXPECT_EQ(document->Childs().SearchChild2("B"), -1);
  EXPECT_EQ(document->Childs().SearchChild2("B", true), 2);
  EXPECT_EQ(document->Childs().SearchChild("a"), document->Childs().Child(3));
  EXPECT_EQ(document->Childs().SearchChild("B")->Name(), "");
  EXPECT_EQ(document->Childs().SearchChild("B", true)->Name(), "b");
}

TEST(ChildList, RemovedAndReplacedNodesLiveOn) {
  Ref<Document> document = Imported("<r><a><f>1</f></a><b><f>2</f></b><c><f>3</f></c></r>");
  const Ref<Document> removed = document->Childs().RemoveChild("B");
  const Ref<Document> put = Imported("<n><f>9</f></n>");
  const Ref<Document> replaced = document->Childs().SetChild(0, put);
  EXPECT_EQ(TreeText(*document), "r{|n{f=9}|c{f=3}}");
  document = Ref<Document>();
  EXPECT_EQ(TreeText(*removed), "b{f=2}");
  EXPECT_EQ(TreeText(*replaced), "a{f=1}");
  EXPECT_EQ(TreeText(*put), "n{f=9}");
}

TEST(ChildList, OutsideTheListNothingChanges) {
  const Ref<Document> document = WithChilds({"a"});
  const Ref<Document> node = Document::Create();
  for (const int outside : {-1, 1, 99}) {
    EXPECT_EQ(document->Childs().RemoveChild(outside)->Name(), "");
    EXPECT_EQ(document->Childs().SetChild(outside, node)->Name(), "");
  }
  EXPECT_EQ(document->Childs().SetChild(0, nullptr)->Name(), "");
  EXPECT_EQ(document->Childs().RemoveChild("b")->Name(), "");
  EXPECT_EQ(TreeText(*document), "{|a{}}");
}

TEST(ChildList, SortsByNameByteForByteAndStably) {
  const Ref<Document> document = WithChilds({"b", "A", "a", "B", "\xE9", "a"});
  document->Childs().Child(2)->Fields().AddField("one");
  document->Sort(true);
  EXPECT_EQ(TreeText(*document), "{|A{}|B{}|a{one=}|a{}|b{}|\xE9{}}");
  document->Sort(false);
  EXPECT_EQ(TreeText(*document), "{|\xE9{}|b{}|a{one=}|a{}|B{}|A{}}");
}

TEST(ChildList, OfManyEqualNamesKeepsThemInOrder) {
  const Ref<Document> document = Document::Create();
  for (int i = 0; i < 100; ++i) {
    const int index = document->Childs().AddChild(i % 2 == 0 ? "b" : "a");
    document->Childs().Child(index)->SetVersion(std::to_string(i));
  }
  for (const bool ascending : {true, false}) {
    document->Sort(ascending);
    for (int i = 0; i < 100; ++i) {
      const bool isB = (i < 50) != ascending;
      const int number = i % 50 * 2 + (isB ? 0 : 1);
      EXPECT_EQ(document->Childs().Child(i)->Version(), std::to_string(number)) << i;
    }
  }
}

TEST(Keys, TakeOffQuotesOfOneKindAlone) {
  const Ref<Document> document = Imported("<r><f a=\"x\">bare</f><g/><h/></r>");
  document->Fields().Field("g")->Parameters().AddParameter("a", "'x\"");
  document->Fields().Field("h")->Parameters().AddParameter("a", "\"x'");
  document->Fields().Field("g")->SetValue("single first");
  document->Fields().Field("h")->SetValue("double first");
  const std::pair<const char*, const char*> cases[] = {
      {"@a='x'", "bare"},
      {"@a=\"x\"", "bare"},
      {"@a='x\"", "single first"},
      {"@a=\"x'", "double first"},
      {"@a=\"'x\"\"", "single first"},
      {"@a='\"x''", "double first"},
  };
  for (const auto& [key, value] : cases) {
    EXPECT_EQ(document->Fields().Field(key)->Value(), value) << key;
  }
}

TEST(Keys, EndAStepNotWithinQuotesOfTheOtherKind) {
  const Ref<Document> root = Imported("<r><m a=\"it's.2\"><n><f>1</f></n></m></r>");
  root->Childs().AddChild("o");
  const Ref<Document> o = root->Childs().Child("o");
  o->Parameters().AddParameter("a", "1\".2");
  o->Childs().AddChild("n");
  o->Childs().Child("n")->Fields().AddField("f", "2");
  EXPECT_EQ(TreeText(*root->SelectSingleNode("m@a=\"it's.2\".n")), "n{f=1}");
  EXPECT_EQ(TreeText(*root->SelectSingleNode("o@a='1\".2'.n")), "n{f=2}");
}

TEST(ParameterList, AddsLooksUpAndRemoves) {
  const Ref<Document> document = Imported("<r><f Min=\"1\" Max=\"2\" min=\"3\"/></r>");
  Parameters& parameters = document->Fields().Field(0)->Parameters();
  EXPECT_EQ(parameters.Count(), 3);
  EXPECT_EQ(parameters.Parameter(0)->Value(), "1");
  EXPECT_EQ(parameters.Parameter("MIN")->Value(), "3");
  EXPECT_EQ(parameters.Parameter("max")->Value(), "2");
  EXPECT_EQ(parameters.AddParameter(" New ", "4"), 3);
  EXPECT_EQ(parameters.Parameter("new")->Name(), "New");
  const Ref<Parameter> removed = parameters.RemoveParameter(0);
  EXPECT_EQ(removed->Value(), "1");
  EXPECT_EQ(parameters.RemoveParameter("Max")->Value(), "2");
  EXPECT_EQ(TreeText(*document), "r{f(min=3;New=4)=}");
  for (const int outside : {-1, 2}) {
    EXPECT_EQ(parameters.Parameter(outside)->Name(), "");
    EXPECT_EQ(parameters.RemoveParameter(outside)->Name(), "");
  }
  EXPECT_EQ(parameters.Parameter("Max")->Name(), "");
  EXPECT_EQ(parameters.RemoveParameter("Max")->Name(), "");
  EXPECT_EQ(parameters.Count(), 2);
}

TEST(ParameterList, AnImportedAttributeIsOneObjectForAll) {
  const Ref<Document> document = Imported("<r><f Min=\"1\"/></r>");
  const Ref<Parameter> held = document->Fields().Field(0)->Parameters().Parameter("Min");
  held->SetValue("7");
  EXPECT_EQ(document->Fields().Field(0)->Parameters().Parameter(0)->Value(), "7");
  document->Fields().RemoveField(0);
  EXPECT_EQ(held->Value(), "7");
}

TEST(Paths, WalkDownOneStepAtATime) {
  const Ref<Document> root = Imported(
      "<r><a id=\"1\"><b k=\"x.y\"><f>1</f></b></a><a id=\"2\"><b "
      "k=\"z\"><c><f>2</f></c></b></a></r>");
  const std::vector<std::pair<const char*, const char*>> rows{
      {"", "r{|a(id=1){|b(k=x.y){f=1}}|a(id=2){|b(k=z){|c{f=2}}}}"},
      {"a", "a(id=2){|b(k=z){|c{f=2}}}"},
      {"A.B.C", "c{f=2}"},
      {"a@id=1.b", "b(k=x.y){f=1}"},
      {"a.@id=1.b", "b(k=x.y){f=1}"},
      {"a@id='1'.b@k=\"x.y\"", "b(k=x.y){f=1}"},
      {"a.@id=2.b.@k='z'.c", "c{f=2}"},
      {"a@id=3", "{}"},
      {"a@id=1.b.c", "{}"},
      {"missing.b", "{}"},
      {"a.", "{}"},
      {".a", "{}"},
      {"r", "{}"},
  };
  for (const auto& [path, tree] : rows) {
    EXPECT_EQ(TreeText(*root->SelectSingleNode(path)), tree) << path;
  }
  EXPECT_EQ(root->SelectSingleNode(""), root);
  EXPECT_EQ(root->SelectSingleNode("a.b.c"), root->SelectSingleNode("a.b.c"));
}

TEST(Paths, AChildIsFoundByAPathWhereNoNameMatches) {
  const Ref<Document> root = Imported(
      "<r><a id=\"1\"><b k=\"x.y\"><f>1</f></b></a><a id=\"2\"><b><f>2</f></b></a>"
      "<a.b><f>3</f></a.b></r>");
  const std::vector<std::pair<const char*, const char*>> rows{
      {"A.b", "a.b{f=3}"},  // A name goes before a path.
      {"a@id=1.b", "b(k=x.y){f=1}"},
      {"a.@id=2.b", "b{f=2}"},
      {"a.@id=1.b@k=\"x.y\"", "b(k=x.y){f=1}"},
      {"a.@id=1", "a(id=1){|b(k=x.y){f=1}}"},
      {"a@id='x.y'", "{}"},
      {"a.c", "{}"},
      {"a.b.c", "{}"},
      {"a.", "{}"},
      {".", "{}"},
      {"", "{}"},
  };
  for (const auto& [key, tree] : rows) {
    EXPECT_EQ(TreeText(*root->Childs().Child(key)), tree) << key;
  }
  root->Childs().Child("a.c")->SetName("stray");
  EXPECT_EQ(root->Childs().Child("a")->Childs().Count(), 1);
  EXPECT_EQ(root->Childs().RemoveChild("a@id=1.b")->Name(), "");
  EXPECT_EQ(root->Childs().Count(), 3);
}

TEST(Paths, WhatIsNotFoundBelongsToNoTree) {
  const Ref<Document> root = WithChilds({"a"});
  root->SelectSingleNode("b")->SetName("stray");
  EXPECT_EQ(TreeText(*root), "{|a{}}");
}

}  // namespace
}  // namespace tarvo
