#include "tree_text.h"

namespace tarvo {
namespace {

std::string Shown(std::string_view text) {
  std::string shown;
  for (const char c : text) {
    switch (c) {
      case '\r':
        shown += "\\r";
        break;
      case '\n':
        shown += "\\n";
        break;
      case '\t':
        shown += "\\t";
        break;
      default:
        shown += c;
    }
  }
  return shown;
}

std::string ParametersText(Parameters& parameters) {
  std::string text;
  for (int i = 0; i < parameters.Count(); ++i) {
    const Ref<Parameter> one = parameters.Parameter(i);
    text += (i > 0 ? ";" : "") + Shown(one->Name()) + "=" + Shown(one->Value());
  }
  return parameters.Count() > 0 ? "(" + text + ")" : "";
}

std::string FieldsText(Fields& fields) {
  std::string text;
  for (int i = 0; i < fields.Count(); ++i) {
    const Ref<Field> one = fields.Field(i);
    text += (i > 0 ? "," : "") + Shown(one->Name()) + ParametersText(one->Parameters()) + "=" +
            Shown(one->Value());
  }
  return text;
}

}  // namespace

std::string TreeText(Document& root) {
  std::string text =
      Shown(root.Name()) + ParametersText(root.Parameters()) + "{" + FieldsText(root.Fields());
  for (int i = 0; i < root.Childs().Count(); ++i) text += "|" + TreeText(*root.Childs().Child(i));
  return text + "}";
}

Ref<Document> Imported(std::string_view text) {
  Ref<Document> document = Document::Create();
  document->XMLImport(text);
  return document;
}

Ref<Document> WithChilds(const std::vector<std::string>& names) {
  Ref<Document> document = Document::Create();
  for (const std::string& name : names) document->Childs().AddChild(name);
  return document;
}

int CountNodes(Document& root) {
  int count = 0;
  std::vector<Ref<Document>> waiting{Ref<Document>(&root)};
  while (!waiting.empty()) {
    const Ref<Document> node = waiting.back();
    waiting.pop_back();
    count += 1 + node->Fields().Count() + node->Parameters().Count();
    for (int i = 0; i < node->Fields().Count(); ++i) {
      count += node->Fields().Field(i)->Parameters().Count();
    }
    for (int i = 0; i < node->Childs().Count(); ++i) waiting.push_back(node->Childs().Child(i));
  }
  return count;
}

}  // namespace tarvo
