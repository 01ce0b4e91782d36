#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarvo {

/// How the randomizer sees a configuration file of the servers: lines apart by CR LF and by nothing
/// else, so that a file of bare LF is one line.

/// Calls visit(line) for each line in order, without its CR LF. There is always at least one; a
/// text that ends with CR LF has an empty last one.
template <typename Visit>
void ForEachLine(std::string_view text, Visit visit) {
  for (;;) {
    const std::size_t end = text.find("\r\n");
    visit(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + 2);
  }
}

/// The text of a line before its first ":"; nothing for a line without one and for a comment, whose
/// first character is "/".
inline std::optional<std::string_view> NameOnLine(std::string_view line) {
  if (line.starts_with('/')) return std::nullopt;
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  return line.substr(0, colon);
}

}  // namespace tarvo
