// Any text read, tolerantly and strictly: no fault, no hang, and memory in proportion to the text.
// corpus: xml
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "xmldoc/document.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto tolerant = tarvo::Document::Create();
  const bool result = tolerant->XMLImport(text);
  const auto strict = tarvo::Document::Create();
  strict->SetStopOnLoadError(true);
  if (strict->XMLImport(text) && !result) std::abort();
  return 0;
}
