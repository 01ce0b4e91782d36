#include "xmldoc/text/node_maker.h"

#include <cstring>
#include <new>

namespace tarvo {
namespace {

void Place(CompactText& text, std::string_view characters, char*& at) {
  if (characters.empty()) return;
  std::memcpy(at, characters.data(), characters.size());
  text.Show(at, static_cast<std::uint32_t>(characters.size()));
  at += characters.size();
}

}  // namespace

template <typename Node>
Node* NodeMaker::Make(std::string_view name, std::string_view value,
                      const AttributePacker& attributes, char*& text) {
  const std::size_t packed = attributes.Size();
  std::uint16_t place = 0;
  void* memory = pool_.Allocate(sizeof(Node) + packed + name.size() + value.size(), place);
  Node* node = new (memory) Node;
  node->header_.place = place;
  text = static_cast<char*>(memory) + sizeof(Node);
  if (packed > 0) {
    attributes.CopyTo(text);
    node->parameters_.Show(PackedAttributes(text));
    text += packed;
  }
  Place(node->name_, name, text);
  return node;
}

Ref<Field> NodeMaker::MakeField(std::string_view name, std::string_view value,
                                const AttributePacker& attributes) {
  char* text = nullptr;
  Field* field = Make<Field>(name, value, attributes, text);
  Place(field->value_, value, text);
  return Ref<Field>::Adopt(field);
}

Ref<Document> NodeMaker::MakeDocument(std::string_view name, const AttributePacker& attributes) {
  char* text = nullptr;
  return Ref<Document>::Adopt(Make<Document>(name, {}, attributes, text));
}

}  // namespace tarvo
