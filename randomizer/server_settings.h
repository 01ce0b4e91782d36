#pragma once

#include <string_view>
#include <unordered_map>

#include "xmldoc/fields.h"

namespace tarvo {

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
