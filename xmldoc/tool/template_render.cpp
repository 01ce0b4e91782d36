#include "xmldoc/tool/template_render.h"

#include <chrono>
#include <ctime>

#include "platform/mersenne_random.h"
#include "support/runtime_error.h"
#include "xmldoc/template/template_ports.h"
#include "xmldoc/tool/stdio_file_reader.h"

namespace tarvo {
namespace {

constexpr int kUnreadable = 1;

class SystemLocalClock : public LocalClock {
 public:
  LocalTime Now() override {
    using namespace std::chrono;
    const std::time_t now = std::time(nullptr);
    const std::tm* parts = std::localtime(&now);
    if (parts == nullptr) return LocalTime(seconds(now));
    const local_days day{year{parts->tm_year + 1900} /
                         month{static_cast<unsigned>(parts->tm_mon) + 1} /
                         std::chrono::day{static_cast<unsigned>(parts->tm_mday)}};
    return day + hours{parts->tm_hour} + minutes{parts->tm_min} + seconds{parts->tm_sec};
  }
};

XmlToolRun CannotRead(const std::string& path) {
  return {kUnreadable, {}, "xmltool: cannot read " + path + "\n"};
}

XmlToolRun Render(const std::string& text, Document& document, ComponentCalls& components) {
  SystemLocalClock clock;
  MersenneRandom random;
  random.Reseed();
  TemplatePorts ports;
  ports.clock = &clock;
  ports.random = &random;
  ports.components = &components;
  try {
    return {0, document.HTMLExport(text, nullptr, ports), {}};
  } catch (const RuntimeError& error) {
    return {kUnreadable,
            {},
            "xmltool: " + std::to_string(error.Number()) + " " + error.Source() + ": " +
                error.Description() + "\n"};
  }
}

}  // namespace

void AddAsRows(Document& document, Document& pages) {
  const Ref<Document> page = pages.Childs().Child(pages.Childs().AddChild(document.NameView()));
  for (int i = 0; i < document.Fields().Count(); ++i) {
    const Ref<Field> field = document.Fields().Field(i);
    const Ref<Document> row = page->Childs().Child(page->Childs().AddChild("row"));
    row->Fields().AddField("name", field->NameView());
    row->Fields().AddField("value", field->Value());
    field->Parameters().ForEach([&row](std::string_view name, std::string_view value) {
      row->Fields().AddField(name, value);
    });
  }
}

XmlToolRun RenderTemplate(const std::vector<std::string>& words, ComponentCalls& components) {
  const bool rows = words.size() > 2 && words[2] == "--rows";
  StdioFileReader files;
  std::string text;
  if (files.ReadText(words[1], text) != ReadResult::Ok) return CannotRead(words[1]);
  const Ref<Document> root = Document::Create();
  for (std::size_t i = rows ? 3 : 2; i < words.size(); ++i) {
    std::string content;
    if (files.ReadText(words[i], content) != ReadResult::Ok) return CannotRead(words[i]);
    const Ref<Document> document = rows ? Document::Create() : root;
    document->XMLImport(content);
    if (rows) AddAsRows(*document, *root);
  }
  return Render(text, *root, components);
}

}  // namespace tarvo
