// The lists of child nodes and of attributes.
#include <gtest/gtest.h>

#include <string>

#include "tree_text.h"
#include "xmldoc/document.h"

namespace tarvo {
namespace {

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

}  // namespace
}  // namespace tarvo
