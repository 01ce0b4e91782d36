#include "xmldoc/tool/xmltool.h"

#include <utility>

#include "support/runtime_error.h"
#include "xmldoc/document.h"
#include "xmldoc/tool/json_dump.h"
#include "xmldoc/tool/stdio_file_reader.h"
#include "xmldoc/tool/template_render.h"

namespace tarvo {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUse = 2;
constexpr const char* kUse =
    "xmltool dump FILE [--stop-on-load-error]   the imported document as JSON\n"
    "xmltool export FILE                        the imported document written out again\n"
    "xmltool attributes TEXT                    the attributes of a tag's text as JSON\n"
    "xmltool render TEMPLATE FILE               the template filled from the document\n"
    "xmltool render TEMPLATE --rows FILE...     the same from several, their fields as rows\n";

XmlToolRun Done(std::string output) { return {0, std::move(output), {}}; }
XmlToolRun Failed(const std::string& why) { return {kFailed, {}, "xmltool: " + why + "\n"}; }

XmlToolRun DumpOrExport(bool dump, const std::string& path, bool stopOnLoadError) {
  std::string text;
  if (StdioFileReader().ReadText(path, text) != ReadResult::Ok) {
    return Failed("cannot read " + path);
  }
  const Ref<Document> document = Document::Create();
  document->SetStopOnLoadError(stopOnLoadError);
  const bool result = document->XMLImport(text);
  try {
    return Done(dump ? JsonDump(result, *document) + "\n" : document->XMLExport());
  } catch (const RuntimeError& error) {
    return Failed(error.Description());
  }
}

XmlToolRun ShowAttributes(std::string_view text) {
  std::vector<std::pair<std::string, std::string>> pairs;
  for (;;) {
    std::string name;
    std::string value;
    Document::GetNextParameter(text, name, value);
    if (name.empty()) return Done(JsonPairs(pairs) + "\n");
    pairs.emplace_back(std::move(name), std::move(value));
  }
}

class NoComponents : public ComponentCalls {
 public:
  ComponentAnswer Call(const std::string&, const std::string&,
                       const std::vector<std::string>&) override {
    return {false, "This system has no component registry"};
  }
};

}  // namespace

XmlToolRun RunXmlTool(const std::vector<std::string>& words) {
  NoComponents none;
  return RunXmlTool(words, none);
}

XmlToolRun RunXmlTool(const std::vector<std::string>& words, ComponentCalls& components) {
  const bool byRows = words.size() > 3 && words[2] == "--rows";
  const bool byDocument = words.size() == 3 && words[2] != "--rows";
  if ((byRows || byDocument) && words[0] == "render") return RenderTemplate(words, components);
  const bool stop = words.size() == 3 && words[0] == "dump" && words[2] == "--stop-on-load-error";
  if (words.size() != 2 && !stop) return {kWrongUse, {}, kUse};
  const bool dump = words[0] == "dump";
  if (dump || words[0] == "export") return DumpOrExport(dump, words[1], stop);
  if (words[0] == "attributes") return ShowAttributes(words[1]);
  return {kWrongUse, {}, kUse};
}

}  // namespace tarvo
