#include "xmldoc/tool/json_dump.h"

#include <array>
#include <cstdio>

namespace tarvo {
namespace {

void AddEscaped(std::string& json, char c) {
  const auto byte = static_cast<unsigned char>(c);
  if (c == '"' || c == '\\') json += '\\';
  if (byte < 0x20 || byte > 0x7E) {
    std::array<char, 8> code;
    std::snprintf(code.data(), code.size(), "\\u00%02x", static_cast<unsigned>(byte));
    json += code.data();
  } else {
    json += c;
  }
}

std::string PairText(std::string_view name, std::string_view value) {
  return "[" + JsonText(name) + "," + JsonText(value) + "]";
}

std::string ParametersText(const Parameters& parameters) {
  std::string json = "[";
  parameters.ForEach([&json](std::string_view name, std::string_view value) {
    json += (json.size() > 1 ? "," : "") + PairText(name, value);
  });
  return json + "]";
}

std::string FieldsText(Fields& fields) {
  std::string json = "[";
  for (int i = 0; i < fields.Count(); ++i) {
    const Ref<Field> one = fields.Field(i);
    json += (i > 0 ? ",{\"name\":" : "{\"name\":") + JsonText(one->NameView()) +
            ",\"value\":" + JsonText(one->Value()) +
            ",\"parameters\":" + ParametersText(one->Parameters()) + "}";
  }
  return json + "]";
}

/// All of a node but its children, whose list is left open.
std::string OpenNode(Document& node) {
  return "\"parameters\":" + ParametersText(node.Parameters()) +
         ",\"fields\":" + FieldsText(node.Fields()) + ",\"childs\":[";
}

}  // namespace

std::string JsonText(std::string_view text) {
  std::string json = "\"";
  for (const char c : text) AddEscaped(json, c);
  return json + "\"";
}

std::string JsonPairs(const std::vector<std::pair<std::string, std::string>>& pairs) {
  std::string json = "[";
  for (const auto& [name, value] : pairs) {
    json += (json.size() > 1 ? "," : "") + PairText(name, value);
  }
  return json + "]";
}

std::string JsonDump(bool result, Document& root) {
  struct Open {
    Ref<Document> node;
    int next;
  };
  std::string json = std::string("{\"result\":") + (result ? "true" : "false") +
                     ",\"name\":" + JsonText(root.NameView()) +
                     ",\"version\":" + JsonText(root.Version()) +
                     ",\"encoding\":" + JsonText(root.Encoding()) + "," + OpenNode(root);
  std::vector<Open> open{{Ref<Document>(&root), 0}};
  while (!open.empty()) {
    Open& top = open.back();
    if (top.next == top.node->Childs().Count()) {
      json += "]}";
      open.pop_back();
      continue;
    }
    Ref<Document> child = top.node->Childs().Child(top.next++);
    json += (top.next > 1 ? ",{\"name\":" : "{\"name\":") + JsonText(child->NameView()) + "," +
            OpenNode(*child);
    open.push_back({std::move(child), 0});
  }
  return json;
}

}  // namespace tarvo
