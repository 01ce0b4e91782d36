#pragma once

#include <string_view>

#include "xmldoc/document.h"
#include "xmldoc/nodes/node_pool.h"
#include "xmldoc/nodes/packed_attributes.h"

namespace tarvo {

/// Makes the nodes of one import, each with its texts and attributes in one block of memory.
/// No text is longer than 4 GiB: the reader refuses what could come out so long.
class NodeMaker {
 public:
  explicit NodeMaker(std::size_t expectedBytes) : pool_(expectedBytes) {}

  /// `value` is in the kept form, escaped.
  Ref<Field> MakeField(std::string_view name, std::string_view value,
                       const AttributePacker& attributes);
  Ref<Document> MakeDocument(std::string_view name, const AttributePacker& attributes);
  NodePool& Pool() { return pool_; }

 private:
  template <typename Node>
  Node* Make(std::string_view name, std::string_view value, const AttributePacker& attributes,
             char*& text);

  NodePool pool_;
};

}  // namespace tarvo
