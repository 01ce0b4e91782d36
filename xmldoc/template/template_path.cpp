#include "xmldoc/template/template_path.h"

#include "xmldoc/node_key.h"
#include "xmldoc/rules/letter_case.h"
#include "xmldoc/rules/text_rules.h"

namespace tarvo {
namespace {

// Goes over the list without counting references: a look that writes to every node that it passes
// takes twice the memory traffic.
template <typename Node>
Node* LastNamed(const NodeList<Node>& list, std::string_view name) {
  const int index = LastOfName(list, name, true);
  return index < 0 ? nullptr : list.At(index);
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

std::string TemplatePath::Key() const {
  std::string key;
  for (const std::string& name : names_) key += UpperCased(name) + ".";
  return key;
}

Document* TemplatePath::Owner(Document& from) const {
  Document* node = &from;
  for (std::size_t i = 0; i + 1 < names_.size() && node != nullptr; ++i) {
    node = LastNamed(node->Childs().Nodes(), names_[i]);
  }
  return node;
}

Field* TemplatePath::FindField(Document& from) const {
  Document* owner = Owner(from);
  return owner == nullptr ? nullptr : LastNamed(owner->Fields().Nodes(), LastName());
}

void TemplatePath::AppendValue(Document& from, std::string& text) const {
  const Field* field = FindField(from);
  if (field == nullptr) return;
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
  const std::string_view starts(both, sizeof both);
  for (;;) {
    const auto found = text.find_first_of(starts, from);
    if (found == std::string_view::npos) return found;
    if (IsKeyword(text.substr(found, wanted.size()), wanted)) return found;
    from = found + 1;
  }
}

}  // namespace tarvo
