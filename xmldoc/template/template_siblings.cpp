#include "xmldoc/template/template_siblings.h"

#include "xmldoc/rules/letter_case.h"

namespace tarvo {

TemplateSiblings::TemplateSiblings(Document& parent, std::string_view name) {
  for (Document* child : parent.Childs().Nodes()) {
    if (EqualIgnoringCase(child->NameView(), name)) nodes_.push_back(child);
  }
}

const TemplateColumn& TemplateSiblings::ColumnOf(const TemplatePath& path) {
  std::string key = path.Key();
  for (const auto& [itsKey, column] : columns_) {
    if (itsKey == key) return column;
  }
  columns_.emplace_back(std::move(key), TemplateColumn());
  TemplateColumn& column = columns_.back().second;
  for (Document* node : nodes_) column.Add(*node, path);
  return column;
}

}  // namespace tarvo
