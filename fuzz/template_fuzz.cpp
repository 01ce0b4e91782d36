// Any text taken for a template: no fault but its own errors, no hang, output within its bounds.
// corpus: template
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "support/runtime_error.h"
#include "xmldoc/document.h"
#include "xmldoc/template/template_ports.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto document = tarvo::Document::Create();
  document->XMLImport(
      "<r><a>1</a><b>x\"&lt;@field a&gt;</b><n><a>2</a><n><a>3</a></n></n><n><a>4</a></n></r>");
  tarvo::TemplatePorts ports;
  ports.mostOutput = 1U << 16;
  ports.mostChilds = 1000;
  try {
    if (document->HTMLExport(text, nullptr, ports).size() > ports.mostOutput) std::abort();
  } catch (const tarvo::RuntimeError&) {
  }
  return 0;
}
