// xmltool: the document library on the command line.
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "support/runtime_error.h"
#include "xmldoc/document.h"
#include "xmldoc/tool/json_dump.h"
#include "xmldoc/tool/stdio_file_reader.h"

namespace {

using tarvo::Document;
using tarvo::Ref;

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

int ShowUse() {
  std::fputs(
      "xmltool dump FILE [--stop-on-load-error]   the imported document as JSON\n"
      "xmltool export FILE                        the imported document written out again\n"
      "xmltool attributes TEXT                    the attributes of a tag's text as JSON\n",
      stderr);
  return kWrongUse;
}

void Print(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

bool ReadFile(const std::string& path, std::string& text) {
  tarvo::StdioFileReader files;
  if (files.ReadText(path, text) == tarvo::ReadResult::Ok) return true;
  std::fprintf(stderr, "xmltool: cannot read %s\n", path.c_str());
  return false;
}

int Dump(const std::string& path, bool stopOnLoadError) {
  std::string text;
  if (!ReadFile(path, text)) return kFailed;
  const Ref<Document> document = Document::Create();
  document->SetStopOnLoadError(stopOnLoadError);
  const bool result = document->XMLImport(text);
  Print(tarvo::JsonDump(result, *document) + "\n");
  return kDone;
}

int Export(const std::string& path) {
  std::string text;
  if (!ReadFile(path, text)) return kFailed;
  const Ref<Document> document = Document::Create();
  document->XMLImport(text);
  try {
    Print(document->XMLExport());
  } catch (const tarvo::RuntimeError& error) {
    std::fprintf(stderr, "xmltool: %s\n", error.what());
    return kFailed;
  }
  return kDone;
}

int ShowAttributes(const std::string& text) {
  std::string_view rest = text;
  std::vector<std::pair<std::string, std::string>> pairs;
  for (;;) {
    std::string name;
    std::string value;
    Document::GetNextParameter(rest, name, value);
    if (name.empty()) break;
    pairs.emplace_back(std::move(name), std::move(value));
  }
  Print(tarvo::JsonPairs(pairs) + "\n");
  return kDone;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.size() < 2 || words.size() > 3) return ShowUse();
  const bool stop = words.size() == 3;
  if (stop && (words[0] != "dump" || words[2] != "--stop-on-load-error")) return ShowUse();
  if (words[0] == "dump") return Dump(words[1], stop);
  if (words[0] == "export") return Export(words[1]);
  if (words[0] == "attributes") return ShowAttributes(words[1]);
  return ShowUse();
}
