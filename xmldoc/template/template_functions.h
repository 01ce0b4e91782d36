#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace tarvo {

/// The formatting functions of a template that need nothing but their arguments. Letters are
/// those of letter_case.h, characters are bytes. docs/templates.md is their reference.

enum class TemplateFunction {
  Calculate,
  Format,
  Sentence,
  Title,
  Upper,
  Lower,
  Left,
  Set,
  Right,
  Middle,
  Condition,
  Random,
  External,
};

/// A function and how many arguments it takes.
struct TemplateFunctionRule {
  std::string_view start;  ///< The letters that it is recognised by.
  TemplateFunction function;
  std::size_t leastArguments;
  std::size_t mostArguments;
};

/// The function that a name means: its first three letters in any letter case, but "RANDOM"
/// whole. Nothing for a name that means none.
const TemplateFunctionRule* FindTemplateFunction(std::string_view name);

/// All in lower case but the first letter, and the first letter after each ".", "!" or "?" that a
/// blank or line end follows.
std::string SentenceCased(std::string_view text);
/// All in lower case but the first letter of each word.
std::string TitleCased(std::string_view text);

/// The number that a count or position argument means, as an index: below 0 is 0, what is no number
/// is 0, a fraction is cut off.
std::size_t CountArgument(std::string_view text);

/// "for": the value as a number or a moment, written as `format` says; a value that is neither
/// stays as it is. Raises the fault of a malformed field for a format that says nothing.
std::string FormatValue(std::string_view value, std::string_view format);
/// Whether `format` asks for a date, a time or both.
bool IsMomentFormat(std::string_view format);
std::string FormatMoment(LocalTime moment, std::string_view format);

}  // namespace tarvo
