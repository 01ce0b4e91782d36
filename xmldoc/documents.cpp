#include "xmldoc/documents.h"

#include <algorithm>

#include "xmldoc/document.h"
#include "xmldoc/node_key.h"

namespace tarvo {

Ref<Document> Documents::Child(int index) const {
  return list_.Has(index) ? Ref<Document>(list_.At(index)) : Document::Create();
}

Ref<Document> Documents::Child(std::string_view key) const {
  const int index = LastOfKey(list_, key);
  const bool isPath = index < 0 && key.find('.') != std::string_view::npos;
  return isPath ? AtPath(key) : Child(index);
}

Ref<Document> Documents::AtPath(std::string_view path) const {
  const Documents* childs = this;
  Ref<Document> node;
  for (bool more = true; more; childs = &node->Childs()) {
    const std::string step = TakePathStep(path, more);
    const int index = LastOfKey(childs->list_, step);
    if (index < 0) return Document::Create();
    node = childs->Child(index);
  }
  return node;
}

int Documents::AddChild(std::string_view name, int index) {
  Ref<Document> node = Document::Create();
  node->SetName(name);
  if (index < 0 || index > list_.Size()) index = list_.Size();
  list_.Insert(index, std::move(node));
  return index;
}

Ref<Document> Documents::RemoveChild(int index) {
  return list_.Has(index) ? list_.Remove(index) : Document::Create();
}

Ref<Document> Documents::RemoveChild(std::string_view key) {
  return RemoveChild(LastOfKey(list_, key));
}

Ref<Document> Documents::SetChild(int index, Ref<Document> node) {
  if (!list_.Has(index) || !node) return Document::Create();
  return list_.Replace(index, std::move(node));
}

int Documents::SearchChild2(std::string_view name, bool ignoreCase) const {
  return LastOfName(list_, name, ignoreCase);
}

Ref<Document> Documents::SearchChild(std::string_view name, bool ignoreCase) const {
  return Child(SearchChild2(name, ignoreCase));
}

void Documents::Sort(bool ascending) {
  std::stable_sort(list_.begin(), list_.end(), [ascending](const Document* a, const Document* b) {
    if (!ascending) std::swap(a, b);
    return a->NameView() < b->NameView();
  });
}

}  // namespace tarvo
