// Nodes that stand together in chunks, as an import outside the sanitized build makes them.
#include <gtest/gtest.h>

#include "tree_text.h"
#include "xmldoc/nodes/node_pool.h"
#include "xmldoc/text/node_maker.h"

namespace tarvo {
namespace {

TEST(NodePool, PiecesAreAlignedApartAndOutliveThePool) {
  struct Piece {
    char* memory;
    std::uint16_t place;
    std::size_t size;
  };
  std::vector<Piece> pieces;
  {
    NodePool pool(100000);
    for (std::size_t i = 0; i < 5000; ++i) {
      const std::size_t size = 1 + i * 7 % 200 + (i % 1000 == 0 ? 100000 : 0);
      std::uint16_t place = 0;
      char* memory = static_cast<char*>(pool.Allocate(size, place));
      std::fill(memory, memory + size, static_cast<char>(i));
      pieces.push_back({memory, place, size});
    }
  }
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const Piece& piece = pieces[i];
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece.memory) % 8, 0u);
    ASSERT_EQ(std::count(piece.memory, piece.memory + piece.size, static_cast<char>(i)),
              static_cast<std::ptrdiff_t>(piece.size));
    NodePool::Free(piece.memory, piece.place);
  }
}

TEST(NodePool, WithoutExpectationEveryPieceStandsAlone) {
  NodePool pool(0);
  std::uint16_t place = 7;
  void* memory = pool.Allocate(16, place);
  EXPECT_EQ(place, 0);
  NodePool::Free(memory, place);
}

TEST(NodeMaker, NodesOfOneChunkGoInAnyOrder) {
  AttributePacker packer;
  packer.Add("x", "1");
  std::vector<Ref<Field>> fields;
  Ref<Document> document;
  {
    const Ref<Document> root = Document::Create();
    NodeMaker maker(50000);
    document = Ref<Document>(&maker.AddChild(*root, "d", packer));
    for (int i = 0; i < 1000; ++i) {
      fields.emplace_back(&maker.AddField(*root, "f" + std::to_string(i), "v", packer));
    }
  }
  for (std::size_t i = 0; i < fields.size(); i += 2) fields[i] = Ref<Field>();
  EXPECT_EQ(fields[999]->Name(), "f999");
  EXPECT_EQ(fields[999]->Parameters().Parameter("x")->Value(), "1");
  fields[999]->SetValue("another, longer value");
  EXPECT_EQ(fields[999]->Value(), "another, longer value");
  fields.clear();
  EXPECT_EQ(TreeText(*document), "d(x=1){}");
}

}  // namespace
}  // namespace tarvo
