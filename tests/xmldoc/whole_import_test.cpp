// Trees that an import has made: they go as a whole only when nobody holds or has changed a node.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "allocated_bytes.h"
#include "tree_text.h"
#include "xmldoc/document.h"

namespace tarvo {
namespace {

constexpr const char* kText =
    "<r><f a=\"1\">top</f><e/><g k=\"v\"><x b=\"2\">inner</x><y/><h><z>deep</z></h><i><z/></i></g>"
    "<j><z/></j></r>";

/// How a node is held when the tree goes, and how it looks then.
struct Holding {
  const char* what;
  std::function<Ref<Document>(Document& root)> take;
  const char* tree;
};

Ref<Document> InADocument(const Ref<Field>& field) {
  Ref<Document> other = Document::Create();
  other->Fields().Append(field);
  return other;
}

const Holding kHoldings[] = {
    {"nothing", [](Document&) { return Document::Create(); }, "{}"},
    {"a child", [](Document& root) { return root.Childs().Child("g"); },
     "g(k=v){x(b=2)=inner,y=|h{z=deep}|i{z=}}"},
    {"a grandchild", [](Document& root) { return root.SelectSingleNode("g.h"); }, "h{z=deep}"},
    {"a child taken out", [](Document& root) { return root.Childs().RemoveChild("j"); }, "j{z=}"},
    {"a grandchild taken out",
     [](Document& root) { return root.Childs().Child("g")->Childs().RemoveChild(0); }, "h{z=deep}"},
    {"a child replaced",
     [](Document& root) { return root.Childs().SetChild(0, Document::Create()); },
     "g(k=v){x(b=2)=inner,y=|h{z=deep}|i{z=}}"},
    {"a field, and another one in its place",
     [](Document& root) {
       Ref<Document> other = InADocument(root.Fields().RemoveField("f"));
       root.Fields().AddField("new");
       return other;
     },
     "{f(a=1)=top}"},
    {"an inner field",
     [](Document& root) { return InADocument(root.Childs().Child("g")->Fields().Field("x")); },
     "{x(b=2)=inner}"},
    {"a field and a stranger beside it",
     [](Document& root) {
       Ref<Document> other = InADocument(root.Fields().Field("e"));
       other->Fields().AddField("new");
       other->Fields().AddField("newer");
       other->Childs().Append(root.SelectSingleNode("g.i"));
       return other;
     },
     "{e=,new=,newer=|i{z=}}"},
    {"all that the root holds",
     [](Document& root) {
       Ref<Document> other = Document::Create();
       for (Field* field : root.Fields().Nodes()) other->Fields().Append(Ref<Field>(field));
       for (Document* child : root.Childs().Nodes()) other->Childs().Append(Ref<Document>(child));
       return other;
     },
     "{f(a=1)=top,e=|g(k=v){x(b=2)=inner,y=|h{z=deep}|i{z=}}|j{z=}}"},
    {"all of it, moved",
     [](Document& root) {
       Ref<Document> other = Document::Create();
       while (root.Fields().Count() > 0) other->Fields().Append(root.Fields().RemoveField(0));
       while (root.Childs().Count() > 0) other->Childs().Append(root.Childs().RemoveChild(0));
       return other;
     },
     "{f(a=1)=top,e=|g(k=v){x(b=2)=inner,y=|h{z=deep}|i{z=}}|j{z=}}"},
    {"what a search has found",
     [](Document& root) {
       Ref<Document> other = Document::Create();
       const Documents found = root.GetChilds("");
       for (Document* one : found.Nodes()) other->Childs().Append(Ref<Document>(one));
       return other;
     },
     "{|g(k=v){x(b=2)=inner,y=|h{z=deep}|i{z=}}|j{z=}}"},
    {"a reference that has been one of two",
     [](Document& root) {
       const Ref<Document> first = root.Childs().Child("j");
       return Ref<Document>(first);
     },
     "j{z=}"},
};

/// Changes that leave memory behind unless each of them is seen.
const std::function<void(Document& root)> kOwnMemory[] = {
    [](Document& root) { root.Childs().Child("j")->SetName(std::string(100, 'n')); },
    [](Document& root) { root.Fields().Field("f")->SetName(std::string(100, 'n')); },
    [](Document& root) {
      root.SelectSingleNode("g.h")->Fields().Field(0)->SetValue("long enough");
    },
    [](Document& root) { root.SelectSingleNode("g.h")->SetVersion(std::string(100, 'v')); },
    [](Document& root) { root.Fields().Field("f")->SetEncodePassword(std::string(100, 'p')); },
    [](Document& root) { root.Fields().Field("f")->Parameters().Parameter("a"); },
    [](Document& root) { root.Fields().Field("e")->Parameters().AddParameter("a", "1"); },
    [](Document& root) { root.Childs().Child("j")->Parameters().AddParameter("a", "1"); },
    [](Document& root) { root.Childs().Child("j")->Childs().AddChild("new"); },
    [](Document& root) { root.Childs().Child("g")->Childs().AddChild("new", 0); },
    [](Document& root) { root.Childs().Child("g")->Fields().AddField("new"); },
    [](Document& root) { root.SelectSingleNode("g.h")->Fields().AddField("new"); },
    [](Document& root) { root.Childs().Child("g")->Childs().SetChild(0, Document::Create()); },
    [](Document& root) { root.Childs().Child("g")->Childs().RemoveChild(0); },
    [](Document& root) { root.Childs().Child("j")->Fields().RemoveField(0); },
    [](Document& root) { root.Fields().AddField("new"); },
    [](Document& root) { root.Childs().RemoveChild(0); },
    [](Document& root) {
      root.Childs().RemoveChild(0);
      root.Childs().AddChild("new");
    },
    [](Document& root) { root.Childs().SetChild(0, Imported(kText)); },
    [](Document& root) { root.Childs().Child("j")->SetCryptType(7); },
    [](Document& root) { root.XMLImport(kText); },
    [](Document& root) { root.Childs().Child("g")->XMLImport(kText); },
    [](Document& root) { root.Childs().Child("g")->Sort(false); },
    [](Document& root) { root.GetChilds("j=j"); },
};

TEST(WholeImport, LeavesWhatSomebodyHolds) {
  for (const Holding& holding : kHoldings) {
    Ref<Document> root = Imported(kText);
    const Ref<Document> held = holding.take(*root);
    root = Ref<Document>();
    EXPECT_EQ(TreeText(*held), holding.tree) << holding.what;
  }
}

TEST(WholeImport, GivesEverythingBackHoweverItWasHeld) {
  std::size_t before = 0;
  for (int round = 0; round < 60; ++round) {
    if (round == 10) before = AllocatedBytes();
    for (const Holding& holding : kHoldings) holding.take(*Imported(kText));
    for (const auto& change : kOwnMemory) change(*Imported(kText));
  }
  EXPECT_LT(AllocatedBytes(), before + 50 * 16);
}

TEST(WholeImport, HoldsListsAndTextsThatAreTooLargeForAChunk) {
  std::string text = "<r><list>";
  for (int i = 0; i < 3000; ++i) text += "<g><f/></g>";
  text += "<long>" + std::string(100000, 'x') + "</long></list></r>";
  Ref<Document> root = Imported(text);
  Ref<Document> list = root->Childs().Child(0);
  EXPECT_EQ(list->Childs().Count(), 3000);
  list->Childs().AddChild("new");
  list->Childs().RemoveChild(0);
  root = Ref<Document>();
  EXPECT_EQ(list->Fields().Field("long")->Value().size(), 100000U);
  EXPECT_EQ(list->Childs().Child(2999)->Name(), "new");
}

/// Whoever holds which nodes, and whatever has been done to them, they stay as long as that.
TEST(WholeImport, BearsAnyOrderOfHoldingMovingAndDropping) {
  std::mt19937 random(7);
  const auto below = [&random](std::size_t end) {
    return static_cast<int>(random() % std::max<std::size_t>(end, 1));
  };
  for (int story = 0; story < 300; ++story) {
    std::vector<Ref<Document>> nodes{Imported(kText), Imported(kText)};
    std::vector<Ref<Field>> fields;
    for (int step = 0; step < 40; ++step) {
      Document& node = *nodes[static_cast<std::size_t>(below(nodes.size()))];
      const int child = below(static_cast<std::size_t>(node.Childs().Count()));
      const int field = below(static_cast<std::size_t>(node.Fields().Count()));
      switch (below(13)) {
        case 0:
          nodes.push_back(Imported(kText));
          break;
        case 1:
          nodes.push_back(node.Childs().Child(child));
          break;
        case 2:
          nodes.push_back(node.Childs().RemoveChild(child));
          break;
        case 3:
          fields.push_back(node.Fields().Field(field));
          break;
        case 4:
          fields.push_back(node.Fields().RemoveField(field));
          break;
        case 5:
          if (!fields.empty()) node.Fields().Append(fields.back());
          break;
        case 6:
          if (!fields.empty()) fields.pop_back();
          break;
        case 7:
          if (!fields.empty()) fields.back()->SetValue("changed to something long");
          break;
        case 8:
          node.Childs().AddChild("new", child);
          break;
        case 9:
          node.XMLImport(kText);
          break;
        case 10:
          node.Parameters().Parameter(0)->SetValue("x");
          break;
        case 11:
          node.Childs().SetChild(child, Imported(kText));
          break;
        default:
          if (nodes.size() > 1) nodes.erase(nodes.begin() + below(nodes.size()));
          break;
      }
      std::size_t length = 0;
      for (const Ref<Document>& one : nodes) length += TreeText(*one).size();
      for (const Ref<Field>& one : fields) length += one->Value().size();
      ASSERT_GT(length, 0U);
    }
  }
}

}  // namespace
}  // namespace tarvo
