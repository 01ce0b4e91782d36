#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "xmldoc/document.h"

namespace tarvo {

/// JSON in which every byte above 127 is written \u00XX, whatever letter it is in its code page.
std::string JsonText(std::string_view text);
std::string JsonPairs(const std::vector<std::pair<std::string, std::string>>& pairs);

/// The whole tree, and the result of its import, as one JSON object. It needs no stack in
/// proportion to the depth of the tree.
std::string JsonDump(bool result, Document& root);

}  // namespace tarvo
