// What the writer makes of a tree, byte for byte.
#include <gtest/gtest.h>

#include "tree_text.h"
#include "xmldoc/document.h"
#include "xmldoc/text/tree_writer.h"

namespace tarvo {
namespace {

const std::string kDeclaration =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" application=\"Tarvo Launcher\"?>\r\n";

Ref<Document> Named(const char* name) {
  Ref<Document> document = Document::Create();
  document->SetName(name);
  return document;
}

TEST(Writer, WritesFieldsThenChildrenIndentedByTabs) {
  const Ref<Document> root = Named("Randomize");
  root->Parameters().AddParameter("a", "1");
  root->Fields().AddField("rate", "5");
  root->Fields().Field(0)->Parameters().AddParameter("min", "1");
  root->Childs().AddChild("entry");
  root->Childs().Child(0)->Fields().AddField("x");
  EXPECT_EQ(root->XMLExport(), kDeclaration +
                                   "<Randomize a=\"1\">\r\n"
                                   "\t<rate min=\"1\">5</rate>\r\n"
                                   "\t<entry>\r\n"
                                   "\t\t<x/>\r\n"
                                   "\t</entry>\r\n"
                                   "</Randomize>\r\n");
}

TEST(Writer, ANewDocumentIsTheEmptyTextAndNamedXmlOnTheWay) {
  const Ref<Document> root = Document::Create();
  EXPECT_EQ(root->XMLExport(), "");
  EXPECT_EQ(root->Name(), "xml");
  EXPECT_EQ(root->XMLExport(), "");
}

TEST(Writer, ARootWithoutContentHasNoDeclaration) {
  EXPECT_EQ(Named("a")->XMLExport(), "<a/>\r\n");
  const Ref<Document> withAttribute = Document::Create();
  withAttribute->Parameters().AddParameter("x", "1");
  EXPECT_EQ(withAttribute->XMLExport(), "<xml x=\"1\"/>\r\n");
}

// Beyond a thousand levels a text is measured before it is written.
TEST(Writer, WritesAThousandLevelsLikeAFew) {
  for (const std::size_t levels : {998U, 999U, 1000U, 1001U, 1200U}) {
    const Ref<Document> root = Named("n");
    Ref<Document> node = root;
    std::string opened;
    std::string closed;
    for (std::size_t depth = 0; depth < levels; ++depth) {
      const std::string tabs(depth, '\t');
      opened += tabs + "<n>\r\n";
      closed.insert(0, tabs + "</n>\r\n");
      node->Childs().AddChild("n");
      node = node->Childs().Child(0);
    }
    const std::string text =
        kDeclaration + opened + std::string(levels, '\t') + "<n/>\r\n" + closed;
    EXPECT_TRUE(root->XMLExport() == text) << levels;
    EXPECT_TRUE(root->XMLExport() == text) << levels << " once more";
  }
}

TEST(Writer, AChildNamedXmlWithoutContentIsWritten) {
  const Ref<Document> root = Named("r");
  root->Childs().AddChild("xml");
  EXPECT_EQ(root->XMLExport(), kDeclaration + "<r>\r\n\t<xml/>\r\n</r>\r\n");
}

TEST(Writer, AnUnnamedRootWithContentIsNamedXmlForGood) {
  const Ref<Document> root = Document::Create();
  root->Fields().AddField("a", "1");
  EXPECT_EQ(root->XMLExport(), kDeclaration + "<xml>\r\n\t<a>1</a>\r\n</xml>\r\n");
  EXPECT_EQ(root->Name(), "xml");
}

TEST(Writer, ValuesAreEscapedAndAttributesAreNot) {
  const Ref<Document> root = Named("r");
  root->Fields().AddField("a", "a<b");
  root->Fields().AddField("b", "&lt; > & &amp; \"");
  root->Fields().AddField("c", "");
  root->Fields().Field(2)->Parameters().AddParameter("q", "a\"<>&\"");
  EXPECT_EQ(root->XMLExport(), kDeclaration +
                                   "<r>\r\n"
                                   "\t<a>a&lt;b</a>\r\n"
                                   "\t<b>&lt; &gt; & &amp; \"</b>\r\n"
                                   "\t<c q=\"a\"<>&\"\"/>\r\n"
                                   "</r>\r\n");
}

TEST(Writer, DeclarationTakesTheStoredVersionAndEncoding) {
  const Ref<Document> root = Named("r");
  root->Fields().AddField("a");
  root->SetVersion("2");
  root->SetEncoding("UTF-8");
  EXPECT_EQ(root->XMLExport(),
            "<?xml version=\"2\" encoding=\"UTF-8\" application=\"Tarvo Launcher\"?>\r\n"
            "<r>\r\n\t<a/>\r\n</r>\r\n");
}

TEST(Writer, AnUnnamedChildIsLeftOutWithAllItHolds) {
  const Ref<Document> root = Named("r");
  root->Childs().AddChild("");
  root->Childs().Child(0)->Fields().AddField("lost", "1");
  root->Childs().Child(0)->Childs().AddChild("lost");
  EXPECT_EQ(root->XMLExport(), kDeclaration + "<r>\r\n</r>\r\n");
}

TEST(Writer, AnUnnamedFieldIsWritten) {
  const Ref<Document> root = Named("r");
  root->Fields().AddField("", "1");
  EXPECT_EQ(root->XMLExport(), kDeclaration + "<r>\r\n\t<>1</>\r\n</r>\r\n");
}

TEST(Writer, ANodeWithinItselfIsWrittenOnce) {
  const Ref<Document> root = Named("r");
  root->Fields().AddField("a", "1");
  root->Childs().AddChild("x");
  root->Childs().SetChild(0, root);
  EXPECT_EQ(root->XMLExport(), kDeclaration + "<r>\r\n\t<a>1</a>\r\n</r>\r\n");
  root->Childs().RemoveChild(0);
}

TEST(Writer, AnyCircleEnds) {
  const Ref<Document> root = Named("r");
  const Ref<Document> middle = Named("m");
  const Ref<Document> inner = Named("i");
  root->Childs().AddChild("x");
  root->Childs().SetChild(0, middle);
  middle->Childs().AddChild("x");
  middle->Childs().SetChild(0, inner);
  inner->Childs().AddChild("x");
  inner->Childs().SetChild(0, middle);
  EXPECT_EQ(root->XMLExport(),
            kDeclaration + "<r>\r\n\t<m>\r\n\t\t<i>\r\n\t\t</i>\r\n\t</m>\r\n</r>\r\n");
  EXPECT_FALSE(root->Busy() || middle->Busy() || inner->Busy());
  inner->Childs().RemoveChild(0);
}

TEST(Writer, ANodeInTwoPlacesIsWrittenTwice) {
  const Ref<Document> root = Named("r");
  const Ref<Document> shared = Named("s");
  shared->Fields().AddField("a", "1");
  for (const int index : {0, 1}) {
    root->Childs().AddChild("x");
    root->Childs().SetChild(index, shared);
  }
  EXPECT_EQ(TreeText(*Imported(root->XMLExport())), "r{|s{a=1}|s{a=1}}");
}

/// Looks at the nodes' Busy while they are being written.
class BusyWatch {
 public:
  explicit BusyWatch(Ref<Document> root) : root_(std::move(root)) {}
  void AddToString(std::string_view text) {
    if (text == "inside") insideSeen = root_->Busy() && root_->Childs().Child(0)->Busy();
    if (text == "behind") behindSeen = root_->Busy() && !root_->Childs().Child(0)->Busy();
  }
  bool insideSeen = false;
  bool behindSeen = false;

