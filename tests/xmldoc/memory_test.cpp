// Nodes give back what they took, however they were held, and bad input takes no more than it may.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "allocated_bytes.h"
#include "scarce_memory.h"
#include "tree_text.h"
#include "xmldoc/document.h"
#include "xmldoc/nodes/compact_text.h"
#include "xmldoc/nodes/node_pool.h"

namespace tarvo {
namespace {

/// Whether nothing stays behind each time that something is done. The smallest piece of memory has
/// more than 16 bytes; what the allocator keeps for itself does not grow from time to time.
template <typename Action>
bool KeepsNothing(Action action) {
  constexpr int kTimes = 500;
  for (int i = 0; i < 20; ++i) action();
  const std::size_t before = AllocatedBytes();
  for (int i = 0; i < kTimes; ++i) action();
  return AllocatedBytes() < before + kTimes * 16;
}

std::string Wide(const char* name) {
  std::string text = "<r>";
  for (int i = 0; i < 20; ++i) {
    text +=
        std::string("<") + name + " k=\"v\"><f a=\"1\">some text of a field</f><e/></" + name + ">";
  }
  return text + "</r>";
}

TEST(NodeMemory, IsGivenBackWithTheTree) {
  const std::string text = Wide("g");
  EXPECT_TRUE(KeepsNothing([&] { Imported(text); }));
  EXPECT_TRUE(KeepsNothing([&] { Imported(text)->XMLExport(); }));
  EXPECT_TRUE(KeepsNothing([] {
    const Ref<Document> root = Document::Create();
    root->SetName("a-name-that-is-too-long-for-any-text-to-hold-within-itself");
    root->SetVersion("a version that is too long for any text to hold within itself");
    root->Childs().AddChild("child");
    root->Childs().Child(0)->Childs().AddChild("grandchild");
    root->Childs().Child(0)->Childs().Child(0)->SetEncodePassword(std::string(100, 'x'));
    root->Fields().AddField("field", std::string(100, 'x'));
    root->Parameters().AddParameter("name", std::string(100, 'x'));
  }));
}

TEST(NodeMemory, IsGivenBackByHoldersOfSingleNodes) {
  const std::string text = Wide("g");
  EXPECT_TRUE(KeepsNothing([&] {
    const Ref<Document> root = Imported(text);
    const Ref<Document> child = root->Childs().Child(3);
    const Ref<Document> again = child;
    const Ref<Field> field = child->Fields().Field("f");
    const Ref<Field> sameField = field;
    const Ref<Parameter> parameter = field->Parameters().Parameter("a");
    const Ref<Parameter> sameParameter = parameter;
    root->Childs().RemoveChild(3);
    child->Fields().RemoveField("f");
    EXPECT_EQ(sameField->Value(), "some text of a field");
    EXPECT_EQ(sameParameter->Value(), "1");
  }));
}

TEST(NodeMemory, IsGivenBackWhenATextIsSetAnew) {
  const Ref<Document> root = Imported("<r><f a=\"1\">x</f></r>");
  const std::string text(1000, 'x');
  EXPECT_TRUE(KeepsNothing([&] {
    root->SetName(text);
    root->Fields().Field(0)->SetName(text);
    root->Fields().Field(0)->SetValue(text);
    root->Fields().Field(0)->Parameters().Parameter(0)->SetValue(text);
  }));
  root->SetName("r");
  root->Fields().Field(0)->SetName("f");
  root->Fields().Field(0)->SetValue("");
  EXPECT_EQ(TreeText(*root), "r{f(a=" + text + ")=}");
}

TEST(CompactText, GivesBackItsOwnCharactersAlone) {
  EXPECT_TRUE(KeepsNothing([] {
    char foreign[20];
    char* memory = foreign;
    CompactText text;
    text.Put("somebody else's", memory);
    EXPECT_EQ(text.View().data(), foreign);
    EXPECT_EQ(memory, foreign + 15);
    text.Assign(std::string(100, 'x'));
    text.Assign(text.View().substr(50));
    EXPECT_EQ(text.View(), std::string(50, 'x'));
    text.Assign("own");
    text.Assign(text.View().substr(1));
    EXPECT_EQ(text.View(), "wn");
    text.Assign("");
    EXPECT_TRUE(text.Empty());
  }));
}

TEST(CompactText, HoldsTwelveCharactersItself) {
  for (std::size_t size = 0; size <= 13; ++size) {
    const std::string text = std::string("thirteen char").substr(0, size);
    const bool within = size <= 12;
    char foreign[20] = {};
    char* memory = foreign;
    CompactText put;
    put.Put(text, memory);
    EXPECT_EQ(CompactText::BytesOutside(text), within ? 0 : text.size());
    EXPECT_EQ(memory, foreign + CompactText::BytesOutside(text));
    EXPECT_EQ(put.View(), text);
    CompactText assigned;
    assigned.Assign(text);
    EXPECT_EQ(assigned.View(), text);
    EXPECT_EQ(assigned.Empty(), text.empty());
    assigned.Assign(assigned.View().substr(text.size() / 2));
    EXPECT_EQ(assigned.View(), text.substr(text.size() / 2));
  }
}

// The length alone decides: behind the first bytes there is nothing to read.
TEST(CompactText, OfFourGibibytesIsRefused) {
  CompactText text;
  text.Assign("as before");
  try {
    text.Assign(std::string_view("few", std::size_t{1} << 32));
    FAIL() << "taken";
  } catch (const std::length_error& error) {
    EXPECT_STREQ(error.what(), "text of a node too long");
  }
  EXPECT_EQ(text.View(), "as before");
}

TEST(NodeMemory, IsGivenBackByThePool) {
  EXPECT_TRUE(KeepsNothing([] {
    NodePool pool(4000);
    std::vector<std::pair<void*, std::uint16_t>> pieces;
    for (int i = 0; i < 200; ++i) {
      std::uint16_t place = 0;
      void* memory = pool.Allocate(1000, place);
      pieces.emplace_back(memory, place);
    }
    for (const auto& [memory, place] : pieces) NodePool::Free(memory, place);
  }));
  EXPECT_TRUE(KeepsNothing([] {
    std::uint16_t place = 0;
    void* memory = nullptr;
    {
      NodePool pool(4000);
      memory = pool.Allocate(1000, place);
    }
    NodePool::Free(memory, place);
  }));
}

TEST(NodePool, PutsPiecesOfUpToFourKibibytesTogether) {
  constexpr std::size_t kSmallChunk = 512 - sizeof(NodeChunk);
  const struct {
    std::size_t expected;
    std::size_t size;
    bool together;
  } cases[] = {
      {100000, 4096, true},
      {100000, 4097, false},
      {1, kSmallChunk - 8, true},
      {1000, kSmallChunk - 8, true},
      {1000, kSmallChunk + 488, false},
      {0, 1, false},
  };
  for (const auto& c : cases) {
    NodePool pool(c.expected);
    std::uint16_t place = 0;
    std::uint16_t nextPlace = 0;
    void* memory = pool.Allocate(c.size, place);
    void* next = pool.Allocate(8, nextPlace);
    EXPECT_EQ(nextPlace > sizeof(NodeChunk) / 8, c.together) << c.size << " of " << c.expected;
    NodePool::Free(memory, place);
    NodePool::Free(next, nextPlace);
  }
}

// The text is refused by its length: behind its first bytes there is nothing to read.
TEST(ImportedText, OfAGibibyteIsRefusedUnread) {
  const std::string few = "<r><a/></r>";
  const Ref<Document> document = Document::Create();
  EXPECT_FALSE(document->XMLImport(std::string_view(few.data(), std::size_t{1} << 30)));
  EXPECT_EQ(TreeText(*document), "{}");
}

TEST(ImportedText, ThatMemoryDoesNotSufficeForIsRefused) {
  const std::string text = Wide("g");
  bool imported = false;
  int failed = 0;
  for (int allocation = 0; !imported; ++allocation) {
    const Ref<Document> fresh = Document::Create();
    {
      ScarceMemory scarce(allocation);
      imported = fresh->XMLImport(text);
    }
    failed += imported ? 0 : 1;
    ASSERT_EQ(imported, TreeText(*fresh) == TreeText(*Imported(text))) << allocation;
  }
  EXPECT_GT(failed, 0);
}

}  // namespace
}  // namespace tarvo
