#include "xmldoc/template_path.h"

#include "xmldoc/text_rules.h"

namespace tarvo {
namespace {

Document* LastChildNamed(Document& node, std::string_view name) {
  for (int index = node.Childs().Count() - 1; index >= 0; --index) {
    const Ref<Document> child = node.Childs().Child(index);
    if (EqualIgnoringCase(child->NameView(), name)) return child.get();
  }
  return nullptr;
}

}  // namespace

TemplatePath::TemplatePath(std::string_view path) {
  path = WithoutOuterBlanks(path);
  for (;;) {
    const auto dot = path.find('.');
    names_.emplace_back(path.substr(0, dot));
    if (dot == std::string_view::npos) return;
    path.remove_prefix(dot + 1);
  }
}

Document* TemplatePath::Owner(Document& from) const {
  Document* node = &from;
  for (std::size_t i = 0; i + 1 < names_.size() && node != nullptr; ++i) {
    node = LastChildNamed(*node, names_[i]);
  }
  return node;
}

Ref<Field> TemplatePath::FindField(Document& from) const {
  Document* owner = Owner(from);
  if (owner == nullptr) return {};
  for (int index = owner->Fields().Count() - 1; index >= 0; --index) {
    Ref<Field> field = owner->Fields().Field(index);
    if (EqualIgnoringCase(field->NameView(), LastName())) return field;
  }
  return {};
}

void TemplatePath::AppendValue(Document& from, std::string& text) const {
  const Ref<Field> field = FindField(from);
  if (!field) return;
  const std::string_view kept = field->EscapedValueView();
  if (kept.find('&') == std::string_view::npos) {
    text += kept;
  } else {
    text += Unescaped(kept);
  }
}

std::size_t FindIgnoringCase(std::string_view text, std::string_view wanted, std::size_t from) {
  const char first = wanted.front();
  const char upper = first >= 'a' && first <= 'z' ? static_cast<char>(first - 'a' + 'A') : first;
  const char both[] = {first, upper};
  const std::string_view starts(both, first == upper ? 1 : 2);
  for (;;) {
    const auto found = text.find_first_of(starts, from);
    if (found == std::string_view::npos) return found;
    if (EqualIgnoringCase(text.substr(found, wanted.size()), wanted)) return found;
    from = found + 1;
  }
}

}  // namespace tarvo
