#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvo {

/// The number rules of the run time: how a text becomes a number and a number a text. They follow
/// what operators know from Windows Basic programs, with "." as the decimal point on every machine.

/// The number that a text starts with; 0 when it starts with none. Blanks, tabs and line feeds are
/// skipped wherever they are. "&H" introduces hexadecimal digits, which are the bits of a 32-bit
/// signed number, or a number as large as they say when there are more. An exponent (E or D) is
/// read. Never fails.
double NumericValue(std::string_view text);

/// Whether the whole text is a number: blanks and tabs around it are ignored, "&H" introduces
/// hexadecimal digits of 32 bits at most. A text of nothing but blanks is no number.
bool IsNumeric(std::string_view text);

/// The whole text as a 32-bit integer: blanks and tabs around it are ignored, a fraction is rounded
/// to the nearest integer (halves to even), "&H" introduces up to eight hexadecimal digits. Raises
/// type mismatch (13) for a text that is empty or no number, overflow (6) beyond 32 bits.
std::int32_t ToInteger(std::string_view text);

/// The nearest whole number, halves to even, however large; what is no number stays so.
double RoundedToEven(double value);

/// Rounds to the nearest integer, halves to even; raises overflow (6) beyond 32 bits.
std::int32_t RoundToInteger(double value);

/// The shortest decimal text of a number, at most 15 digits, no leading blank: 15, 1.5, -0.25,
/// 1E+15.
std::string ShortestDecimal(double value);

/// The same without an exponent, however large the number is.
std::string PlainDecimal(double value);

}  // namespace tarvo
