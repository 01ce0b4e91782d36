// The nodes of the document model: names and values.
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

TEST(Lists, ARefusedNameLeavesTheListAsItWas) {
  const Ref<Document> document = Imported("<r x=\"1\"><a/><g><b/></g></r>");
  EXPECT_EQ(Raised([&] { document->Fields().AddField("a b", "1"); }), kNameRefused);
  EXPECT_EQ(Raised([&] { document->Parameters().AddParameter("a b", "1"); }), kNameRefused);
  EXPECT_EQ(Raised([&] { document->Childs().AddChild("a b"); }), kDocumentNameRefused);
  EXPECT_EQ(Raised([&] { document->Childs().AddChild("a b", 0); }), kDocumentNameRefused);
  EXPECT_EQ(TreeText(*document), "r(x=1){a=|g{b=}}");
}

}  // namespace
}  // namespace tarvo
