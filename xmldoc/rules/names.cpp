#include "xmldoc/rules/names.h"

#include "support/runtime_error.h"
#include "xmldoc/rules/text_rules.h"

namespace tarvo {
namespace {

bool HasBlank(std::string_view name) { return name.find(' ') != std::string_view::npos; }

}  // namespace

std::string_view CheckedName(std::string_view name) {
  name = WithoutOuterBlanks(name);
  if (HasBlank(name)) throw RuntimeError(1, "Name", "Spaces found in the name");
  return name;
}

std::string_view CheckedDocumentName(std::string_view name) {
  name = WithoutOuterBlanks(name);
  if (HasBlank(name)) throw RuntimeError(10007, "xDocument.Name", "Spaces found in name");
  return name;
}

}  // namespace tarvo
