// Any text read, written and read again: from the second writing on, nothing changes any more where
// the dialect can hold what was read; and it is always readable.
// corpus: xml
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "xmldoc/document.h"

namespace {

using tarvo::Document;
using tarvo::Parameters;
using tarvo::Ref;

bool Plain(std::string_view text, std::string_view special) {
  return text.find_first_of(special) == std::string_view::npos;
}

bool PlainName(std::string_view name) { return !name.empty() && Plain(name, " <>/?!=\"'\r\n"); }

bool PlainParameters(const Parameters& parameters) {
  bool plain = true;
  parameters.ForEach([&](std::string_view name, std::string_view value) {
    plain = plain && PlainName(name) && Plain(value, "\"'<>\r\n");
  });
  return plain;
}

/// Whether the dialect can hold the tree: names and attribute values without signs that mean
/// something, no node without content. Inputs are small, so the recursion is as well.
bool Holdable(Document& node) {
  if (!PlainName(node.NameView()) || !PlainParameters(node.Parameters())) return false;
  if (node.Fields().Count() + node.Childs().Count() == 0) return false;
  for (int i = 0; i < node.Fields().Count(); ++i) {
    const auto field = node.Fields().Field(i);
    if (!PlainName(field->NameView()) || !PlainParameters(field->Parameters())) return false;
  }
  for (int i = 0; i < node.Childs().Count(); ++i) {
    if (!Holdable(*node.Childs().Child(i))) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto first = Document::Create();
  first->XMLImport({reinterpret_cast<const char*>(data), size});
  const bool holdable = Holdable(*first) && Plain(first->Version(), "\"'<>\r\n") &&
                        Plain(first->Encoding(), "\"'<>\r\n");
  const std::string written = first->XMLExport();
  const auto second = Document::Create();
  second->SetStopOnLoadError(holdable);
  const bool result = second->XMLImport(written);
  if (holdable && (!result || second->XMLExport() != written)) std::abort();
  return 0;
}
