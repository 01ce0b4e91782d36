// Trees of 200,000 levels and lists of as many nodes, on a stack of 256 KB.
#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>

#include "support/runtime_error.h"
#include "xmldoc/document.h"
#include "xmldoc/text/tree_writer.h"
#include "xmldoc/tool/json_dump.h"

namespace tarvo {
namespace {

constexpr int kLevels = 200000;
constexpr std::size_t kSmallStack = 256 * 1024;

void* CallFunction(void* function) {
  (*static_cast<std::function<void()>*>(function))();
  return nullptr;
}

void OnASmallStack(std::function<void()> function) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kSmallStack), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, CallFunction, &function), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

std::string DeepText(int levels) {
  return Repeated("<a>", levels) + "<f>1</f>" + Repeated("</a>", levels);
}

Ref<Document> Deep(int levels) {
  Ref<Document> root = Document::Create();
  EXPECT_TRUE(root->XMLImport(DeepText(levels)));
  return root;
}

std::string DeepPath(int levels) { return Repeated("a.", levels - 2) + "a"; }

TEST(DeepTree, IsReadSearchedAndDestroyed) {
  OnASmallStack([] {
    Ref<Document> root = Deep(kLevels);
    Ref<Document> deepest = root->SelectSingleNode(DeepPath(kLevels));
    EXPECT_EQ(deepest->Fields().Field("f")->Value(), "1");
    EXPECT_EQ(root->SelectSingleNode(DeepPath(kLevels + 1))->Name(), "");
    root = Ref<Document>();
    EXPECT_EQ(deepest->Fields().Field("f")->Value(), "1");
  });
}

TEST(DeepTree, TakesStopOnLoadErrorToItsLastLevel) {
  OnASmallStack([] {
    const Ref<Document> root = Deep(kLevels);
    root->SetStopOnLoadError(true);
    EXPECT_TRUE(root->SelectSingleNode(DeepPath(kLevels))->StopOnLoadError());
  });
}

TEST(DeepTree, IsSortedAtEveryLevel) {
  OnASmallStack([] {
    const Ref<Document> root = Deep(kLevels);
    Ref<Document> node = root;
    while (node->Childs().Count() > 0) {
      node->Sort(true);
      node->Fields().Sort(false);
      node = node->Childs().Child(0);
    }
    EXPECT_EQ(node->Fields().Count(), 1);
  });
}

TEST(DeepTree, IsWrittenToItsLastLevel) {
  OnASmallStack([] {
    const Ref<Document> root = Deep(kLevels);
    TextMeasure measure;
    TreeWriter(measure).Write(*root);
    // Each level d has d tabs twice, "<a>", "</a>" and two line ends; the field has kLevels tabs.
    const std::uint64_t n = kLevels;
    EXPECT_EQ(measure.Bytes(), n * (n - 1) + n * 11 + n + 10);
    EXPECT_FALSE(root->Busy());
  });
}

TEST(DeepTree, OfManyThousandLevelsComesBackWhole) {
  OnASmallStack([] {
    constexpr int kWritable = 5000;
    const Ref<Document> root = Deep(kWritable);
    const std::string text = root->XMLExport();
    const Ref<Document> again = Document::Create();
    ASSERT_TRUE(again->XMLImport(text));
    EXPECT_EQ(again->SelectSingleNode(DeepPath(kWritable))->Fields().Field("f")->Value(), "1");
    EXPECT_TRUE(again->XMLExport() == text);
  });
}

// Its text would have 40 GB of tabs: that is refused before any of it is put together.
TEST(DeepTree, WhoseTextPassesTwoGigabytesIsAnOverflow) {
  OnASmallStack([] {
    const Ref<Document> root = Deep(kLevels);
    try {
      root->XMLExport();
      FAIL() << "no overflow";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), 6);
    }
    EXPECT_FALSE(root->Busy());
  });
}

TEST(DeepTree, IsShownAsJson) {
  OnASmallStack([] {
    const std::string json = JsonDump(true, *Deep(kLevels));
    EXPECT_EQ(json.substr(json.size() - 6), "]}]}]}");
  });
}

TEST(DeepTree, WithoutClosingTagsIsReadAsWell) {
  OnASmallStack([] {
    const Ref<Document> root = Document::Create();
    EXPECT_TRUE(root->XMLImport(Repeated("<a>", kLevels)));
    EXPECT_EQ(root->SelectSingleNode(DeepPath(kLevels - 1))->Name(), "a");
  });
}

TEST(WideTree, OfManyNodesIsReadSortedAndEmptied) {
  OnASmallStack([] {
    const Ref<Document> root = Document::Create();
    std::string text = "<r>";
    for (int i = 0; i < kLevels; ++i) text += "<n" + std::to_string(i) + "><f/></x>";
    ASSERT_TRUE(root->XMLImport(text + "</r>"));
    root->Sort(false);
    EXPECT_EQ(root->Childs().Child(0)->Name(), "n99999");
    while (root->Childs().Count() > 0) root->Childs().RemoveChild(root->Childs().Count() - 1);
    EXPECT_EQ(root->Childs().Count(), 0);
  });
}

TEST(WideTree, OfManyAttributesInOneTagIsRead) {
  std::string text = "<r><f";
  for (int i = 0; i < 10000; ++i)
    text += " a" + std::to_string(i) + "=\"" + std::to_string(i) + "\"";
  const Ref<Document> root = Document::Create();
  ASSERT_TRUE(root->XMLImport(text + "/></r>"));
  Parameters& parameters = root->Fields().Field(0)->Parameters();
  EXPECT_EQ(parameters.Count(), 10000);
  EXPECT_EQ(parameters.Parameter("a9999")->Value(), "9999");
}

}  // namespace
}  // namespace tarvo
