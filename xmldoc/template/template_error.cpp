#include "xmldoc/template/template_error.h"

namespace tarvo {
namespace {

// The accented letters are those of the western ANSI code page.
constexpr const char* kNoCondition = "No se ha encontrado una condici\xF3n v\xE1lida";
constexpr const char* kNoComparison = "No se encuentra la condici\xF3n";

}  // namespace

void RaiseTemplateFault(TemplateFault fault, const std::string& description) {
  const TemplateFaultRule& rule = kTemplateFaults[static_cast<std::size_t>(fault)];
  throw RuntimeError(rule.number, rule.source, description);
}

void RaiseTemplateFault(TemplateFault fault, Fault ofTheRunTime) {
  RaiseTemplateFault(fault, DescriptionOf(ofTheRunTime));
}

void RaiseMalformedTag() { RaiseTemplateFault(TemplateFault::MalformedTag, "Tag mal formado"); }

void RaiseMissingBlockEnd(std::string_view expectedTag) {
  RaiseTemplateFault(TemplateFault::MissingBlockEnd,
                     "Falta el final de bloque:\r\n" + std::string(expectedTag));
}

void RaiseNoCondition() { RaiseTemplateFault(TemplateFault::NoCondition, kNoCondition); }

void RaiseNoComparison() { RaiseTemplateFault(TemplateFault::NoComparison, kNoComparison); }

void RaiseMalformedField(const std::string& why) {
  RaiseTemplateFault(TemplateFault::MalformedField, why);
}

void RaiseBeyondBounds(const std::string& why) {
  RaiseTemplateFault(TemplateFault::BeyondBounds, why);
}

}  // namespace tarvo
