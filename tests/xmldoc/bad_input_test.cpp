// Every truncation of a corpus, every change of one byte in a small document, and what memory they
// take.
#include <gtest/gtest.h>

#include <dirent.h>

#include <algorithm>

#include "allocated_bytes.h"
#include "tree_text.h"
#include "xmldoc/document.h"
#include "xmldoc/tool/stdio_file_reader.h"

namespace tarvo {
namespace {

std::vector<std::pair<std::string, std::string>> Corpus() {
  std::vector<std::pair<std::string, std::string>> corpus;
  DIR* folder = opendir(TARVO_XML_CORPUS);
  if (folder == nullptr) return corpus;
  while (const dirent* entry = readdir(folder)) {
    const std::string name = entry->d_name;
    std::string text;
    const std::string path = std::string(TARVO_XML_CORPUS) + "/" + name;
    if (name.ends_with(".xml") && StdioFileReader().ReadText(path, text) == ReadResult::Ok) {
      corpus.emplace_back(name, text);
    }
  }
  closedir(folder);
  std::sort(corpus.begin(), corpus.end());
  return corpus;
}

/// What must hold for any text. Returns the nodes that it gave.
int CheckReading(const std::string& text) {
  const Ref<Document> tolerant = Document::Create();
  const bool result = tolerant->XMLImport(text);
  const Ref<Document> strict = Document::Create();
  strict->SetStopOnLoadError(true);
  const bool strictResult = strict->XMLImport(text);
  EXPECT_TRUE(result || !strictResult) << "strict accepts what tolerant refuses";
  EXPECT_EQ(TreeText(*tolerant), TreeText(*strict));
  const int nodes = CountNodes(*tolerant);
  // A node takes three bytes at least ("<>" with something behind), an attribute two.
  EXPECT_LE(nodes, 2 + static_cast<int>(text.size()) / 2);
  // What is written has four bytes at most for one that was read, and the indentation.
  const std::string written = tolerant->XMLExport();
  EXPECT_LE(written.size(), 200 + text.size() * 8 + text.size() * text.size());
  return nodes;
}

TEST(BadInput, EveryTruncationOfTheCorpusIsReadWithoutHarm) {
  const auto corpus = Corpus();
  ASSERT_GE(corpus.size(), 10u) << "no corpus at " TARVO_XML_CORPUS;
  for (const auto& [name, text] : corpus) {
    int before = 0;
    for (std::size_t length = 0; length <= text.size(); ++length) {
      SCOPED_TRACE(name + " cut to " + std::to_string(length));
      const int nodes = CheckReading(text.substr(0, length));
      // A leaf whose closing tag is cut reads as a child: one node as well.
      EXPECT_GE(nodes, before) << "more text gave less";
      before = nodes;
      if (HasFailure()) return;
    }
  }
}

TEST(BadInput, ATruncatedSoundDocumentPassesTolerantlyAndFailsStrictlyInsideATag) {
  const std::string text = "<r a=\"1\"><g b=\"2\"><f>x</f></g></r>";
  for (std::size_t length = 1; length < text.size(); ++length) {
    SCOPED_TRACE(text.substr(0, length));
    const Ref<Document> tolerant = Document::Create();
    EXPECT_TRUE(tolerant->XMLImport(text.substr(0, length)));
    const Ref<Document> strict = Document::Create();
    strict->SetStopOnLoadError(true);
    const bool result = strict->XMLImport(text.substr(0, length));
    const std::size_t open = text.rfind('<', length - 1);
    const bool insideTag = text.find('>', open) >= length;
    if (insideTag) {
      EXPECT_FALSE(result);
    }
  }
}

TEST(BadInput, EveryChangeOfOneByteIsReadWithoutHarm) {
  const std::string text =
      "<?xml version=\"1.0\"?>\r\n<r a='1' b=\"x y\">\r\n\t<f c=\"2\">v&lt;</f><!-- n "
      "--><g><h/></g></r>";
  for (std::size_t at = 0; at < text.size(); ++at) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string changed = text;
      changed[at] = static_cast<char>(byte);
      CheckReading(changed);
      ASSERT_FALSE(HasFailure()) << "byte " << at << " as " << byte;
    }
  }
}

TEST(BadInput, EveryRemovalAndDoublingOfOneByteIsReadWithoutHarm) {
  for (const auto& [name, text] : Corpus()) {
    for (std::size_t at = 0; at < text.size(); ++at) {
      std::string changed = text;
      CheckReading(changed.erase(at, 1));
      changed = text;
      CheckReading(changed.insert(at, 1, text[at]));
      ASSERT_FALSE(HasFailure()) << name << " at " << at;
    }
  }
}

TEST(BadInput, TakesNoMoreMemoryThanFiftyTimesItsText) {
  constexpr std::size_t kSize = 1 << 20;
  for (const char* piece : {"<a>", "<a/>", "<a></a>", "<a b=\"\"/>", "<", "<>", "</>", "<a ", "=\"",
                            "<!--", "<?", "&amp;", "\r\n", "<a\t>x"}) {
    std::string text = "<r>";
    while (text.size() < kSize) text += piece;
    const std::size_t before = AllocatedBytes();
    const Ref<Document> document = Document::Create();
    document->XMLImport(text);
    const std::size_t taken = AllocatedBytes() - before;
    EXPECT_LE(taken, 50 * text.size()) << piece;
  }
}

}  // namespace
}  // namespace tarvo
