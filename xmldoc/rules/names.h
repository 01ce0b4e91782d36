#pragma once

#include <string_view>

namespace tarvo {

/// The name as `Field` and `Parameter` keep it, trimmed. Raises RuntimeError 1, source "Name",
/// "Spaces found in the name", when a blank is left in it.
std::string_view CheckedName(std::string_view name);

/// The name as `Document` keeps it, trimmed. Raises RuntimeError 10007, source "xDocument.Name",
/// "Spaces found in name", when a blank is left in it.
std::string_view CheckedDocumentName(std::string_view name);

}  // namespace tarvo
