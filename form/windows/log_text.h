#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace tarvo {

inline constexpr char kLineEnd[] = "\r\n";

/// The most bytes of a piece of the log that the window shows: the time that a rich edit takes to
/// break a line grows with the square of its length; 8000 letters can take 20 seconds.
inline constexpr std::size_t kLongestShown = 1000;

/// What the window shows of a piece: control characters as blanks, so that a line stays one, and
/// only the beginning and "..." of a piece that is too long.
std::string ShownOf(const std::string& piece);

/// Letters of a text as a rich edit counts them where all of it is shown: a line end is one.
LONG LettersIn(const std::string& text);

}  // namespace tarvo
