#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tarvo {

/// A part of a field directive's text.
struct TemplateToken {
  enum class Kind {
    Text,       ///< Plain text.
    Quoted,     ///< The text within double quotes: plain text, whatever it holds.
    Value,      ///< "VAR(" name ")": the text is the name.
    Call,       ///< A function's name and "(": the text is the name.
    Close,      ///< The ")" of a call.
    Separator,  ///< "," or ";" between the arguments of a call.
    Bar,        ///< "|" within a call.
    End,        ///< After the last part.
  };
  Kind kind;
  std::string_view text;
  std::size_t close = 0;  ///< Of a Call: the token that closes it.
};

/// Takes a directive's text apart; the last token is End. The tokens are parts of the text.
///
/// A word directly before "(" is a call, but "mod" in a calculation, which is its operator. Other
/// parentheses are text; they pair, and what is between them holds no separators. Outside of
/// calls, separators and bars are text. Raises the fault of a malformed field for a call that is
/// not closed, and that of a malformed tag for quotes that do not pair. It needs no stack in
/// proportion to the nesting.
std::vector<TemplateToken> TemplateTokens(std::string_view text);

}  // namespace tarvo
