// Any text taken for a calculation: a finite result or an error.
// corpus: calculation
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "support/runtime_error.h"
#include "xmldoc/template/template_calculation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    tarvo::Calculation calculation;
    // A "@" stands for an operand.
    for (auto at = text.find('@'); at != std::string_view::npos; at = text.find('@')) {
      calculation.AddText(text.substr(0, at));
      calculation.AddOperand();
      text.remove_prefix(at + 1);
    }
    calculation.AddText(text);
    calculation.Finish();
    const std::vector<double> operands(calculation.OperandCount(), 1.5);
    if (!std::isfinite(calculation.Result(operands))) std::abort();
  } catch (const tarvo::RuntimeError&) {
  }
  return 0;
}
