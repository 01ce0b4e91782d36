#pragma once

#include <cstddef>
#include <string>

#include "core/status_log.h"
#include "toolkit/rich_text_view.h"

namespace tarvo {

/// Shows a line of the status log, of any level, at the end of the view: each piece in its colour.
/// Before that, the view's oldest lines are removed if its source has become too long.
void ShowLine(RichTextView& view, const LogLine& line);

/// Longest source, in bytes, that the view may have before a line is added to it.
inline constexpr std::size_t kLongestLogSource = 25000;

/// Removes the oldest lines of a view's source, three per round, until it is no longer than
/// `kLongestLogSource`. The header and the newest line stay, whatever their length.
std::string TrimmedLogSource(std::string source);

}  // namespace tarvo
