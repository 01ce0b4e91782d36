#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xmldoc/fields.h"

namespace tarvo {

/// The lines of a text that bear certain names, found in one walk, and the text with those lines
/// replaced. The text outlives it.
class NamedLines {
 public:
  /// Looks for the names of the fields; of the others nothing is kept.
  NamedLines(std::string_view text, const Fields& names);

  /// Positions for `Replace` of the lines of this name, in the order of the text.
  const std::vector<std::size_t>& Of(std::string_view name) const;

  /// The line is this text from now on; the last call counts.
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
