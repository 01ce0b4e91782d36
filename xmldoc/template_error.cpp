#include "xmldoc/template_error.h"

namespace tarvo {
namespace {

// The accented letters stand in the ANSI code page.
constexpr const char* kNoCondition = "No se ha encontrado una condici\xF3n v\xE1lida";
constexpr const char* kNoComparison = "No se encuentra la condici\xF3n";

[[noreturn]] void Raise(TemplateFault fault, const char* source, const std::string& description) {
  throw RuntimeError(static_cast<int>(fault), source, description);
}

}  // namespace

void RaiseMalformedTag() {
  Raise(TemplateFault::MalformedTag, "VemtoParser.Maker", "Tag mal formado");
}

void RaiseMissingBlockEnd(std::string_view expectedTag) {
  Raise(TemplateFault::MissingBlockEnd, "Vemto.Parser",
        "Falta el final de bloque:\r\n" + std::string(expectedTag));
}

void RaiseNoCondition() { Raise(TemplateFault::NoCondition, "parse.condition", kNoCondition); }

void RaiseNoComparison() { Raise(TemplateFault::NoComparison, "parse.condition", kNoComparison); }

void RaiseMalformedField(const std::string& why) {
  Raise(TemplateFault::MalformedField, "parse.field", why);
}

void RaiseBeyondBounds(const std::string& why) {
  Raise(TemplateFault::BeyondBounds, "VemtoParser.Maker", why);
}

}  // namespace tarvo
