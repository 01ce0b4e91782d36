#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xmldoc/fields.h"

namespace tarvo {

/// The lines of a text that have certain names, found in one pass, and the text with those lines
/// replaced. The text must outlive it.
class NamedLines {
 public:
  /// Looks for the names of the fields; nothing is kept of other lines.
  NamedLines(std::string_view text, const Fields& names);

  /// Positions for `Replace` of the lines of this name, in the order of the text.
  const std::vector<std::size_t>& Of(std::string_view name) const;

  /// Replaces the line by this text; the last call counts.
  void Replace(std::size_t position, std::string line) { lines_[position].text = std::move(line); }

  /// The text with its replaced lines. Every byte outside them is as it was.
  std::string Joined() const;

 private:
  struct Line {
    std::string_view old;
    std::string text;
  };

  std::string_view text_;
  std::vector<Line> lines_;
  std::unordered_map<std::string, std::vector<std::size_t>> positions_;
};

}  // namespace tarvo
