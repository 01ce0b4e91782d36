#pragma once

#include <array>
#include <string>
#include <string_view>

#include "support/runtime_error.h"

namespace tarvo {

/// What a template may raise. docs/templates.md lists the same, with what it means.
enum class TemplateFault {
  MalformedTag,
  MissingBlockEnd,
  NoCondition,     ///< A term of a "when" without an operator.
  NoComparison,    ///< An alternative of "con" without an operator.
  MalformedField,  ///< A function that is unknown, not closed, or has too few arguments.
  BeyondBounds,    ///< The output or the work passed what the caller allows.
  ExternalCall,
  // Arithmetic faults keep the run time's own numbers and words.
  InvalidArgument,
  FieldOverflow,
  NoNumber,
  InvalidCalculation,
  CalculationOverflow,
  DivisionByZero,
  BadName,  ///< Raised by Field::SetName, where "LET" or "set(" adds a field.
};

/// The number and source with which each of them is raised.
struct TemplateFaultRule {
  TemplateFault fault;
  int number;
  const char* source;
};
inline constexpr std::array<TemplateFaultRule, 14> kTemplateFaults = {{
    {TemplateFault::MalformedTag, 10101, "VemtoParser.Maker"},
    {TemplateFault::MissingBlockEnd, 10102, "Vemto.Parser"},
    {TemplateFault::NoCondition, 10103, "parse.condition"},
    {TemplateFault::NoComparison, 10104, "parse.condition"},
    {TemplateFault::MalformedField, 10105, "parse.field"},
    {TemplateFault::BeyondBounds, 10106, "VemtoParser.Maker"},
    {TemplateFault::ExternalCall, 10107, "parse.external"},
    {TemplateFault::InvalidArgument, 5, "parse.field"},
    {TemplateFault::FieldOverflow, 6, "parse.field"},
    {TemplateFault::NoNumber, 13, "parse.field"},
    {TemplateFault::InvalidCalculation, 5, "parse.calculation"},
    {TemplateFault::CalculationOverflow, 6, "parse.calculation"},
    {TemplateFault::DivisionByZero, 11, "parse.calculation"},
    {TemplateFault::BadName, 1, "Name"},
}};

/// Raises it with these words. All of a template's faults but BadName are raised by this one.
[[noreturn]] void RaiseTemplateFault(TemplateFault fault, const std::string& description);
/// The same with the run time's own words.
[[noreturn]] void RaiseTemplateFault(TemplateFault fault, Fault ofTheRunTime);

/// "Tag mal formado": a tag without an end, or with quotes that do not pair up.
[[noreturn]] void RaiseMalformedTag();
/// "Falta el final de bloque:", a line end and the tag that was expected.
[[noreturn]] void RaiseMissingBlockEnd(std::string_view expectedTag);
[[noreturn]] void RaiseNoCondition();
[[noreturn]] void RaiseNoComparison();
[[noreturn]] void RaiseMalformedField(const std::string& why);
[[noreturn]] void RaiseBeyondBounds(const std::string& why);

}  // namespace tarvo
