// Keys with conditions, and paths of keys.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "tree_text.h"
#include "xmldoc/document.h"

namespace tarvo {
namespace {

TEST(Keys, TakeOffQuotesOfOneKindAlone) {
  const Ref<Document> document = Imported("<r><f a=\"x\">bare</f><g/><h/></r>");
  document->Fields().Field("g")->Parameters().AddParameter("a", "'x\"");
  document->Fields().Field("h")->Parameters().AddParameter("a", "\"x'");
  document->Fields().AddField("empty", "empty");
  document->Fields().Field("empty")->Parameters().AddParameter("a", "");
  document->Fields().AddField("quote", "quote");
  document->Fields().Field("quote")->Parameters().AddParameter("a", "'");
  document->Fields().Field("g")->SetValue("single first");
  document->Fields().Field("h")->SetValue("double first");
  const std::pair<const char*, const char*> cases[] = {
      {"@a=''", "empty"},
      {"@a=\"\"", "empty"},
      {"@a='", "quote"},
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

TEST(Keys, EndTheNameAtTheFirstAtAndTheAttributeAtTheFirstEquals) {
  const Ref<Document> root = Imported("<r><f m=\"a@b\">1</f><f q=\"x=y\">2</f></r>");
  EXPECT_EQ(root->Fields().Field("f@m=a@b")->Value(), "1");
  EXPECT_EQ(root->Fields().Field("f@q=x=y")->Value(), "2");
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
      {".@id=1", "a(id=1){|b(k=x.y){f=1}}"},
      {".@id=1.b", "b(k=x.y){f=1}"},
      {"@id=1.b", "b(k=x.y){f=1}"},
      {"a@id=1.@k='x.y'", "b(k=x.y){f=1}"},
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
