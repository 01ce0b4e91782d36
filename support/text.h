#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// The text without the characters of `blanks` at both of its ends.
std::string_view Trimmed(std::string_view text, std::string_view blanks = " ");

/// The text with the letters A to Z in lower case; bytes above 127 stay as they are.
std::string LowerCase(std::string_view text);

}  // namespace tarvo
