#pragma once

#include <string_view>
#include <unordered_map>

#include "xmldoc/fields.h"

namespace tarvo {

/// Adds a field for each line "name: number" of a server's configuration file, in file order: its
/// name as it stands, its value the shortest decimal text of the number. Left out are comments,
/// lines whose text between the first and the second ":" is no number as a whole, and lines whose
/// name holds a blank, which no field may bear: an indented setting is not offered.
void ReadServerSettings(std::string_view text, Fields& settings);

/// Index of the field of exactly this name that has `before` fields of that name before it; -1 when
/// there is none.
int IndexOfField(const Fields& fields, std::string_view name, int before = 0);

/// The first field of each name; valid until the fields are changed.
std::unordered_map<std::string_view, int> FirstFields(const Fields& fields);

}  // namespace tarvo
