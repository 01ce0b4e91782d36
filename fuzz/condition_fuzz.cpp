// Any text taken for a condition: it holds, does not hold, or is an error, and says the same twice.
// corpus: condition
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "support/runtime_error.h"
#include "xmldoc/template/condition.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto node = tarvo::Document::Create();
  node->XMLImport("<r><a>1</a><b>x or y=2</b><n><a>2</a></n></r>");
  try {
    const tarvo::Condition condition(text);
    const bool holds = condition.Holds(*node);
    if (holds != tarvo::Condition(text).Holds(*node)) std::abort();
  } catch (const tarvo::RuntimeError&) {
  }
  return 0;
}
