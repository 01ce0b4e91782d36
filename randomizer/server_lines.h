#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarvo {

/// The text of a line before its first ":"; nothing for a line without one and for a comment, whose
/// first character is "/".
inline std::optional<std::string_view> NameOnLine(std::string_view line) {
  if (line.starts_with('/')) return std::nullopt;
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  return line.substr(0, colon);
}

}  // namespace tarvo
