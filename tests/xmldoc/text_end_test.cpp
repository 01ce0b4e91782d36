// How a text ended: whole, or cut off somewhere within its root.
#include <gtest/gtest.h>

#include "fake_ports.h"
#include "xmldoc/document.h"

namespace tarvo {
namespace {

TextEnd EndOf(const std::string& text, bool strict = false) {
  const Ref<Document> document = Document::Create();
  document->SetStopOnLoadError(strict);
  TextEnd end = TextEnd::Whole;
  document->XMLImport(text, end);
  return end;
}

TEST(EndOfText, IsWholeOnceTheRootIsClosedWhateverFollows) {
  const std::string roots[] = {"<r><a x=\"1\"/></r>", "<r>\r\n\t<g>\r\n\t\t<a/>\r\n\t</g>\r\n</r>",
                               "<?xml version=\"1.0\"?>\r\n<!-- a --><r><a>1</a></r>",
                               "before <r><g><a/></other></r>", "<r><g x=\"1\"><a/></g><b/></r>"};
  const std::string tails[] = {"",
                               "\r\n",
                               " \r\n \t",
                               "x",
                               std::string(1, '\0'),
                               "\x1A",
                               "<!-- b -->",
                               "\r\n<!-- b -->\r\n",
                               "<!-- cut",
                               "<",
                               "<x",
                               "<x>",
                               "<x/>",
                               "</r>",
                               "<?php ?>",
                               "a < b > c",
                               "<!-- b -->junk"};
  for (const std::string& root : roots) {
    for (const std::string& tail : tails) {
      EXPECT_EQ(EndOf(root + tail), TextEnd::Whole) << root << " and " << tail;
      EXPECT_EQ(EndOf(root + tail, true), TextEnd::Whole) << root << " and " << tail;
    }
  }
}

TEST(EndOfText, OfNothingOrOfARootWithoutContentIsWhole) {
  for (const char* text :
       {"", " ", "\r\n", "\r\n \r\n", "<?xml version=\"1.0\"?>", "<?xml version=\"1.0\"?>\r\n \r\n",
        "<!-- a -->", "<r/>", "<r />\r\n", "<r x=\"1\"/>", "<r/>\r\n<!-- a -->", "<r></r>",
        "<r></r>x", "<r/>x", "<!-- a --><r/><!-- b -->\r\n"}) {
    EXPECT_EQ(EndOf(text), TextEnd::Whole) << '"' << text << '"';
  }
}

TEST(EndOfText, WithoutARootOrWithinItIsCutOff) {
  for (const char* text : {"words",
                           "<",
                           "<r",
                           "<r>",
                           "<r x=\"1",
                           "<r>words",
                           "<r><a/>",
                           "<r><a>",
                           "<r><a>1</a>",
                           "<r><a/></r",
                           "<r><g><a/></r>",
                           "<r><a/><!-- b -->",
                           "<r><a/><!-- b",
                           "<?xml",
                           "<!-- a",
                           "<?xml version=\"1.0\"?>words",
                           "<!-- a --><r",
                           "<a/><b/>",
                           "<a/><b",
                           "<a/><b/><c>",
                           "<r><g><a/></g></r><g><a/>",
                           "<r><a x=\"1\"></r>",
                           "</r>words",
                           "<r a b=\"1\"/><x>"}) {
    EXPECT_EQ(EndOf(text), TextEnd::CutOff) << '"' << text << '"';
    EXPECT_EQ(EndOf(text, true), TextEnd::CutOff) << '"' << text << '"';
  }
}

TEST(EndOfText, ATextThatTheWriterMadeIsWholeOnlyWithItsLastTag) {
  const Ref<Document> document = Document::Create();
  document->XMLImport("<r x='1'><a>1</a><b y='2'/><g><a/><h><b/></h></g><i z='3'/></r>");
  const std::string whole = document->XMLExport();
  const std::size_t declaration = whole.find("<r");
  for (std::size_t length = declaration + 1; length < whole.size(); ++length) {
    const bool closed = length >= whole.size() - 2;  // all but the last line's end
    EXPECT_EQ(EndOf(whole.substr(0, length)), closed ? TextEnd::Whole : TextEnd::CutOff) << length;
  }
}

TEST(EndOfText, AFaultThatStopsTheReadingCutsItOff) {
  EXPECT_EQ(EndOf("<r><a b c=\"1\"/></r>"), TextEnd::CutOff);
  EXPECT_EQ(EndOf("<r b c=\"1\"><a/></r>"), TextEnd::CutOff);
}

TEST(EndOfText, AFileThatIsNotThereHasNone) {
  FilesInMemory disk;
  RecordedLog log;
  const Ref<Document> document = Document::Create();
  TextEnd end = TextEnd::Whole;
  EXPECT_FALSE(document->XMLImportFile("x.xml", disk, log, end));
  EXPECT_EQ(end, TextEnd::CutOff);
  disk.files["x.xml"] = "<r><a/></r>";
  EXPECT_TRUE(document->XMLImportFile("x.xml", disk, log, end));
  EXPECT_EQ(end, TextEnd::Whole);
  disk.files["x.xml"] = "<r><a/>";
  EXPECT_TRUE(Document::Create()->XMLImportFile("x.xml", disk, log, end));
  EXPECT_EQ(end, TextEnd::CutOff);
}

}  // namespace
}  // namespace tarvo
