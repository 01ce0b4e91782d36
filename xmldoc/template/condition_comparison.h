#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarvo {

/// The comparisons of conditions. `Contains` is "->": the left side holds the right one somewhere.
enum class Comparison { AtLeast, AtMost, Differs, Contains, Equal, Above, Below };

/// Compares two sides, without the blanks around them: as numbers when both are decimal numbers,
/// else as texts without regard to letter case. Contains always compares texts; the empty text is
/// contained in every text.
bool Holds(Comparison comparison, std::string_view left, std::string_view right);

/// The number that the whole text is: a sign, digits, a decimal point and an exponent, and nothing
/// else. Nothing for every other text, and for a number beyond the range of a double.
std::optional<double> DecimalNumber(std::string_view text);

/// How "differs" is written: "<>" in a condition, "!=" in the alternatives of "con".
enum class DiffersSign { AngleBrackets, ExclamationMark };

/// The operators in the order in which they are looked for: ">=", "<=", the sign of `Differs`,
/// "->", "=", ">", "<".
inline constexpr std::size_t kComparisonCount = 7;
std::string_view ComparisonSign(std::size_t order, DiffersSign differs);
Comparison ComparisonAt(std::size_t order);

}  // namespace tarvo
