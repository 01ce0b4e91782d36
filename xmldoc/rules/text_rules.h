#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// The rules of the library about single texts; those about letter case are in letter_case.h.

inline bool IsQuote(char c) { return c == '"' || c == '\''; }

/// Without the blanks (character 32 only) at both ends.
std::string_view WithoutOuterBlanks(std::string_view text);

/// Whether the text is this word, in any letter case. `keyword` is in lower case and of ASCII
/// letters and signs: no code page has others in its place.
bool IsKeyword(std::string_view text, std::string_view keyword);

/// The name as `Field` and `Parameter` keep it, trimmed. Raises RuntimeError 1, source "Name",
/// "Spaces found in the name", when a blank is left in it.
std::string_view CheckedName(std::string_view name);

/// The name as `Document` keeps it, trimmed. Raises RuntimeError 10007, source "xDocument.Name",
/// "Spaces found in name", when a blank is left in it.
std::string_view CheckedDocumentName(std::string_view name);

/// Every "<" as "&lt;" and every ">" as "&gt;"; nothing else is touched.
std::string Escaped(std::string_view text);
/// The way back: "&lt;" and "&gt;" only.
std::string Unescaped(std::string_view text);

}  // namespace tarvo
