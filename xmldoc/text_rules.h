#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// The rules of the library about single texts. Letter case is that of the 26 ASCII letters: other
/// bytes are letters in some code pages only, and so equal themselves alone.

/// Without the blanks (character 32 only) at both ends.
std::string_view WithoutOuterBlanks(std::string_view text);

std::string LowerCased(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);
/// Whether `a` comes before `b` when both are in lower case; bytes compare as unsigned numbers.
bool LessIgnoringCase(std::string_view a, std::string_view b);

/// Every "<" as "&lt;" and every ">" as "&gt;"; nothing else is touched.
std::string Escaped(std::string_view text);
/// The way back: "&lt;" and "&gt;" only.
std::string Unescaped(std::string_view text);

}  // namespace tarvo
