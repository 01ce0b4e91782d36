// Attributes taken off any text: each call shortens it, and both forms of the call agree.
// corpus: attributes
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "xmldoc/document.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view view(reinterpret_cast<const char*>(data), size);
  std::string text(view);
  while (!text.empty()) {
    std::string name, value, viewName, viewValue;
    const std::size_t before = text.size();
    tarvo::Document::GetNextParameter(text, name, value);
    tarvo::Document::GetNextParameter(view, viewName, viewValue);
    if (text.size() >= before || name.size() + value.size() > before) std::abort();
    if (text != view || name != viewName || value != viewValue) std::abort();
  }
  return 0;
}
