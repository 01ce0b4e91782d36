#pragma once

#include <string>
#include <string_view>

#include "support/runtime_error.h"

namespace tarvo {

/// Numbers of the faults that a template raises, each with the source and description that
/// docs/templates.md lists. Arithmetic faults keep the run time's own numbers 5, 6 and 11.
enum class TemplateFault : int {
  MalformedTag = 10101,
  MissingBlockEnd = 10102,
  NoCondition = 10103,     ///< A term of a "when" without an operator.
  NoComparison = 10104,    ///< An alternative of "con" without an operator.
  MalformedField = 10105,  ///< A function that is unknown, not closed, or has too few arguments.
  BeyondBounds = 10106,    ///< The output or the work passed what the caller allows.
};

/// "Tag mal formado": a tag without an end, or with quotes that do not pair up.
[[noreturn]] void RaiseMalformedTag();
/// "Falta el final de bloque:", a line end and the tag that was expected.
[[noreturn]] void RaiseMissingBlockEnd(std::string_view expectedTag);
[[noreturn]] void RaiseNoCondition();
[[noreturn]] void RaiseNoComparison();
[[noreturn]] void RaiseMalformedField(const std::string& why);
[[noreturn]] void RaiseBeyondBounds(const std::string& why);

}  // namespace tarvo
