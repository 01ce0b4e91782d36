#include "xmldoc/text/node_maker.h"

namespace tarvo {

template <typename Node>
Node* NodeMaker::Make(std::string_view name, std::string_view value,
                      const AttributePacker& attributes, char*& text) {
  const std::size_t packed = attributes.Size();
  std::uint16_t place = 0;
  void* memory = pool_.Allocate(
      sizeof(Node) + packed + CompactText::BytesOutside(name) + CompactText::BytesOutside(value),
      place);
  Node* node = new (memory) Node;
  node->header_.place = place;
  text = static_cast<char*>(memory) + sizeof(Node);
  if (packed > 0) {
    attributes.CopyTo(text);
    node->parameters_.Show(text);
    text += packed;
  }
  node->name_.Put(name, text);
  return node;
}

Ref<Field> NodeMaker::MakeField(std::string_view name, std::string_view value,
                                const AttributePacker& attributes) {
  char* text = nullptr;
  Field* field = Make<Field>(name, value, attributes, text);
  field->value_.Put(value, text);
  return Ref<Field>::Adopt(field);
}

Ref<Document> NodeMaker::MakeDocument(std::string_view name, const AttributePacker& attributes) {
  char* text = nullptr;
  Document* document = Make<Document>(name, {}, attributes, text);
  document->fields_.list_.StartInPool(document->Import());
  document->childs_.list_.StartInPool(document->Import());
  return Ref<Document>::Adopt(document);
}

}  // namespace tarvo
