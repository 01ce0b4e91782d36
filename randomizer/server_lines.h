#pragma once

#include <cstddef>
#include <optional>
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

/// The text of a line before its first ":"; nothing for a line without one and for a comment, whose
/// first character is "/".
inline std::optional<std::string_view> NameOnLine(std::string_view line) {
  if (line.starts_with('/')) return std::nullopt;
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  return line.substr(0, colon);
}

/// Adds a field for each line "name: number" of a server's configuration file, in file order: its
/// name as written, its value the shortest decimal text of the number. Left out are comments, lines
/// whose text between the first and the second ":" is no number as a whole, and lines whose name
/// holds a blank, which no field's name may have: an indented setting is not offered.
void ReadServerSettings(std::string_view text, Fields& settings);

/// Index of the first field of exactly this name; -1 when there is none.
int IndexOfField(const Fields& fields, std::string_view name);

/// Removes the field of this name that line `line` of a list of all fields shows: of several of one
/// name (hand-edited) the one at that place, else the first.
void RemoveFieldOfLine(Fields& fields, std::string_view name, int line);

/// The first field of each name; valid until the fields are changed.
std::unordered_map<std::string_view, int> FirstFields(const Fields& fields);

}  // namespace tarvo
