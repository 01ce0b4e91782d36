#pragma once

#include <string_view>
#include <type_traits>
#include <utility>

#include "xmldoc/document.h"
#include "xmldoc/nodes/node_pool.h"
#include "xmldoc/nodes/packed_attributes.h"

namespace tarvo {

/// Makes the nodes of one import, each with its texts and attributes in one block of memory.
/// No text is longer than 4 GiB: the reader refuses what could come out so long.
class NodeMaker {
 public:
  explicit NodeMaker(std::size_t expectedBytes) : pool_(expectedBytes) {}

  /// Adds a field to `owner`. `value` is in the kept form, escaped.
  Field& AddField(Document& owner, std::string_view name, std::string_view value,
                  const AttributePacker& attributes) {
    Field* field = Make<Field>(name, value, attributes);
    owner.fields_.list_.Append(Ref<Field>::Adopt(field), &pool_);
    return *field;
  }
  /// Adds a child to `owner`.
  Document& AddChild(Document& owner, std::string_view name, const AttributePacker& attributes) {
    Document* child = Make<Document>(name, {}, attributes);
    child->fields_.list_.StartInPool(child->Import());
    child->childs_.list_.StartInPool(child->Import());
    owner.childs_.list_.Append(Ref<Document>::Adopt(child), &pool_);
    return *child;
  }
  NodePool& Pool() { return pool_; }

  /// Goes down to the last child of `node`, in whose place in the list the node `around` stays
  /// until Leave comes back: so the way up takes no memory, however deep the tree.
  static void Enter(Document*& node, Document*& around) {
    Document* child = std::exchange(node->childs_.list_.Last(), around);
    around = std::exchange(node, child);
  }
  static void Leave(Document*& node, Document*& around) {
    Document* child = std::exchange(node, around);
    around = std::exchange(node->childs_.list_.Last(), child);
  }

 private:
  template <typename Node>
  Node* Make(std::string_view name, std::string_view value, const AttributePacker& attributes) {
    const std::size_t packed = attributes.Size();
    std::uint16_t place = 0;
    void* memory = pool_.Allocate(
        sizeof(Node) + packed + CompactText::BytesOutside(name) + CompactText::BytesOutside(value),
        place);
    Node* node = new (memory) Node;
    node->header_.place = place;
    char* text = static_cast<char*>(memory) + sizeof(Node);
    if (packed > 0) {
      attributes.CopyTo(text);
      node->parameters_.Show(text);
      text += packed;
    }
    node->name_.Put(name, text);
    if constexpr (std::is_same_v<Node, Field>) node->value_.Put(value, text);
    return node;
  }

  NodePool pool_;
};

}  // namespace tarvo
