#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// The rules of the library about single texts; those about letter case are in letter_case.h.

/// Without the blanks (character 32 only) at both ends.
std::string_view WithoutOuterBlanks(std::string_view text);

/// Whether the text is a word of the dialect or of templates, in any letter case. `keyword` is in
/// lower case and of ASCII letters and signs: no code page has others in its place.
bool IsKeyword(std::string_view text, std::string_view keyword);

/// Every "<" as "&lt;" and every ">" as "&gt;"; nothing else is touched.
std::string Escaped(std::string_view text);
/// The way back: "&lt;" and "&gt;" only.
std::string Unescaped(std::string_view text);

}  // namespace tarvo
