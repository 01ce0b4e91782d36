// Templates and conditions on the tree.
#include "xmldoc/document.h"
#include "xmldoc/template/condition.h"
#include "xmldoc/template/template_engine.h"

namespace tarvo {

std::string Document::HTMLExport(std::string_view templateText, Document* document) {
  return HTMLExport(templateText, document, TemplatePorts());
}

std::string Document::HTMLExport(std::string_view templateText, Document* document,
                                 const TemplatePorts& ports) {
  return TemplateEngine(templateText, ports).Fill(document != nullptr ? *document : *this);
}

Documents Document::GetChilds(std::string_view condition) const {
  const Condition wanted(condition);
  Documents found;
  for (Document* child : childs_.Nodes()) {
    if (wanted.Holds(*child)) found.Append(Ref<Document>(child));
  }
  return found;
}

Ref<Document> Document::SearchChild(std::string_view condition) const {
  const Condition wanted(condition);
  for (Document* child : childs_.Nodes()) {
    if (wanted.Holds(*child)) return Ref<Document>(child);
  }
  return Create();
}

}  // namespace tarvo
