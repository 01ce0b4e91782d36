#pragma once

#include <string_view>

namespace tarvo {

/// Takes the first attribute off the text of a tag, as Document::GetNextParameter describes it,
/// without copying: `name` and `value` are parts of the text, and `rest` moves forward. Taking all
/// attributes off a text costs time in proportion to its length.
void TakeAttribute(std::string_view& rest, std::string_view& name, std::string_view& value);

}  // namespace tarvo