 private:
  Ref<Document> root_;
};

TEST(Writer, BusyIsSetWhileANodeIsBeingWrittenAndNotAfter) {
  const Ref<Document> root = Imported("<r><g><f>inside</f></g><h><f>behind</f></h></r>");
  EXPECT_FALSE(root->Busy());
  BusyWatch watch(root);
  TreeWriter(watch).Write(*root);
  EXPECT_TRUE(watch.insideSeen);
  EXPECT_TRUE(watch.behindSeen);
  EXPECT_FALSE(root->Busy());
  EXPECT_FALSE(root->Childs().Child(0)->Busy());
}

TEST(Writer, AttributesThatWereTouchedAreWrittenAsTheyAre) {
  const Ref<Document> root = Imported("<r><f a='1'  b=2/><g c=\"3\"/></r>");
  root->Fields().Field(0)->Parameters().Parameter("b")->SetValue("9");
  EXPECT_EQ(root->XMLExport(),
            kDeclaration + "<r>\r\n\t<f a=\"1'\" b=\"9\"/>\r\n\t<g c=\"3\"/>\r\n</r>\r\n");
}

/// The two files that the program keeps.
const std::string kRandomizeXml = kDeclaration +
                                  "<Randomize>\r\n"
                                  "\t<base_exp_rate Min=\"100\" Max=\"300\"/>\r\n"
                                  "\t<job_exp_rate Min=\"100\" Max=\"250\"/>\r\n"
                                  "</Randomize>\r\n";
const std::string kCalendarXml = kDeclaration +
                                 "<Calendar>\r\n"
                                 "\t<Mon_08:30 Restart=\"Yes\"/>\r\n"
                                 "\t<Fri_22:00 Restart=\"No\"/>\r\n"
                                 "</Calendar>\r\n";

TEST(ProgramFiles, RandomizeXmlIsReadAndWrittenByteForByte) {
  const Ref<Document> randomize = Document::Create();
  ASSERT_TRUE(randomize->XMLImport(kRandomizeXml));
  EXPECT_EQ(TreeText(*randomize),
            "Randomize{base_exp_rate(Min=100;Max=300)=,job_exp_rate(Min=100;Max=250)=}");
  EXPECT_EQ(randomize->XMLExport(), kRandomizeXml);

  const Ref<Document> built = Named("Randomize");
  for (const auto& [name, max] : {std::pair("base_exp_rate", "300"), {"job_exp_rate", "250"}}) {
    const int index = built->Fields().AddField(name, "");
    built->Fields().Field(index)->Parameters().AddParameter("Min", "100");
    built->Fields().Field(index)->Parameters().AddParameter("Max", max);
  }
  EXPECT_EQ(built->XMLExport(), kRandomizeXml);
}

TEST(ProgramFiles, CalendarXmlIsReadAndWrittenByteForByte) {
  const Ref<Document> calendar = Document::Create();
  calendar->SetStopOnLoadError(true);
  ASSERT_TRUE(calendar->XMLImport(kCalendarXml));
  EXPECT_EQ(TreeText(*calendar), "Calendar{Mon_08:30(Restart=Yes)=,Fri_22:00(Restart=No)=}");
  EXPECT_EQ(calendar->XMLExport(), kCalendarXml);
}

TEST(ProgramFiles, NameTheUnnamedChildTheyAreReadInto) {
  const Ref<Document> all = Document::Create();
  const Ref<Document> randomize = all->Childs().Child(all->Childs().AddChild(""));
  ASSERT_TRUE(randomize->XMLImport(kRandomizeXml));
  EXPECT_EQ(all->Childs().Child("Randomize"), randomize);
  EXPECT_EQ(randomize->Fields().Count(), 2);
  EXPECT_EQ(randomize->XMLExport(), kRandomizeXml);
}

TEST(ProgramFiles, BecomeAChildOfANodeThatHasANameAlready) {
  const Ref<Document> calendar = Named("Calendar");
  ASSERT_TRUE(calendar->XMLImport(kCalendarXml));
  EXPECT_EQ(calendar->Fields().Count(), 0);
  EXPECT_EQ(calendar->Childs().Child(0)->Name(), "Calendar");
}

TEST(Writer, FillsNoMoreForADocumentThatWasEmptied) {
  std::string text = "<r>";
  while (text.size() < 8'000'000) text += "<f>a value of some length</f>";
  const Ref<Document> document = Document::Create();
  document->XMLImport(text + "</r>");
  EXPECT_GT(document->XMLExport().size(), text.size());
  while (document->Fields().Count() > 3)
    document->Fields().RemoveField(document->Fields().Count() - 1);
  const std::string exported = document->XMLExport();
  EXPECT_LT(exported.size(), 300U);
  EXPECT_LT(exported.capacity(), 1'000'000U) << "as much as the long one was filled";
}

}  // namespace
}  // namespace tarvo
